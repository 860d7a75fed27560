// The service console's work with a USB stick: logs and settings saved, known
// settings loaded back, software updates verified before anything changes, and
// logos checked; and the console stays locked without the service code.
#include "core/consolesettings.h"
#include "settings/serviceactions.h"
#include "settings/serviceconsole.h"
#include "settings/updatepackage.h"
#include "support/keypadoperator.h"
#include "support/testunit.h"
#include "widgets/p_pushbutton.h"

#include <QCryptographicHash>
#include <QDir>
#include <QImage>
#include <QtTest>

class TestServiceConsole : public QObject
{
    Q_OBJECT

    TestUnit m_unit;
    QString m_stick;

    QString stick() const { return m_stick; }

    static bool write(const QString &path, const QByteArray &content)
    {
        QDir().mkpath(QFileInfo(path).absolutePath());
        QFile file(path);
        return file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(content) == content.size();
    }

    static QByteArray read(const QString &path)
    {
        QFile file(path);
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

    static QByteArray sumLine(const QString &folder, const QString &path)
    {
        const QByteArray sum = QCryptographicHash::hash(read(folder + "/" + path), QCryptographicHash::Sha256).toHex();
        return sum + "  " + path.toUtf8() + "\n";
    }

    // A good package: a new script and a replaced table, as sha256sum would list them.
    QString makePackage()
    {
        const QString folder = m_stick + "/" + UpdatePackage::folderName();
        QDir(folder).removeRecursively();
        write(folder + "/version", "Ductline 9.9.9\n");
        write(folder + "/files/opt/hbi/bin/hello_update.sh", "#!/bin/sh\necho updated\n");
        write(folder + "/files/opt/hbi/tables/camera_table.txt", "new table\n");
        QFile::setPermissions(folder + "/files/opt/hbi/bin/hello_update.sh",
                              QFile::permissions(folder + "/files/opt/hbi/bin/hello_update.sh") | QFile::ExeOwner);
        write(folder + "/manifest.sha256",
              sumLine(folder, "version") + sumLine(folder, "files/opt/hbi/bin/hello_update.sh")
                  + sumLine(folder, "files/opt/hbi/tables/camera_table.txt"));
        return folder;
    }

private slots:
    void initTestCase()
    {
        QVERIFY(m_unit.isValid());
        m_stick = m_unit.path("/media/usb1");
        QVERIFY(QDir().mkpath(m_stick));
    }

    void logsGoToTheStick()
    {
        QVERIFY(write(m_unit.path("/opt/hbi/log/Ductline-01012027.log"), "a day's log\n"));
        QVERIFY(write(m_unit.path("/opt/hbi/hwlogs/camera.log"), "camera events\n"));
        const ServiceActions::Result result = ServiceActions::saveLogs(stick());
        QVERIFY2(result.ok, qPrintable(result.message));
        const QStringList saved =
            QDir(m_stick + "/ductline-service").entryList({"logs-*"}, QDir::Dirs | QDir::NoDotAndDotDot);
        QCOMPARE(saved.size(), 1);
        const QString folder = m_stick + "/ductline-service/" + saved.first();
        QCOMPARE(read(folder + "/Ductline-01012027.log"), QByteArray("a day's log\n"));
        QCOMPARE(read(folder + "/hwlogs/camera.log"), QByteArray("camera events\n"));
    }

    void noStickNoAction()
    {
        for (auto action : {&ServiceActions::saveLogs, &ServiceActions::saveSettings, &ServiceActions::loadSettings,
                            &ServiceActions::updateSoftware, &ServiceActions::updateLogo}) {
            QVERIFY(!action(QString()).ok);
            QVERIFY(!action(m_unit.path("/media/usb2-not-there")).ok);
        }
    }

    void settingsGoToTheStickAndOnlyKnownKeysComeBack()
    {
        {
            ConsoleSettings settings;
            settings.setValue("Coiler/Meterage", "0.98");
            settings.setValue("OSTRA/wrc en", true);
            settings.setValue("End_Header/Line1", "Harbinger; \"Drains\"");
        }
        QVERIFY(ServiceActions::saveSettings(stick()).ok);
        const QString saved = m_stick + "/ductline-service/Ductline.conf";
        QVERIFY(QFile::exists(saved));
        {
            // The file on the stick gains a key no part of the console owns.
            QSettings file(saved, QSettings::IniFormat);
            file.setValue("Planted/Key", "x");
            file.setValue("Coiler/Meterage", "1.25");
        }
        {
            ConsoleSettings settings;
            settings.setValue("Coiler/Meterage", "0.61");
            settings.setValue("OSTRA/wrc en", false);
            settings.remove("End_Header/Line1");
        }
        const ServiceActions::Result result = ServiceActions::loadSettings(stick());
        QVERIFY2(result.ok, qPrintable(result.message));
        ConsoleSettings settings;
        QCOMPARE(settings.value("Coiler/Meterage").toString(), QStringLiteral("1.25"));
        QCOMPARE(ConsoleSettings::wrcEnabled(), true);
        QCOMPARE(settings.value("End_Header/Line1").toString(), QStringLiteral("Harbinger; \"Drains\""));
        QVERIFY(!settings.contains("Planted/Key"));
    }

    void aGoodUpdateIsInstalled()
    {
        makePackage();
        const ServiceActions::Result result = ServiceActions::updateSoftware(stick());
        QVERIFY2(result.ok, qPrintable(result.message));
        QCOMPARE(read(m_unit.path("/opt/hbi/bin/hello_update.sh")), QByteArray("#!/bin/sh\necho updated\n"));
        QVERIFY(QFile::permissions(m_unit.path("/opt/hbi/bin/hello_update.sh")) & QFile::ExeOwner);
        QCOMPARE(read(m_unit.path("/opt/hbi/tables/camera_table.txt")), QByteArray("new table\n"));
        QCOMPARE(read(m_unit.path("/opt/hbi/version")), QByteArray("Ductline 9.9.9\n"));
        QVERIFY(QDir(m_unit.path("/opt/hbi/bin")).entryList({"*.ductline-update"}, QDir::Files).isEmpty());
    }

    void aBadUpdateChangesNothing_data()
    {
        QTest::addColumn<QString>("damage");
        QTest::newRow("a changed byte") << "tamper";
        QTest::newRow("a file not listed") << "extra";
        QTest::newRow("a listed file missing") << "missing";
        QTest::newRow("a path out of the package") << "escape";
        QTest::newRow("an absolute path") << "absolute";
        QTest::newRow("a garbled line") << "garbled";
        QTest::newRow("no manifest") << "nomanifest";
        QTest::newRow("no version") << "noversion";
        QTest::newRow("a line twice") << "twice";
    }

    void aBadUpdateChangesNothing()
    {
        QFETCH(QString, damage);
        QVERIFY(write(m_unit.path("/opt/hbi/version"), "Ductline 1.0\n"));
        QVERIFY(write(m_unit.path("/opt/hbi/tables/camera_table.txt"), "old table\n"));
        QFile::remove(m_unit.path("/opt/hbi/bin/hello_update.sh"));
        const QString folder = makePackage();
        const QString manifest = folder + "/manifest.sha256";
        QByteArray lines = read(manifest);
        if (damage == "tamper")
            write(folder + "/files/opt/hbi/tables/camera_table.txt", "new tablE\n");
        else if (damage == "extra")
            write(folder + "/files/opt/hbi/bin/stowaway.sh", "#!/bin/sh\n");
        else if (damage == "missing")
            QFile::remove(folder + "/files/opt/hbi/tables/camera_table.txt");
        else if (damage == "escape")
            write(manifest, lines + QByteArray(64, 'a') + "  files/../../../etc/passwd\n");
        else if (damage == "absolute")
            write(manifest, lines + QByteArray(64, 'a') + "  /etc/passwd\n");
        else if (damage == "garbled")
            write(manifest, lines + "not a checksum line\n");
        else if (damage == "nomanifest")
            QFile::remove(manifest);
        else if (damage == "noversion")
            write(manifest, lines.mid(lines.indexOf('\n') + 1));
        else if (damage == "twice")
            write(manifest, lines + lines.left(lines.indexOf('\n') + 1));

        const ServiceActions::Result result = ServiceActions::updateSoftware(stick());
        QVERIFY(!result.ok);
        QVERIFY2(result.message.contains("not installed"), qPrintable(result.message));
        QCOMPARE(read(m_unit.path("/opt/hbi/version")), QByteArray("Ductline 1.0\n"));
        QCOMPARE(read(m_unit.path("/opt/hbi/tables/camera_table.txt")), QByteArray("old table\n"));
        QVERIFY(!QFile::exists(m_unit.path("/opt/hbi/bin/hello_update.sh")));
    }

    void logoMustBeAPictureThatFits_data()
    {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<bool>("picture");
        QTest::addColumn<bool>("taken");
        QTest::newRow("a small picture") << QSize(200, 80) << true << true;
        QTest::newRow("larger than the screen") << QSize(801, 80) << true << false;
        QTest::newRow("not a picture") << QSize() << false << false;
    }

    void logoMustBeAPictureThatFits()
    {
        QFETCH(QSize, size);
        QFETCH(bool, picture);
        QFETCH(bool, taken);
        const QString logo = m_unit.path("/opt/hbi/logo.png");
        QFile::remove(logo);
        const QString source = m_stick + "/logo.png";
        if (picture) {
            QImage image(size, QImage::Format_ARGB32);
            image.fill(Qt::darkGreen);
            QVERIFY(image.save(source, "PNG"));
        } else {
            QVERIFY(write(source, "<html>not a picture</html>"));
        }
        QCOMPARE(ServiceActions::updateLogo(stick()).ok, taken);
        QCOMPARE(QFile::exists(logo), taken);
        if (taken)
            QCOMPARE(QImage(logo).size(), size);
    }

    void consoleStaysLockedWithoutTheCode()
    {
        ServiceConsole console;
        console.setStickPath(stick());
        console.resize(800, 500);
        console.show();
        QVERIFY(QTest::qWaitForWindowExposed(&console));
        console.activateWindow();
        console.setFocus();
        KeypadOperator keys(&console);
        QVERIFY(!console.button(ServiceConsole::kSaveLogs)->isVisible());
        keys.key(Qt::Key_Return);
        QVERIFY(keys.answerText(tr("Service Code"), "1234"));
        QTRY_COMPARE(console.resultText(), QStringLiteral("Wrong service code"));
        QVERIFY(!console.isUnlocked());

        keys.key(Qt::Key_Return);
        QVERIFY(keys.answerText(tr("Service Code"), ServiceConsole::serviceCode()));
        QTRY_VERIFY(console.isUnlocked());
        // Offscreen, the window is not active again once the dialog goes: ask it where its focus is.
        QTRY_COMPARE(console.focusWidget(), console.button(ServiceConsole::kSaveLogs));
        console.activateWindow();
        QVERIFY(QTest::qWaitForWindowActive(&console));
        keys.key(Qt::Key_Down);
        QTRY_VERIFY(console.button(ServiceConsole::kSaveSettings)->hasFocus());
        keys.key(Qt::Key_Return);
        QTRY_COMPARE(console.resultText(), QStringLiteral("Settings saved to the USB stick"));
        keys.key(Qt::Key_L);
        QVERIFY(!console.isUnlocked());
    }
};

QTEST_MAIN(TestServiceConsole)
#include "tst_serviceconsole.moc"
