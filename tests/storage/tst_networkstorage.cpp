#include "core/processcontroller.h"
#include "storage/cloudconfig.h"
#include "storage/cloudindex.h"
#include "storage/ftpclient.h"
#include "storage/networkstorage.h"
#include "storage/storagebase.h"
#include "support/logcapture.h"
#include "support/testunit.h"
#include "support/unitftpsite.h"

#include <QtTest>
#include <csignal>

namespace {
const QString kUser = QStringLiteral("surveyor");
const QString kPassword = QStringLiteral("Gully-Pot#7731");
} // namespace

// The FTP cloud site against a real FTP server on 127.0.0.1, driven through the
// unit kit's FTP scripts and the script queue as on the unit.
class TestNetworkStorage : public QObject
{
    Q_OBJECT
    TestUnit m_unit;
    // Made when the test runs: QtTest installs its own message handler first.
    std::unique_ptr<LogCapture> m_log;
    UnitFtpSite m_site{m_unit, kUser, kPassword};
    NetworkStorage *m_cloud = nullptr;

    static QMap<QString, QByteArray> tree(const QString &folder)
    {
        QMap<QString, QByteArray> found;
        QDirIterator it(folder, QDir::Files | QDir::Hidden | QDir::Dirs | QDir::NoDotAndDotDot,
                        QDirIterator::Subdirectories);
        while (it.hasNext()) {
            it.next();
            QFile file(it.filePath());
            found.insert(it.filePath().mid(folder.size()),
                         it.fileInfo().isDir() ? QByteArray("<dir>") : (file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray("?")));
        }
        return found;
    }
    static QByteArray noise(int size, quint32 seed)
    {
        QByteArray bytes(size, Qt::Uninitialized);
        QRandomGenerator random(seed);
        for (char &byte : bytes)
            byte = char(random.bounded(256));
        return bytes;
    }
    // A Corvane site with two surveys on the internal storage.
    QString makeSite(const QString &name)
    {
        const QString site = "/media/internal/corvane/" + name;
        m_unit.writeFile(site + "/.project.sdb", "Project=" + name.toUtf8() + "\n");
        m_unit.writeFile(site + "/Survey 1/section_1/video.mp4", noise(300000, 1));
        m_unit.writeFile(site + "/Survey 1/section_1/snap 1.jpg", noise(4096, 2));
        m_unit.writeFile(site + "/Survey 1/" + name + ".txt", "summary\r\n");
        m_unit.writeFile(site + "/Survey 2/section_1/.observations", "1,0.00,Start\n");
        return m_unit.path(site);
    }
    bool scan(const QString &password)
    {
        QSignalSpy finished(m_cloud, &NetworkStorage::scanfinished);
        QSignalSpy success(m_cloud, &NetworkStorage::success);
        m_cloud->networkScan(m_site.address(), kUser, password);
        return finished.wait(30000) && success.count() == 1;
    }
    QString cloudRoot() const { return StorageBase::instance()->getPath(StorageBase::kStorageCLOUD); }

private slots:
    void initTestCase()
    {
        qRegisterMetaType<QProcess::ExitStatus>();
        m_log.reset(new LogCapture);
        QVERIFY(m_unit.isValid());
        QVERIFY(m_site.start());
        QDir().mkpath(m_site.home() + "/corvane/Riverside/Survey A");
        QDir().mkpath(m_site.home() + "/corvane/Mill Lane");
        m_cloud = NetworkStorage::instance();
    }

    void scanMountsCloudAndIndexesTheSite()
    {
        QVERIFY(scan(kPassword));
        QCOMPARE(cloudRoot(), m_site.address());
        QVERIFY(StorageBase::instance()->devices(false).contains("Cloud"));
        QStringList indexed = m_cloud->indexedPaths();
        indexed.sort();
        QCOMPARE(indexed, QStringList({"Mill Lane", "Riverside", "Riverside/Survey A"}));
        CloudConfig saved;
        QVERIFY(saved.read());
        QCOMPARE(saved.host, m_site.address());
        QCOMPARE(saved.username, kUser);
        QCOMPARE(saved.password, kPassword);
        QFile log(m_unit.path("/opt/hbi/hwlogs/wireless.log"));
        QVERIFY(log.open(QIODevice::ReadOnly));
        const QList<QByteArray> lines = log.readAll().split('\n');
        QVERIFY(lines.size() >= 2);
        QVERIFY2(lines.at(lines.size() - 2).endsWith(",1," + m_site.address().toUtf8() + "," + kUser.toUtf8()
                                                      + ",4,Cloud Connection Success - Full Wifi Signal"),
                 lines.at(lines.size() - 2));
    }

