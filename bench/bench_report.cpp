// Cost of the ostra PDF report on a made-up project of 28 sections (the largest
// that converts in one go): our filling and drawing, which hold the main thread,
// against the converter, which runs beside it. Run by hand on a unit root:
//   eval "$(unit/make-root /tmp/bench-unit build)"; build/bench/bench_report [sections] [observations]
#include "core/unitpaths.h"
#include "reports/corvaneexport.h"
#include "reports/exportpdf.h"

#include <QApplication>
#include <QDir>
#include <QElapsedTimer>
#include <QEventLoop>
#include <QImage>
#include <QPainter>
#include <QSettings>
#include <QTemporaryDir>
#include <QTextStream>
#include <QTimer>
#include <sys/time.h>

namespace {

void writeSection(const QString &project, int number, int observations)
{
    const QString dir = project + QStringLiteral("section_%1/").arg(number);
    QDir().mkpath(dir);
    QSettings section(dir + QStringLiteral(".section.sdb"), QSettings::IniFormat);
    section.setValue(QStringLiteral("Section/Start"), QStringLiteral("MH%1").arg(number));
    section.setValue(QStringLiteral("Section/End"), QStringLiteral("MH%1").arg(number + 1));
    section.setValue(QStringLiteral("Section/Direction"), QStringLiteral("(D)"));
    section.setValue(QStringLiteral("Section/Size"), QStringLiteral("150"));
    section.sync();
    QImage snap(720, 576, QImage::Format_RGB32);
    QStringList lines;
    for (int i = 1; i <= observations; ++i) {
        const QString distance = QStringLiteral("%1m").arg(i * 1.7, 0, 'f', 2);
        if (i % 3 == 1) {
            const QString file = QStringLiteral("Snap%1.jpg").arg(i, 4, 10, QLatin1Char('0'));
            snap.fill(QColor(30 + i * 10 % 200, 80, 110));
            QPainter(&snap).drawText(snap.rect(), Qt::AlignCenter, file);
            snap.save(dir + file, "JPG");
            lines << distance + QStringLiteral(", JPEG, ") + file + QStringLiteral(", (@1)");
        }
        lines << distance + QStringLiteral(", TEXT, Junction at %1 o'clock with displaced joint and roots").arg(i % 12 + 1)
                     + QStringLiteral(", (@2)");
    }
    QFile file(dir + QStringLiteral(".observations.sdb"));
    file.open(QIODevice::WriteOnly);
    file.write(lines.join(QStringLiteral("\r\n")).toUtf8());
    file.close();
    const timeval time = {1700000000 + number * 60, 0};
    const timeval both[2] = {time, time};
    ::utimes(QFile::encodeName(dir).constData(), both);
}

} // namespace

int main(int argc, char **argv)
{
    QApplication app(argc, argv);
    QTextStream out(stdout);
    if (unitRoot().isEmpty()) {
        out << "Set DUCTLINE_ROOT first: eval \"$(unit/make-root /tmp/bench-unit build)\"\n";
        return 2;
    }
    const int sections = argc > 1 ? QString::fromLocal8Bit(argv[1]).toInt() : 28;
    const int observations = argc > 2 ? QString::fromLocal8Bit(argv[2]).toInt() : 12;

    QTemporaryDir root;
    const QString project = root.path() + QStringLiteral("/bench.sur/");
    QDir().mkpath(project);
    QSettings(project + QStringLiteral(".project.sdb"), QSettings::IniFormat)
        .setValue(QStringLiteral("Project/Site Name"), QStringLiteral("Bench Road"));
    for (int i = 1; i <= sections; ++i)
        writeSection(project, i, observations);

    QElapsedTimer clock;
    clock.start();
    CorvaneExport(project, QString()).startExport();
    const double exported = clock.nsecsElapsed() / 1e6;

    exportPDF pdf;
    QList<double> stamps;
    QObject::connect(&pdf, &exportPDF::progress, [&](const QString &) { stamps << clock.nsecsElapsed() / 1e6; });
    QEventLoop loop;
    double finished = 0;
    QObject::connect(&pdf, &exportPDF::pdfresizeFinishedOstra, [&] {
        finished = clock.nsecsElapsed() / 1e6;
        loop.quit();
    });
    pdf.createPDF(project);
    const double handedOver = clock.nsecsElapsed() / 1e6;
    loop.exec();

    // The finished signal repeats every 2 s from the converter's end; that wait is not the converter's.
    const double converter = finished - exportPDF::kFinishedRepeatMs - handedOver;
    const double filling = stamps.value(1) - stamps.value(0);
    const double drawing = stamps.value(2) - stamps.value(1);
    const double ours = exported + filling + drawing;
    const double whole = ours + converter;
    out << QStringLiteral("%1 sections, %2 observations each, %3\n")
               .arg(sections)
               .arg(observations)
               .arg(QFile::exists(project + QStringLiteral("Report.pdf")) ? QStringLiteral("Report.pdf written,")
                                                                          : QStringLiteral("NO Report.pdf,"));
    out << QStringLiteral("text export   %1 ms\n").arg(exported, 0, 'f', 1);
    out << QStringLiteral("filling       %1 ms\n").arg(filling, 0, 'f', 1);
    out << QStringLiteral("drawing       %1 ms (main thread held %2 ms in all)\n")
               .arg(drawing, 0, 'f', 1)
               .arg(handedOver - exported, 0, 'f', 1);
    out << QStringLiteral("converter     %1 ms\n").arg(converter, 0, 'f', 1);
    out << QStringLiteral("whole         %1 ms, our share %2 %\n").arg(whole, 0, 'f', 1).arg(100 * ours / whole, 0, 'f', 1);
    return 0;
}
