// Listing a USB stick in the media browser: a site with many surveys. Measures the
// time until the first rows replace "Refreshing..." and until the whole list is
// shown, and the longest the main thread went without answering its event loop
// meanwhile (what an operator pressing keys would feel). Run by hand:
//   build/bench/bench_mediabrowser [surveys] [rounds] [folder on the stick]
// Without a folder the stick is a temporary folder on this machine's disk.
#include "storage/ireportscreen.h"
#include "storage/folderscan.h"
#include "storage/lister.h"
#include "storage/reportmanager.h"
#include "storage/storagebase.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QTextStream>
#include <QTimer>

#include <algorithm>

namespace {

class TimedScreen : public IReportScreen
{
public:
    void setLevel(int level, int) override { m_level = level; }
    int level() override { return m_level; }
    void setReportManager(ReportManager *) override {}
    void setPath(QString, QString) override {}
    void setReportList(QStringList &list) override
    {
        const bool real = !(list.size() == 1 && list.first() == ReportManager::kRefreshing);
        if (real && !list.isEmpty() && firstRowsMs < 0)
            firstRowsMs = clock.nsecsElapsed() / 1e6;
        rows = list.size();
    }
    void setVideo(const QString &) override {}
    void setSnapshots(const QStringList &) override {}

    QElapsedTimer clock;
    double firstRowsMs = -1;
    int rows = 0;

private:
    int m_level = 0;
};

void makeSite(const QString &site, int surveys)
{
    for (int i = 0; i < surveys; ++i) {
        const QString section = QStringLiteral("%1/section_%2").arg(site).arg(i + 1);
        QDir().mkpath(section);
        for (const char *name : {"video.mp4", "snapshot_1.jpg", ".section.sdb", ".observations"}) {
            QFile file(section + QLatin1Char('/') + QLatin1String(name));
            file.open(QIODevice::WriteOnly);
            file.write("x");
        }
    }
    QFile exchange(site + "/site.xml");
    exchange.open(QIODevice::WriteOnly);
}

QString summary(QList<double> values)
{
    std::sort(values.begin(), values.end());
    return QStringLiteral("median %1 ms, max %2 ms").arg(values.at(values.size() / 2), 0, 'f', 1).arg(values.last(), 0, 'f', 1);
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    const int surveys = argc > 1 ? QString(argv[1]).toInt() : 500;
    const int rounds = argc > 2 ? QString(argv[2]).toInt() : 10;
    QTemporaryDir temporary;
    const QString stick = argc > 3 ? QString(argv[3]) : temporary.path();
    const QString site = stick + "/corvane/Long Street.sur";
    makeSite(site, surveys);
    StorageBase::instance()->handle_mount("USB1", stick);

    {
        QElapsedTimer scanClock;
        scanClock.start();
        const int found = FolderScan::entries(site, FolderScan::kFolders, FolderScan::kNewestFirst).size();
        QTextStream(stdout) << "  scan alone: " << found << " folders in " << scanClock.nsecsElapsed() / 1e6 << " ms\n";
    }
    QList<double> firstRows, fullList, longestGap;
    for (int round = 0; round < rounds; ++round) {
        TimedScreen screen;
        ReportManager manager(&screen);
        manager.hierarchyDown(0);
        manager.lister(1)->waitForListing();
        QCoreApplication::processEvents();

        // A 5 ms heartbeat on the main thread: its longest gap is the worst wait a key would see.
        QElapsedTimer sinceBeat;
        double gap = 0;
        QTimer beat;
        QObject::connect(&beat, &QTimer::timeout, [&]() {
            gap = qMax(gap, sinceBeat.nsecsElapsed() / 1e6);
            sinceBeat.restart();
        });
        beat.start(5);
        sinceBeat.start();
        screen.clock.start();
        manager.hierarchyDown(0);
        while (screen.rows < surveys + 1)
            QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents, 5);
        fullList << screen.clock.nsecsElapsed() / 1e6;
        firstRows << screen.firstRowsMs;
        longestGap << gap;
    }
    QTextStream out(stdout);
    out << "Site with " << surveys << " surveys on " << stick << ", " << rounds << " rounds\n"
        << "  first rows shown: " << summary(firstRows) << "\n"
        << "  full list shown:  " << summary(fullList) << "\n"
        << "  longest main-thread gap while listing: " << summary(longestGap) << "\n";
    return 0;
}
