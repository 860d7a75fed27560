#include "storage/ireportscreen.h"
#include "storage/lister.h"
#include "storage/reportmanager.h"
#include "storage/storagebase.h"
#include "support/testunit.h"

#include <QtTest>

#include <sys/time.h>

// The screen as the model sees it: what it was last told.
class RecordingReportScreen : public IReportScreen
{
public:
    void setLevel(int level, int) override { shownLevel = level; }
    int level() override { return shownLevel; }
    void setReportManager(ReportManager *m) override { manager = m; }
    void setPath(QString d, QString p) override { device = d, path = p; }
    void setReportList(QStringList &l) override { rows = l; }
    void setVideo(const QString &p) override { video = p; }
    void setSnapshots(const QStringList &p) override { snapshots = p; }

    int shownLevel = -1;
    ReportManager *manager = nullptr;
    QString device, path, video;
    QStringList rows, snapshots;
};

// The media browser's model over real folders and the kit's real size scripts.
class TestReportManager : public QObject
{
    Q_OBJECT
    TestUnit m_unit;
    StorageBase *m_table = nullptr;

    static bool setModified(const QString &path, int minutesAgo)
    {
        const qint64 when = QDateTime::currentSecsSinceEpoch() - minutesAgo * 60;
        const timeval times[2] = {{time_t(when), 0}, {time_t(when), 0}};
        return ::utimes(QFile::encodeName(path).constData(), times) == 0;
    }
    bool makeDir(const QString &unitPath, int minutesAgo = 0)
    {
        const QString path = m_unit.path(unitPath);
        return QDir().mkpath(path) && setModified(path, minutesAgo);
    }
    // Down the rows of these names, each level listed in full before the next.
    static bool walk(ReportManager &manager, RecordingReportScreen &screen, const QStringList &names)
    {
        for (const QString &name : names) {
            const int row = screen.rows.indexOf(name);
            if (row < 0) {
                qWarning() << name << "is not among" << screen.rows;
                return false;
            }
            manager.hierarchyDown(row);
            if (Lister *level = manager.lister(manager.level()))
                level->waitForListing();
            QCoreApplication::processEvents();
        }
        return true;
    }
    // Free space as the target reports it: the one figure a test cannot make real.
    void pretendFreeSpace(qint64 kilobytes)
    {
        QVERIFY(m_unit.writeFile("/opt/hbi/bin/get_storage_info.sh",
                                 QStringLiteral("#!/bin/sh\necho %1\n").arg(kilobytes).toUtf8()));
    }
    qint64 measure(const QString &path)
    {
        return ReportManager::kilobytesFrom(QStringLiteral("get_directory_info.sh"), path);
    }

private slots:
    void initTestCase()
    {
        QVERIFY(m_unit.isValid());
        m_table = StorageBase::instance();
        m_table->handle_mount("USB1", m_unit.path("/media/usb1"));
        m_table->handle_mount("SD", m_unit.path("/media/sd"));
    }

    void aDeviceWithoutCorvaneListsNoSites()
    {
        QVERIFY(makeDir("/media/sd/other/Site A"));
        RecordingReportScreen screen;
        ReportManager manager(&screen);
        QCOMPARE(screen.manager, &manager);
        QCOMPARE(screen.rows, QStringList({"SD", "USB1"}));
        QVERIFY(walk(manager, screen, {"SD"}));
        QCOMPARE(manager.currentDevice(), QStringLiteral("SD"));
        QCOMPARE(screen.shownLevel, 1);
        QCOMPARE(screen.path, m_unit.path("/media/sd/corvane"));
        QCOMPARE(screen.rows, QStringList());
    }

    void sitesNewestFirstAndGoingUpFromLevelOneClearsTheRow()
    {
        QVERIFY(makeDir("/media/usb1/corvane/Old Road", 60));
        QVERIFY(makeDir("/media/usb1/corvane/New Road", 1));
        QVERIFY(makeDir("/media/usb1/corvane/Mid Road", 30));
        RecordingReportScreen screen;
        ReportManager manager(&screen);
        QVERIFY(walk(manager, screen, {"USB1"}));
        QCOMPARE(screen.rows, QStringList({"New Road", "Mid Road", "Old Road"}));
        QCOMPARE(manager.index(), 1);
        manager.hierarchyUp();
        QCOMPARE(screen.shownLevel, 0);
        QCOMPARE(manager.index(), 0);
    }

