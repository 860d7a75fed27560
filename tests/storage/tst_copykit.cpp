#include "support/testunit.h"

#include <QtTest>

// The kit's copy and size scripts, run as the console runs them, on names that
// would do harm if any of them reached a shell as text.
class TestCopyKit : public QObject
{
    Q_OBJECT
    TestUnit m_unit;

    int script(const QString &name, const QStringList &arguments, QByteArray *out = nullptr)
    {
        QProcess process;
        process.start(QStringLiteral("/bin/sh"), QStringList{m_unit.path("/opt/hbi/bin/" + name)} + arguments);
        if (!process.waitForFinished(15000))
            return -1;
        if (out)
            *out = process.readAllStandardOutput();
        return process.exitCode();
    }
    static QStringList tree(const QString &folder)
    {
        QStringList found;
        QDirIterator it(folder, QDir::Files | QDir::Hidden | QDir::Dirs | QDir::NoDotAndDotDot,
                        QDirIterator::Subdirectories);
        while (it.hasNext()) {
            it.next();
            QFile file(it.filePath());
            const QByteArray content = file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("<dir>");
            found << it.filePath().mid(folder.size()) + "=" + QString::fromLatin1(content.toHex());
        }
        found.sort();
        return found;
    }

private slots:
    void initTestCase() { QVERIFY(m_unit.isValid()); }

    void copiesIntoTheParentKeepingTheNameWithProgress_data()
    {
        QTest::addColumn<QString>("name");
        QTest::newRow("blanks") << "Mill Lane 2.sur";
        QTest::newRow("quotes") << "It's \"the\" lane.sur";
        QTest::newRow("command") << "$(touch pwned) `touch pwned2`; rm -rf x.sur";
        QTest::newRow("pattern") << "[a]* ?.sur";
        QTest::newRow("leading dash") << "-rf.sur";
    }
    void copiesIntoTheParentKeepingTheNameWithProgress()
    {
        QFETCH(QString, name);
        const QString source = m_unit.path("/media/usb1/corvane/") + name;
        QVERIFY(m_unit.writeFile("/media/usb1/corvane/" + name + "/section_1/video.mp4", QByteArray(70000, 'v')));
        QVERIFY(m_unit.writeFile("/media/usb1/corvane/" + name + "/section_1/" + name + ".jpg", "jpg"));
        QVERIFY(m_unit.writeFile("/media/usb1/corvane/" + name + "/.project.sdb", "p"));
        QVERIFY(QDir().mkpath(source + "/empty section"));
        const QString parent = m_unit.path("/media/internal/corvane");
        QVERIFY(QDir().mkpath(parent));
        QByteArray out;
        QCOMPARE(script("copy_file.sh", {source, parent}, &out), 0);
        QCOMPARE(tree(parent + "/" + name), tree(source));
        QCOMPARE(out, QByteArray("PROGRESS 33\nPROGRESS 66\nPROGRESS 100\n"));
        QVERIFY(!QFileInfo::exists(m_unit.path("/media/usb1/corvane/pwned")));
        QVERIFY(!QFileInfo::exists("pwned") && !QFileInfo::exists("pwned2"));

        QByteArray size;
        QCOMPARE(script("get_directory_info.sh", {source}, &size), 0);
        QVERIFY2(size.trimmed().toLongLong() >= 68 && size.trimmed().toLongLong() < 90, size.constData());
    }

    void aPulledTargetFailsAndLeavesTheSource()
    {
        const QString source = m_unit.path("/media/usb1/corvane/Pulled.sur");
        QVERIFY(m_unit.writeFile("/media/usb1/corvane/Pulled.sur/section_1/video.mp4", "v"));
        const QStringList before = tree(source);
        QVERIFY(QDir().mkpath(m_unit.path("/media/usb2/corvane")));
        // usb2 is not plugged on a fresh unit: its folder is there, the medium is not.
        QCOMPARE(script("copy_file.sh", {source, m_unit.path("/media/usb2/corvane")}), 1);
        QCOMPARE(tree(source), before);
        QVERIFY(!QFileInfo::exists(m_unit.path("/media/usb2/corvane/Pulled.sur/section_1/video.mp4")));
        QVERIFY(m_unit.kitLog().filter("copy of " + source).filter("failed").size() == 1);
    }

    void missingFoldersAreRefused()
    {
        QCOMPARE(script("copy_file.sh", {m_unit.path("/media/usb1/none"), m_unit.path("/media/sd")}), 1);
        QCOMPARE(script("copy_file.sh", {m_unit.path("/media/usb1"), m_unit.path("/media/none")}), 1);
        QByteArray out;
        QCOMPARE(script("get_directory_info.sh", {m_unit.path("/media/none")}, &out), 1);
        QCOMPARE(out, QByteArray());
    }
};

QTEST_MAIN(TestCopyKit)
#include "tst_copykit.moc"
