// The cloud on the simulated unit, by keys alone: the real window and controller
// on a fresh root and the kit's real FTP site on 127.0.0.1. The operator sets
// the site on the cloud settings page, copies a Corvane site to "Cloud" from the
// media browser and finds it listed there; the device list asks the site again
// when it shows and on R.
#include "app/browser/report.h"
#include "app/browser/reportpage.h"
#include "app/controller.h"
#include "app/mainwindow.h"
#include "core/processcontroller.h"
#include "core/uikeys.h"
#include "settings/settings.h"
#include "settings/settingscloud.h"
#include "storage/cloudconfig.h"
#include "storage/networkstorage.h"
#include "storage/storagebase.h"
#include "support/consoleonunit.h"
#include "support/keypadoperator.h"
#include "support/logcapture.h"
#include "support/modalsteps.h"
#include "support/testunit.h"
#include "support/unitftpsite.h"
#include "widgets/p_lineedit.h"
#include "widgets/p_pushbutton.h"

#include <QCryptographicHash>
#include <QDirIterator>
#include <QtTest>

namespace {
const QString kUser = QStringLiteral("surveyor");
const QString kPassword = QStringLiteral("Inspection-Chamber 12");
const QString kSite = QStringLiteral("Corvane Close");
const QString kCloud = QStringLiteral("Cloud");
const QString kInternal = QStringLiteral("Internal Storage");
} // namespace

class TestCloudOnUnit : public QObject
{
    Q_OBJECT
    TestUnit m_unit;
    std::unique_ptr<LogCapture> m_log;
    UnitFtpSite m_ftp{m_unit, kUser, kPassword};
    ConsoleOnUnit m_console;
    MainWindow *m_window = nullptr;
    KeypadOperator *m_keys = nullptr;
    Report *m_report = nullptr;

    Settings *settings() const { return qobject_cast<Settings *>(m_window->page(Controller::kScreenSettings)); }
    ReportPage *page() const { return m_report->page(m_report->level()); }
    QStringList rows() const { return page()->list(); }

