// Cost of one overlay capture: how long the main thread is held, and how long
// until the new picture is in place for the recorder. Run by hand:
//   build/bench/bench_overlay [captures]
#include "core/consolesettings.h"
#include "reports/flatpng.h"
#include "video/overlay.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QTemporaryDir>
#include <QTextStream>
#include <QTimer>

#include <algorithm>
#include <ctime>

namespace {

struct Figures {
    QList<double> values;
    void add(double ms) { values << ms; }
    QString summary()
    {
        std::sort(values.begin(), values.end());
        const auto at = [this](double q) { return values.at(qMin(values.size() - 1, int(q * values.size()))); };
        return QStringLiteral("median %1 ms, p95 %2 ms, p99 %3 ms, max %4 ms")
            .arg(at(0.5), 0, 'f', 2)
            .arg(at(0.95), 0, 'f', 2)
            .arg(at(0.99), 0, 'f', 2)
            .arg(values.last(), 0, 'f', 2);
    }
};

double elapsedMs(const QElapsedTimer &timer)
{
    return timer.nsecsElapsed() / 1e6;
}

// CPU time of the calling thread: what the main thread really spent, whatever else the machine runs.
double threadCpuMs()
{
    timespec now;
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &now);
    return now.tv_sec * 1e3 + now.tv_nsec / 1e6;
}

// Runs the event loop until every capture asked for is in place.
void waitUntilPublished(overlay &layer)
{
    while (layer.capturesPending() > 0) {
        QEventLoop loop;
        QObject::connect(&layer, &overlay::overlayPublished, &loop, &QEventLoop::quit);
        QTimer::singleShot(2000, &loop, &QEventLoop::quit);
        loop.exec();
    }
}

} // namespace

int main(int argc, char **argv)
{
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    // Superseded pictures are logged at debug level; the figures are what matter here.
    qputenv("QT_LOGGING_RULES", "default.debug=false");
    QTemporaryDir root;
    QDir(root.path()).mkpath(QStringLiteral("dev/shm"));
    qputenv("DUCTLINE_ROOT", root.path().toLocal8Bit());
    qputenv("XDG_CONFIG_HOME", (root.path() + QStringLiteral("/config")).toLocal8Bit());
    QApplication app(argc, argv);
    const int captures = argc > 1 ? QString::fromLocal8Bit(argv[1]).toInt() : 200;

    {
        // A busy picture: date, time and counter all burnt in.
        ConsoleSettings settings;
        for (const char *item : {"date", "time", "counter"})
            settings.setValue(QStringLiteral("Overlay/%1").arg(QLatin1String(item)), true);
        settings.setValue(QStringLiteral("Overlay/timeY"), 100);
        settings.setValue(QStringLiteral("Overlay/counterY"), 150);
    }
    overlay layer;
    layer.show();
    waitUntilPublished(layer);

    Figures mainThread;
    Figures mainThreadCpu;
    Figures inPlace;
    for (int i = 0; i < captures; ++i) {
        QElapsedTimer timer;
        timer.start();
        const double cpuBefore = threadCpuMs();
        layer.setCounter(i * 0.1);
        mainThreadCpu.add(threadCpuMs() - cpuBefore);
        mainThread.add(elapsedMs(timer));
        waitUntilPublished(layer);
        inPlace.add(elapsedMs(timer));
    }

    // Back-to-back captures, as when several overlay changes land in one tick. The
    // main thread's share counts its CPU until the newest picture is in place,
    // the capture taken for the merged requests included.
    constexpr int kBurst = 10;
    constexpr int kBursts = 20;
    Figures burstCalls;
    Figures burstMainCpu;
    Figures burstInPlace;
    for (int b = 0; b < kBursts; ++b) {
        QElapsedTimer burst;
        burst.start();
        const double cpuBefore = threadCpuMs();
        for (int i = 0; i < kBurst; ++i)
            layer.setCounter(1000 + b + i * 0.1);
        burstCalls.add(elapsedMs(burst));
        waitUntilPublished(layer);
        burstMainCpu.add(threadCpuMs() - cpuBefore);
        burstInPlace.add(elapsedMs(burst));
    }

    // What the saver thread spends on one picture, and what the general PNG writer
    // would spend on it instead.
    const QImage picture = QImage(overlay::overlayFile()).convertToFormat(QImage::Format_ARGB32_Premultiplied);
    Figures encoding;
    Figures generalEncoding;
    for (int i = 0; i < 20; ++i) {
        const double flatBefore = threadCpuMs();
        writeFlatPngWithAlpha(picture, overlay::temporaryFile());
        encoding.add(threadCpuMs() - flatBefore);
        const double generalBefore = threadCpuMs();
        picture.save(overlay::temporaryFile(), "PNG", 85);
        generalEncoding.add(threadCpuMs() - generalBefore);
    }

    QTextStream out(stdout);
    out << "overlay capture, " << captures << " captures of a 720x576 picture\n"
        << "  main thread per capture:   " << mainThread.summary() << '\n'
        << "  main thread CPU per capture: " << mainThreadCpu.summary() << '\n'
        << "  until the file is in place: " << inPlace.summary() << '\n'
        << "  burst of " << kBurst << " (" << kBursts << " bursts), the ten calls: " << burstCalls.summary() << '\n'
        << "  burst of " << kBurst << ", main-thread CPU until in place: " << burstMainCpu.summary() << '\n'
        << "  burst of " << kBurst << ", newest picture in place: " << burstInPlace.summary() << '\n'
        << "  PNG encoding CPU (saver thread's share): " << encoding.summary() << '\n'
        << "  the same with the general PNG writer:    " << generalEncoding.summary() << '\n';
    return 0;
}
