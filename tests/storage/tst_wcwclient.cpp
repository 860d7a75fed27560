#include "storage/networkstorage.h"
#include "storage/storagebase.h"
#include "storage/wcwclient.h"
#include "support/logcapture.h"
#include "support/testunit.h"
#include "support/wcwstandin.h"

#include <QtTest>

namespace {
const QString kUser = QStringLiteral("contractor@example.org");
const QString kPassword = QStringLiteral("Benching-9!");
} // namespace

// WinCan Web as a storage item, against the kit's stand-in service.
class TestWcwClient : public QObject
{
    Q_OBJECT
    TestUnit m_unit;
    WcwStandIn m_service{m_unit};
    std::unique_ptr<LogCapture> m_log;
    NetworkStorage *m_cloud = nullptr;

    QString makeProject(const QString &name, bool exported)
    {
        const QString folder = "/media/internal/corvane/" + name;
        if (exported)
            m_unit.writeFile(folder + "/" + name + ".xml", "<Project/>\n");
        m_unit.writeFile(folder + "/Survey 1/video.mp4", QByteArray(90000, '\x42'));
        return m_unit.path(folder);
    }

private slots:
    void initTestCase()
    {
        qRegisterMetaType<QProcess::ExitStatus>();
        m_log.reset(new LogCapture);
        QVERIFY(m_unit.isValid());
        QVERIFY(m_service.start(kUser, kPassword));
        QSettings(QStringLiteral("Corvane"), QStringLiteral("Ductline"))
            .setValue("Cloud/WinCanWebServer", m_service.url().toString());
        m_service.store();
        QDir().mkpath(m_service.store() + "/Existing Job");
        m_cloud = NetworkStorage::instance();
        m_cloud->setWinCanWeb(true);
    }

    void loginListsProjectsAndMountsWinCanWeb()
    {
        QSignalSpy finished(m_cloud, &NetworkStorage::scanfinished);
        QSignalSpy failure(m_cloud, &NetworkStorage::failure);
        m_cloud->networkScan("ignored", kUser, "wrong");
        QVERIFY(finished.wait(20000));
        QCOMPARE(failure.count(), 1);
        QVERIFY(StorageBase::instance()->getPath(StorageBase::kStorageWINCANWEB).isEmpty());

        QSignalSpy success(m_cloud, &NetworkStorage::success);
        m_cloud->networkScan("ignored", kUser, kPassword);
        QVERIFY(finished.wait(20000));
        QCOMPARE(success.count(), 1);
        QCOMPARE(StorageBase::instance()->getPath(StorageBase::kStorageWINCANWEB), m_cloud->winCanWebHost());
        QCOMPARE(m_cloud->indexedPaths(), QStringList{"Existing Job"});
    }

    // The device list's scan: the saved details log in again and list the projects afresh.
    void autoScanLogsInAgainWithTheSavedDetails()
    {
        QDir().mkpath(m_service.store() + "/Second Job");
        StorageBase::instance()->handle_unmount(m_cloud->winCanWebHost());
        QVERIFY(StorageBase::instance()->getPath(StorageBase::kStorageWINCANWEB).isEmpty());
        QSignalSpy success(m_cloud, &NetworkStorage::success);
        m_cloud->autoScan();
        QVERIFY(success.wait(20000));
        QCOMPARE(StorageBase::instance()->getPath(StorageBase::kStorageWINCANWEB), m_cloud->winCanWebHost());
        QStringList projects = m_cloud->indexedPaths();
        projects.sort();
        QCOMPARE(projects, QStringList({"Existing Job", "Second Job"}));
    }

    void exportedProjectUploads()
    {
        const QString project = makeProject("Oak Road", true);
        QSignalSpy done(m_cloud, &NetworkStorage::copyDone);
        m_cloud->uploadFiles(project, m_cloud->winCanWebHost() + "/corvane/Oak Road");
        QVERIFY(done.wait(20000));
        QCOMPARE(done.at(0).at(0).toInt(), NetworkStorage::kCopyDoneCode);
        QFile stored(m_service.store() + "/Oak Road/Survey 1/video.mp4");
        QVERIFY(stored.open(QIODevice::ReadOnly));
        QCOMPARE(stored.readAll(), QByteArray(90000, '\x42'));
    }

    void projectNeverExportedIsRefused()
    {
        QSignalSpy aborted(m_cloud, &NetworkStorage::copyAborted);
        m_cloud->uploadFiles(makeProject("Draft Lane", false), m_cloud->winCanWebHost() + "/corvane/Draft Lane");
        QCOMPARE(aborted.count(), 1);
        QCOMPARE(aborted.at(0).at(0).toInt(), -2);
        QVERIFY(!QFile::exists(m_service.store() + "/Draft Lane"));
    }

    void downloadIsRefused()
    {
        QSignalSpy aborted(m_cloud, &NetworkStorage::copyAborted);
        m_cloud->downloadFiles(m_cloud->winCanWebHost() + "/corvane/Existing Job", m_unit.path("/media/usb1/corvane/x"));
        QCOMPARE(aborted.count(), 1);
        QCOMPARE(aborted.at(0).at(0).toInt(), -3);
        QVERIFY(m_log->contains("Download not yet implemented"));
    }

    // The tick comes before any progress was reported: the upload is given up.
    void uploadWithoutProgressIsAbortedAtTheTick()
    {
        WCWClient *client = WCWClient::instance();
        QSignalSpy aborted(m_cloud, &NetworkStorage::copyAborted);
        m_cloud->uploadFiles(makeProject("Frozen Way", true), m_cloud->winCanWebHost() + "/corvane/Frozen Way");
        QVERIFY(client->isCopyActive());
        client->checkProgress();
        QCOMPARE(aborted.count(), 1);
        QCOMPARE(aborted.at(0).at(0).toInt(), -1);
        for (const QString &line : m_log->messages())
            QVERIFY2(!line.contains(kPassword), qPrintable(line));
    }
};

QTEST_GUILESS_MAIN(TestWcwClient)
#include "tst_wcwclient.moc"