    void wrongPasswordFailsAndUnmounts()
    {
        QVERIFY(scan(kPassword));
        QSignalSpy failure(m_cloud, &NetworkStorage::failure);
        QVERIFY(!scan(QStringLiteral("not-the-password")));
        QCOMPARE(failure.count(), 1);
        QVERIFY(cloudRoot().isEmpty());
        QVERIFY(!StorageBase::instance()->devices(false).contains("Cloud"));
    }

    // Before the Wi-Fi link reports, the routing table says whether the unit has
    // joined a network, as it is when the scan starts.
    void routeTableStandsForWifiUntilTheLinkReports()
    {
        const QByteArray header = "Iface\tDestination\tGateway\tFlags\tRefCnt\tUse\tMetric\tMask\tMTU\tWindow\tIRTT\n";
        QVERIFY(m_unit.writeFile("/proc/net/route", header + "eth0\t00000000\t0100007F\t0003\t0\t0\t600\t00000000\t0\t0\t0\n"));
        m_log->clear();
        m_cloud->autoScan();
        QVERIFY(m_log->contains("Can't scan without WiFi!"));
        QVERIFY(!ProcessController::instance()->isRunning());
        QVERIFY(m_unit.writeFile("/proc/net/route", header + "wlan0\t00000000\t0100007F\t0003\t0\t0\t600\t00000000\t0\t0\t0\n"));
        QVERIFY(scan(kPassword));
        QCOMPARE(cloudRoot(), m_site.address());
    }

    void noWifiNoScan()
    {
        m_cloud->setWifiState(1);
        QSignalSpy finished(m_cloud, &NetworkStorage::scanfinished);
        m_cloud->networkScan(m_site.address(), kUser, kPassword);
        m_cloud->setWifiState(4);
        QVERIFY(m_log->contains("Can't scan without WiFi!"));
        QCOMPARE(finished.count(), 0);
        QCOMPARE(ProcessController::instance()->isRunning(), false);
    }

    void filterPath_data()
    {
        QTest::addColumn<QString>("path");
        QTest::addColumn<QString>("below");
        QTest::addColumn<QString>("above");
        QTest::newRow("site") << "10.0.0.5/corvane/Riverside" << "Riverside" << "10.0.0.5";
        QTest::newRow("survey") << "host:2121/corvane/Riverside/Survey A" << "Riverside/Survey A" << "host:2121";
        QTest::newRow("no project folder") << "host/projects/Riverside" << "" << "";
        QTest::newRow("word inside a name") << "host/corvanes/Riverside" << "" << "";
        QTest::newRow("nothing below") << "host/corvane/" << "" << "host";
        QTest::newRow("padded folder") << "host/ corvane /Site" << "Site" << "host";
    }
    void filterPath()
    {
        QFETCH(QString, path);
        QFETCH(QString, below);
        QFETCH(QString, above);
        QCOMPARE(NetworkStorage::filterPath(path, true), below);
        QCOMPARE(NetworkStorage::filterPath(path, false), above);
    }