    bool downTo(QWidget *widget)
    {
        for (int i = 0; i < 20 && QApplication::focusWidget() != widget; ++i)
            m_keys->key(Qt::Key_Down);
        return QApplication::focusWidget() == widget;
    }
    bool typeInto(P_LineEdit *field, const QString &text)
    {
        if (!downTo(field))
            return false;
        field->selectAll();
        m_keys->type(text);
        return field->text() == text;
    }
    bool choose(const QString &text)
    {
        const int wanted = rows().indexOf(text);
        if (wanted < 0)
            return false;
        while (page()->currentRow() > wanted)
            m_keys->key(Qt::Key_Up);
        while (page()->currentRow() < wanted)
            m_keys->key(Qt::Key_Down);
        return page()->currentText() == text;
    }
    bool open(const QString &text)
    {
        const int level = m_report->level();
        if (!choose(text))
            return false;
        m_keys->key(Qt::Key_Right);
        return QTest::qWaitFor([&]() { return m_report->level() == level + 1 && !rows().contains("Refreshing..."); },
                               10000);
    }
    bool openBrowser()
    {
        m_keys->key(Ui::Key_Report);
        return QTest::qWaitFor([&]() { return m_window->screen() == Controller::kScreenReport; }, 5000) &&
               m_report->level() == 0;
    }
    bool leaveBrowser()
    {
        while (m_window->screen() == Controller::kScreenReport && m_report->level() > 0)
            m_keys->key(Qt::Key_Escape);
        m_keys->key(Qt::Key_Escape);
        return QTest::qWaitFor([&]() { return m_window->screen() == Controller::kScreenVideo; }, 5000);
    }
    static QMap<QString, QByteArray> digests(const QString &folder)
    {
        QMap<QString, QByteArray> files;
        QDirIterator it(folder, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
        while (it.hasNext()) {
            QFile file(it.next());
            file.open(QIODevice::ReadOnly);
            files.insert(it.filePath().mid(folder.size()),
                         QCryptographicHash::hash(file.readAll(), QCryptographicHash::Sha256));
        }
        return files;
    }
    QString cloudPath() const { return StorageBase::instance()->getPath(StorageBase::kStorageCLOUD); }

private slots:
    void initTestCase()
    {
        m_log.reset(new LogCapture);
        QVERIFY(m_unit.isValid());
        QVERIFY(m_ftp.start());
        const QString site = "/media/internal/corvane/" + kSite;
        QVERIFY(m_unit.writeFile(site + "/.project.sdb", "Project=Corvane Close\n"));
        QVERIFY(m_unit.writeFile(site + "/Survey 1/section_1/video.mp4", QByteArray(250000, '\x5a')));
        QVERIFY(m_unit.writeFile(site + "/Survey 1/section_1/snapshot_1.jpg", QByteArray(4096, '\x17')));
        QVERIFY(m_unit.writeFile(site + "/Survey 1/Corvane Close.txt", "summary\r\n"));

        // Internal storage alone: the copy dialog then offers Cloud only.
        QProcess storage;
        storage.start(QStringLiteral("unit-storage"), {QStringLiteral("pull"), QStringLiteral("usb1")});
        QVERIFY(storage.waitForFinished(15000) && storage.exitCode() == 0);

        QVERIFY(m_console.logIn());
        m_window = m_console.window;
        m_keys = m_console.keypad;
        m_report = m_window->findChild<Report *>();
        QVERIFY(m_report);
    }

    void cleanupTestCase()
    {
        delete m_keys;
        delete m_window;
    }

    void withNoSiteSetTheBrowserListsNoCloud()
    {
        QVERIFY(openBrowser());
        QTRY_COMPARE(rows(), QStringList({kInternal}));
        QVERIFY(m_log->contains("No cloud site set; no scan"));
        QVERIFY(leaveBrowser());
    }

    void setTheFtpSiteOnTheCloudPage()
    {
        m_keys->key(Ui::Key_Settings);
        QTRY_COMPARE(m_window->screen(), int(Controller::kScreenSettings));
        for (int i = 0; i < Settings::kTabCount && settings()->activeTab() != Settings::kTabCloud; ++i)
            m_keys->key(Qt::Key_PageDown);
        QCOMPARE(settings()->activeTab(), int(Settings::kTabCloud));
        SettingsCloud *page = settings()->findChild<SettingsCloud *>();
        QVERIFY(page);
        const QList<P_LineEdit *> fields = page->findChildren<P_LineEdit *>();
        QCOMPARE(fields.size(), 3);
        QVERIFY(typeInto(fields.at(0), m_ftp.address()));
        QVERIFY(typeInto(fields.at(1), kUser));
        QVERIFY(typeInto(fields.at(2), kPassword));
        QVERIFY(downTo(page->findChild<P_PushButton *>()));
        m_window->grab().save(TestUnit::artifactsDir("app") + "/cloud_settings.png");
        ModalSteps box;
        box.expect("HBIMessageBox", {Qt::Key_Return});
        m_keys->key(Qt::Key_Return);
        QTRY_VERIFY_WITH_TIMEOUT(box.done(), 30000);
        QVERIFY2(box.texts.value(0).contains("Cloud Connection Success"), qPrintable(box.texts.value(0)));
        QCOMPARE(cloudPath(), m_ftp.address());
        CloudConfig saved;
        QVERIFY(saved.read());
        QCOMPARE(saved.host, m_ftp.address());
        QCOMPARE(saved.password, kPassword);
        m_keys->key(Qt::Key_Escape);
        QTRY_COMPARE(m_window->screen(), int(Controller::kScreenVideo));
    }

    void copyASiteToTheCloudAndFindItThere()
    {
        QVERIFY(openBrowser());
        QTRY_COMPARE(rows(), QStringList({kInternal, kCloud}));
        QVERIFY(open(kInternal));
        QVERIFY(choose(kSite));
        // The copy dialog offers the other devices; Cloud is the only one.
        ModalSteps steps;
        steps.expect("CopyDialog", {Qt::Key_Return}).expect("HBIMessageBox", {Qt::Key_Return});
        m_keys->key(Qt::Key_C);
        QTRY_VERIFY_WITH_TIMEOUT(steps.done(), 30000);
        QCOMPARE(steps.texts.size(), 1);
        QVERIFY2(steps.texts.first().contains("Cloud Copy Success"), qPrintable(steps.texts.first()));
        const QString local = m_unit.path("/media/internal/corvane/" + kSite);
        QCOMPARE(digests(m_ftp.home() + "/corvane/" + kSite), digests(local));
        QCOMPARE(digests(local).size(), 4);

        m_keys->key(Qt::Key_Escape);
        QTRY_COMPARE(m_report->level(), 0);
        QTRY_VERIFY(rows().contains(kCloud));
        QVERIFY(open(kCloud));
        QCOMPARE(page()->heading(), QStringLiteral("Cloud://"));
        QTRY_VERIFY(rows().contains(kSite));
        QVERIFY(open(kSite));
        QCOMPARE(rows(), QStringList({"Survey 1"}));
        m_window->grab().save(TestUnit::artifactsDir("app") + "/cloud_site.png");
        QVERIFY(leaveBrowser());
        QVERIFY(!m_log->contains(kPassword));
        QVERIFY(!m_unit.kitLog().join('\n').contains(kPassword));
    }

    void rAsksTheSiteAgain()
    {
        QVERIFY(openBrowser());
        QTRY_VERIFY(rows().contains(kCloud));
        // The scan the list asked for on showing is over; only R asks again.
        QTRY_VERIFY_WITH_TIMEOUT(!ProcessController::instance()->isRunning(), 30000);
        QVERIFY(m_report->keyHint().contains("R: refresh cloud"));
        const QString added = QStringLiteral("Added On The Office PC");
        QVERIFY(QDir().mkpath(m_ftp.home() + "/corvane/" + added));
        m_keys->key(Qt::Key_R);
        QTRY_VERIFY_WITH_TIMEOUT(NetworkStorage::instance()->indexedPaths().contains(added), 30000);
        QVERIFY(open(kCloud));
        QStringList sites = rows();
        sites.sort();
        QCOMPARE(sites, QStringList({added, kSite}));
        m_keys->key(Qt::Key_Escape);
        QTRY_COMPARE(m_report->level(), 0);

        // The site gone, the next ask takes Cloud off the list.
        QTRY_VERIFY_WITH_TIMEOUT(!ProcessController::instance()->isRunning(), 30000);
        m_ftp.stop();
        m_keys->key(Qt::Key_R);
        QTRY_VERIFY_WITH_TIMEOUT(!rows().contains(kCloud), 30000);
        QCOMPARE(rows(), QStringList({kInternal}));
        QVERIFY(leaveBrowser());
    }

    void theSavedSiteIsMountedWhenTheBrowserShows()
    {
        QVERIFY(m_ftp.start());
        QVERIFY(cloudPath().isEmpty());
        // A new port: the saved settings are for the site as it was.
        CloudConfig config;
        QVERIFY(config.read());
        config.host = m_ftp.address();
        QVERIFY(config.write());
        QVERIFY(openBrowser());
        QTRY_VERIFY_WITH_TIMEOUT(rows().contains(kCloud), 30000);
        QCOMPARE(cloudPath(), m_ftp.address());
        QVERIFY(open(kCloud));
        QTRY_VERIFY(rows().contains(kSite));
        QVERIFY(leaveBrowser());
    }
};

QTEST_MAIN(TestCloudOnUnit)
#include "tst_cloudonunit.moc"