    void surveysThenExchangeFilesWhichLeadNowhere()
    {
        QVERIFY(makeDir("/media/usb1/corvane/Mill Lane/Survey 1", 20));
        QVERIFY(makeDir("/media/usb1/corvane/Mill Lane/Survey 2", 10));
        QVERIFY(m_unit.writeFile("/media/usb1/corvane/Mill Lane/Mill Lane.xml", "<x/>"));
        QVERIFY(m_unit.writeFile("/media/usb1/corvane/Mill Lane/Mill Lane.txt", "x"));
        QVERIFY(m_unit.writeFile("/media/usb1/corvane/Mill Lane/notes.doc", "not listed"));
        QVERIFY(setModified(m_unit.path("/media/usb1/corvane/Mill Lane"), 0));
        RecordingReportScreen screen;
        ReportManager manager(&screen);
        QVERIFY(walk(manager, screen, {"USB1", "Mill Lane"}));
        QCOMPARE(screen.shownLevel, 2);
        QCOMPARE(screen.rows.mid(0, 2), QStringList({"Survey 2", "Survey 1"}));
        QCOMPARE(QSet<QString>(screen.rows.begin() + 2, screen.rows.end()),
                 QSet<QString>({"Mill Lane.xml", "Mill Lane.txt"}));
        QCOMPARE(manager.lister(2)->paths().size(), 2);

        const int xmlRow = screen.rows.indexOf("Mill Lane.xml");
        manager.hierarchyDown(xmlRow);
        QCOMPARE(screen.shownLevel, 2);
        QCOMPARE(manager.level(), 2);
        QCOMPARE(manager.index(), 0);

        manager.hierarchyDown(1);
        QCOMPARE(screen.shownLevel, 3);
        QCOMPARE(manager.index(), 1);
    }

    void aSurveyShowsItsVideoAndSnapshots()
    {
        const QString section = "/media/usb1/corvane/Mill Lane/Survey 1";
        QVERIFY(m_unit.writeFile(section + "/video.mp4", "v"));
        QVERIFY(m_unit.writeFile(section + "/b.jpg", "j"));
        QVERIFY(m_unit.writeFile(section + "/a.jpg", "j"));
        QVERIFY(m_unit.writeFile(section + "/.section.sdb", "hidden"));
        RecordingReportScreen screen;
        ReportManager manager(&screen);
        QVERIFY(walk(manager, screen, {"USB1", "Mill Lane", "Survey 1"}));
        QCOMPARE(screen.shownLevel, 3);
        QTRY_COMPARE(screen.rows, QStringList({"a.jpg", "b.jpg", "video.mp4"}));
        QCOMPARE(screen.video, m_unit.path(section + "/video.mp4"));
        QCOMPARE(screen.snapshots, QStringList({m_unit.path(section + "/a.jpg"), m_unit.path(section + "/b.jpg")}));
    }

    void theDeviceListFollowsMountsAtLevelZero()
    {
        RecordingReportScreen screen;
        ReportManager manager(&screen);
        QCOMPARE(screen.rows, QStringList({"SD", "USB1"}));
        m_table->handle_unmount(m_unit.path("/media/sd"));
        QTRY_COMPARE(screen.rows, QStringList({"USB1"}));
        m_table->handle_mount("SD", m_unit.path("/media/sd"));
        QTRY_COMPARE(screen.rows, QStringList({"SD", "USB1"}));
    }

    void aRowWithNothingBehindItLeavesTheLevel()
    {
        RecordingReportScreen screen;
        ReportManager manager(&screen);
        manager.hierarchyDown(7);
        QCOMPARE(manager.level(), 0);
        QCOMPARE(screen.path, Lister::kNoPath);
    }