    void indexRejectsPathsWithoutProjectFolderAndDuplicates()
    {
        CloudIndex index;
        QVERIFY(index.reset());
        QVERIFY(index.add("host/corvane/Riverside", 1));
        QVERIFY(!index.add("host/corvane/Riverside", 1));
        QVERIFY(!index.add("host/elsewhere/Riverside", 1));
        QVERIFY(index.add("host/corvane/Riverside/Survey, 2", 2));
        QFile file(CloudIndex::fileName());
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), QByteArray("Riverside,1\nRiverside/Survey, 2,2\n"));
        CloudIndex reread;
        QVERIFY(reread.read());
        QCOMPARE(reread.paths(), QStringList({"Riverside", "Riverside/Survey, 2"}));
    }

    void surveyUploadsAndDownloadsByteForByte()
    {
        QVERIFY(scan(kPassword));
        const QString local = makeSite("Ash Grove");
        const QString remote = cloudRoot() + "/corvane/Ash Grove";
        QVERIFY(m_cloud->isCloudPath(remote));
        QVERIFY(!m_cloud->isCloudPath(local));

        QSignalSpy done(m_cloud, &NetworkStorage::copyDone);
        QSignalSpy aborted(m_cloud, &NetworkStorage::copyAborted);
        m_cloud->uploadFiles(local, remote);
        QVERIFY(done.wait(30000));
        QCOMPARE(aborted.count(), 0);
        QCOMPARE(done.at(0).at(0).toInt(), NetworkStorage::kCopyDoneCode);
        QCOMPARE(tree(m_site.home() + "/corvane/Ash Grove"), tree(local));
        QVERIFY(m_cloud->indexedPaths().contains("Ash Grove"));
        QVERIFY(m_cloud->indexedPaths().contains("Ash Grove/Survey 2"));

        const QString back = m_unit.path("/media/usb1/corvane/Ash Grove");
        m_cloud->downloadFiles(remote, back);
        QVERIFY(done.wait(30000));
        QCOMPARE(aborted.count(), 0);
        QCOMPARE(tree(back), tree(local));
    }

    void stalledTransferIsAbortedAtTheTick()
    {
        QVERIFY(scan(kPassword));
        FTPClient *ftp = FTPClient::instance();
        ftp->setCredentials(kUser, kPassword);
        ftp->clearFiles();
        ftp->addFile("video.mp4");
        QDir().mkpath(m_site.home() + "/corvane/Stall");
        QFile served(m_site.home() + "/corvane/Stall/video.mp4");
        QVERIFY(served.open(QIODevice::WriteOnly));
        served.write(noise(100000, 3));
        served.close();
        QVERIFY(m_site.signal(SIGSTOP));
        QSignalSpy quit(ftp, &FTPClient::quitclicked);
        const QString into = m_unit.path("/media/usb1/stall");
        QDir().mkpath(into);
        ftp->startDownload(cloudRoot() + "/corvane/Stall", into);
        QVERIFY(ftp->isStallTimerRunning());
        ftp->checkProgress();
        QTRY_COMPARE_WITH_TIMEOUT(quit.count(), 1, 20000);
        QVERIFY(!ftp->isActive());
        QVERIFY(!ftp->isStallTimerRunning());
        QVERIFY(!QFile::exists(into + "/video.mp4"));
        QVERIFY(m_site.signal(SIGCONT));
    }

    void serverGoneMidUploadLeavesTheLocalSurveyIntact()
    {
        QVERIFY(scan(kPassword));
        const QString local = makeSite("Brook Street");
        const QMap<QString, QByteArray> before = tree(local);
        QSignalSpy aborted(m_cloud, &NetworkStorage::copyAborted);
        // The server goes the moment the last folder is made and the files start.
        bool killed = false;
        QMetaObject::Connection killer = connect(
            ProcessController::instance(), &ProcessController::outputWithArgs, this,
            [this, &killed](const QString &, const QString &, const QStringList &) {
                if (FTPClient::instance()->isActive() && !killed)
                    killed = m_site.signal(SIGKILL);
            });
        m_cloud->uploadFiles(local, cloudRoot() + "/corvane/Brook Street");
        QTRY_VERIFY_WITH_TIMEOUT(killed, 30000);
        // The network layer need not notice a site that stopped answering; the
        // stall timer's ticks end the copy then.
        FTPClient::instance()->checkProgress();
        FTPClient::instance()->checkProgress();
        QVERIFY(aborted.count() == 1 || aborted.wait(30000));
        disconnect(killer);
        QCOMPARE(aborted.at(0).at(0).toInt(), -1);
        QCOMPARE(tree(local), before);
        m_site.stop();
        QVERIFY(m_site.start());
    }

    void cancelWhilePreparingEndsTheCopy()
    {
        QVERIFY(scan(kPassword));
        const QString local = makeSite("Cancel Row");
        QSignalSpy aborted(m_cloud, &NetworkStorage::copyAborted);
        QSignalSpy done(m_cloud, &NetworkStorage::copyDone);
        m_cloud->uploadFiles(local, cloudRoot() + "/corvane/Cancel Row");
        m_cloud->cancelCopy();
        QVERIFY(aborted.wait(30000));
        QCOMPARE(done.count(), 0);
        QVERIFY(!QFile::exists(m_site.home() + "/corvane/Cancel Row/Survey 1/section_1/video.mp4"));
    }

    void passwordNeverLogged()
    {
        const QStringList logs = {"/opt/hbi/log/unitkit.log", "/opt/hbi/log/unitftp.log", "/opt/hbi/hwlogs/wireless.log"};
        for (const QString &name : logs) {
            QFile file(m_unit.path(name));
            if (file.open(QIODevice::ReadOnly))
                QVERIFY2(!file.readAll().contains(kPassword.toUtf8()), qPrintable(name));
        }
        for (const QString &line : m_log->messages())
            QVERIFY2(!line.contains(kPassword), qPrintable(line));
        QVERIFY(!m_log->messages().isEmpty());
    }
};

QTEST_GUILESS_MAIN(TestNetworkStorage)
#include "tst_networkstorage.moc"
