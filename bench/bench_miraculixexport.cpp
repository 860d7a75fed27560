// Cost of the WinCan exchange file, which is rewritten on the main thread after
// every recording: a made-up project of 100 sections with 200 observations each
// (defect blocks with clock, quantities, remarks and pictures, and general
// photographs), written to disk. Reports the first export (the section files not
// yet read by this process) and the median of the following ones, with the
// resident memory before and at its peak during the exports. Run by hand:
//   build/bench/bench_miraculixexport [SECTIONS] [OBSERVATIONS] [RUNS] [FOLDER]
#include "reports/miraculixexport.h"

#include <QCoreApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QFileInfo>
#include <QSettings>
#include <QTemporaryDir>
#include <QTextStream>
#include <algorithm>
#include <sys/time.h>
#include <time.h>

namespace {

const QStringList kSectionKeys = {
    "PCDStartNode",      "PCDStartDepth",   "PIDDirection",       "PCDEndNode",      "PCDEndDepth",
    "PCDPipeMaterial",   "PCDPipeDimension1", "PCDPipeShape",     "PIDPurpose",      "PIDCleaning",
    "PIDClient",         "PIDDate",         "PIDTime",            "PCDStartStreetName", "PCDCityName",
    "PCDMunicipal",      "PIDOperator",     "PIDJobID",           "PIDRemarks",      "PIDContractor",
    "PCDPipeLength",     "PIDLengthEstimated", "PCDFinalCategory", "PCDLocation",    "PIDWeather",
    "PIDTemperature",    "PCDUsage",        "PCDType",            "PCDFlowControl",  "PCDDrainArea",
    "PCDLiningMaterial", "PCDLiningType",   "PIDMethod",          "PCDConstructionYear"};

QString line(double metres, const QString &type, const QString &text, qint64 position)
{
    return QStringLiteral("%1m, %2, %3, (@%4)\r\n").arg(metres, 0, 'g', 6).arg(type, text).arg(position);
}

// Every tenth observation a general photograph, the others defect blocks, a
// third of them with a picture.
QString observations(int count)
{
    QString text;
    for (int i = 1; i <= count; ++i) {
        const double at = i * 0.37;
        const qint64 position = i * 2400;
        const QString snap = QStringLiteral("Snap%1.jpg").arg(i, 4, 10, QLatin1Char('0'));
        if (i % 10 == 0) {
            text += line(at, "JPEG", snap, 0);
            continue;
        }
        text += line(at, "CODE", "DER", position);
        if (i % 25 == 1)
            text += line(at, "CDEF", QStringLiteral("S%1").arg(i), position);
        text += line(at, "TEXT", "Settled deposits fine 10% cross-sectional area loss", position);
        if (i % 3 == 0)
            text += line(at + 0.2, "JPEG", snap, 0);
        text += line(at, "REMS", "near junction", position);
        text += line(at, "CLKT", "4", position);
        text += line(at, "CLKF", "8", position);
        text += line(at, "QANT", "10", position);
        text += line(at, "QANT", "150", position);
        text += line(at, "END", "", position);
    }
    return text;
}

void writeSection(const QString &project, int number, int count)
{
    const QString name = QStringLiteral("20261123-%1").arg(100000 + number);
    const QString dir = project + name;
    QDir().mkpath(dir);
    QSettings section(dir + QStringLiteral("/.section.wdb"), QSettings::IniFormat);
    for (const QString &key : kSectionKeys)
        section.setValue(QStringLiteral("Section/") + key, key + QStringLiteral(" value (V)"));
    section.sync();
    QFile file(dir + QStringLiteral("/.observations.wdb"));
    file.open(QIODevice::WriteOnly);
    file.write(observations(count).toUtf8());
    file.close();
    const timeval time = {1700000000 + number * 60, 0};
    const timeval both[2] = {time, time};
    ::utimes(QFile::encodeName(dir).constData(), both);
}

// Milliseconds of CPU this process has used: on a loaded machine the wall clock
// also counts other people's work.
double cpuMs()
{
    timespec now{};
    clock_gettime(CLOCK_PROCESS_CPUTIME_ID, &now);
    return now.tv_sec * 1e3 + now.tv_nsec / 1e6;
}

// kB of resident memory: "VmRSS" now, "VmHWM" the peak since the last reset.
qint64 memory(const char *field)
{
    QFile status(QStringLiteral("/proc/self/status"));
    status.open(QIODevice::ReadOnly);
    for (const QByteArray &row : status.readAll().split('\n')) {
        if (row.startsWith(field))
            return row.mid(int(qstrlen(field)) + 1).trimmed().split(' ').first().toLongLong();
    }
    return -1;
}

// Lets VmHWM measure from here on (Linux 4.0 and later).
void resetPeak()
{
    QFile refs(QStringLiteral("/proc/self/clear_refs"));
    if (refs.open(QIODevice::WriteOnly))
        refs.write("5");
}

} // namespace

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    QTextStream out(stdout);
    const int sections = argc > 1 ? QString::fromLocal8Bit(argv[1]).toInt() : 100;
    const int count = argc > 2 ? QString::fromLocal8Bit(argv[2]).toInt() : 200;
    const int runs = argc > 3 ? std::max(2, QString::fromLocal8Bit(argv[3]).toInt()) : 7;
    QTemporaryDir root(argc > 4 ? QString::fromLocal8Bit(argv[4]) + QStringLiteral("/bench-XXXXXX")
                                : QDir::tempPath() + QStringLiteral("/bench-XXXXXX"));
    // No cache script is started for each export: it would only add a shell's start.
    qputenv("DUCTLINE_ROOT", root.path().toLocal8Bit());
    qInstallMessageHandler([](QtMsgType, const QMessageLogContext &, const QString &) {});
    const QString project = root.path() + QStringLiteral("/bench.wcs/");
    QDir().mkpath(project);
    QSettings(project + QStringLiteral(".project.wdb"), QSettings::IniFormat)
        .setValue(QStringLiteral("Project/cdname"), QStringLiteral("Bench Road"));
    for (int i = 1; i <= sections; ++i)
        writeSection(project, i, count);

    const qint64 before = memory("VmRSS:");
    resetPeak();
    QList<double> times;
    QList<double> cpu;
    bool written = true;
    for (int run = 0; run < runs; ++run) {
        QElapsedTimer clock;
        clock.start();
        const double cpuAtStart = cpuMs();
        written = MiraculIXExport(project, QString()).startExport() && written;
        times << clock.nsecsElapsed() / 1e6;
        cpu << cpuMs() - cpuAtStart;
    }
    const qint64 peak = memory("VmHWM:");

    const double first = times.takeFirst();
    const double firstCpu = cpu.takeFirst();
    std::sort(times.begin(), times.end());
    std::sort(cpu.begin(), cpu.end());
    const QFileInfo file(project + QStringLiteral("Bench_Road.xml"));
    out << QStringLiteral("%1 sections x %2 observations on %3: %4 (%5 MB)\n")
               .arg(sections)
               .arg(count)
               .arg(root.path())
               .arg(written ? file.fileName() : QStringLiteral("EXPORT FAILED"))
               .arg(file.size() / 1e6, 0, 'f', 1);
    out << QStringLiteral("first export       %1 ms wall, %2 ms CPU\n").arg(first, 0, 'f', 1).arg(firstCpu, 0, 'f', 1);
    out << QStringLiteral("median of next %1  %2 ms wall (min %3, max %4), %5 ms CPU (min %6)\n")
               .arg(times.size())
               .arg(times.at(times.size() / 2), 0, 'f', 1)
               .arg(times.first(), 0, 'f', 1)
               .arg(times.last(), 0, 'f', 1)
               .arg(cpu.at(cpu.size() / 2), 0, 'f', 1)
               .arg(cpu.first(), 0, 'f', 1);
    out << QStringLiteral("resident memory    %1 MB before, peak %2 MB during the exports\n")
               .arg(before / 1024.0, 0, 'f', 1)
               .arg(peak / 1024.0, 0, 'f', 1);
    return written ? 0 : 1;
}