    void copySizeAndSpaceRules_data()
    {
        QTest::addColumn<qint64>("sizeKB");
        QTest::addColumn<qint64>("freeKB");
        QTest::addColumn<int>("result");
        QTest::newRow("the limit itself passes") << ReportManager::kCopyLimitKB << qint64(9999999999) << 0;
        QTest::newRow("one more is too large") << ReportManager::kCopyLimitKB + 1 << qint64(9999999999) << -2;
        QTest::newRow("too large even where it would not fit") << ReportManager::kCopyLimitKB + 1 << qint64(10) << -2;
        QTest::newRow("equal to the free space is refused") << qint64(5000) << qint64(5000) << -1;
        QTest::newRow("one less than the free space fits") << qint64(5000) << qint64(5001) << 0;
        QTest::newRow("unreadable free space is refused") << qint64(5000) << qint64(-1) << -1;
    }
    void copySizeAndSpaceRules()
    {
        QFETCH(qint64, sizeKB);
        QFETCH(qint64, freeKB);
        QFETCH(int, result);
        // Apparent sizes: a sparse file makes gigabytes without writing them.
        const QString source = m_unit.path("/media/usb1/corvane/Big Site");
        QVERIFY(QDir().mkpath(source));
        QFile big(source + "/video.mp4");
        QVERIFY(big.open(QIODevice::WriteOnly | QIODevice::Truncate));
        big.close();
        const qint64 folderKB = measure(source);
        QVERIFY(big.resize((sizeKB - folderKB) * 1024));
        QCOMPARE(measure(source), sizeKB);
        pretendFreeSpace(freeKB);
        if (freeKB < 0)
            QVERIFY(m_unit.writeFile("/opt/hbi/bin/get_storage_info.sh", "#!/bin/sh\nexit 1\n"));

        RecordingReportScreen screen;
        ReportManager manager(&screen);
        QSignalSpy copies(&manager, &ReportManager::copySurvey);
        QCOMPARE(manager.copyDir(source, "SD", "Big Site"), result);
        QCOMPARE(copies.size(), result == 0 ? 1 : 0);
        if (result == 0)
            QCOMPARE(copies.at(0).at(1).toString(), m_unit.path("/media/sd/corvane/Big Site"));
        QVERIFY(ReportManager::removeDir(source));
    }

    void removeDirTakesHiddenFilesAndHostileNames()
    {
        const QString site = "/media/usb1/corvane/It's \"odd\" $(touch pwned) `x`";
        QVERIFY(m_unit.writeFile(site + "/Survey 1/Section 1/video.mp4", "v"));
        QVERIFY(m_unit.writeFile(site + "/.project.sdb", "p"));
        QVERIFY(m_unit.writeFile(site + "/Survey 1/.hidden dir/x", "x"));
        QVERIFY(QFile::link(m_unit.path("/media/sd"), m_unit.path(site + "/link to sd")));
        QVERIFY(ReportManager::removeDir(m_unit.path(site)));
        QVERIFY(!QFileInfo::exists(m_unit.path(site)));
        QVERIFY(QFileInfo(m_unit.path("/media/sd")).isDir());
        QVERIFY(ReportManager::removeDir(m_unit.path("/media/usb1/corvane/never there")));
        QVERIFY(!QFileInfo::exists(m_unit.path("/media/usb1/corvane/pwned")));
        QVERIFY(!QFileInfo::exists("pwned"));
    }

    void fiveHundredSurveysArriveInFullAndInOrder()
    {
        const QString site = "/media/usb1/corvane/Long Street";
        for (int i = 0; i < 500; ++i)
            QVERIFY(makeDir(QStringLiteral("%1/Survey %2").arg(site).arg(i, 3, 10, QLatin1Char('0')), 1000 - i));
        RecordingReportScreen screen;
        ReportManager manager(&screen);
        QVERIFY(walk(manager, screen, {"USB1"}));
        manager.hierarchyDown(screen.rows.indexOf("Long Street"));
        QVERIFY(screen.rows == QStringList({"Refreshing..."}) || !screen.rows.isEmpty());
        QTRY_COMPARE_WITH_TIMEOUT(screen.rows.size(), 500, 20000);
        QCOMPARE(screen.rows.first(), QStringLiteral("Survey 499"));
        QCOMPARE(screen.rows.last(), QStringLiteral("Survey 000"));
    }
};

QTEST_MAIN(TestReportManager)
#include "tst_reportmanager.moc"
