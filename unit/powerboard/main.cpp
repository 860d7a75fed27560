// powerboard-sim: the simulated unit's power board. See usage() below.
#include "boardmodel.h"
#include "simulator.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QSocketNotifier>

#include <csignal>
#include <unistd.h>

namespace {
int g_signalPipe[2] = {-1, -1};

void onSignal(int)
{
    const char byte = 1;
    const ssize_t written = ::write(g_signalPipe[1], &byte, 1);
    (void)written;
}

QString underRoot(const QString &root, const QString &path)
{
    return root.isEmpty() ? path : root + path;
}
}

int main(int argc, char **argv)
{
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("powerboard-sim"));

    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Simulated power board on a pseudo-terminal linked at <root>/dev/ttyAMA1.\n"
        "Commands (scenario file lines, or lines written to the control FIFO):\n"
        "  set KEY VALUE...   change what the board says: any keyword (BFG:VOLT 12000,\n"
        "                     CAM:PRESSURE 150 210, LOG:OT <hex>, *ID HBI-PB 2.3), or\n"
        "                     board new|old, camera new|old|none, coiler new|old, passcode CODE\n"
        "  report             send BFG:STAT, BFG:VOLT and BFG:CURR now\n"
        "  drain MV MS        lower the battery by MV every MS and report (drain 0 0 stops)\n"
        "  shutdown           send SHD 1\n"
        "  ambient [N]        send AMB N\n"
        "  counter N          send QER N\n"
        "  send LINE          send LINE as it stands\n"
        "  late KEY MS | lose KEY [N] | wrong KEY OTHER | clear\n"
        "                     answer KEY (e.g. CAM:PRESSURE) late, not at all, or as OTHER\n"
        "  wait MS            (scenario only) pause before the next line\n"
        "  quit"));
    parser.addHelpOption();
    const QCommandLineOption rootOption("root", "Simulated unit root (default $DUCTLINE_ROOT).", "dir");
    const QCommandLineOption linkOption("link", "Where to link the terminal (default <root>/dev/ttyAMA1).", "path");
    const QCommandLineOption controlOption(
        "control", "Command FIFO (default <root>/run/unitkit/powerboard.ctl; \"none\" for no channel).", "path");
    const QCommandLineOption scenarioOption("scenario", "Scenario file to play.", "file");
    const QCommandLineOption logOption("log", "Log file (default <root>/opt/hbi/log/powerboard-sim.log).", "file");
    const QCommandLineOption boardOption("board", "Power board type: new (2.3) or old (1.9).", "type", "new");
    const QCommandLineOption cameraOption("camera", "Camera: new, old or none.", "type", "new");
    const QCommandLineOption coilerOption("coiler", "Coiler: new or old.", "type", "new");
    const QCommandLineOption reportOption("report-ms", "Battery report period, 0 for none.", "ms", "5000");
    const QCommandLineOption ambientOption("ambient-ms", "Ambient light report period, 0 for none.", "ms", "0");
    const QCommandLineOption lfOption("lf", "End lines with LF only (default CR LF).");
    parser.addOptions({rootOption, linkOption, controlOption, scenarioOption, logOption, boardOption, cameraOption,
                       coilerOption, reportOption, ambientOption, lfOption});
    parser.process(app);

    QString root = parser.isSet(rootOption) ? parser.value(rootOption) : QString::fromLocal8Bit(qgetenv("DUCTLINE_ROOT"));
    while (root.endsWith('/'))
        root.chop(1);

    Simulator::Options options;
    options.link = parser.isSet(linkOption) ? parser.value(linkOption) : underRoot(root, "/dev/ttyAMA1");
    options.control = parser.isSet(controlOption) ? parser.value(controlOption)
                                                  : underRoot(root, "/run/unitkit/powerboard.ctl");
    if (options.control == "none")
        options.control.clear();
    options.scenario = parser.value(scenarioOption);
    options.log = parser.isSet(logOption) ? parser.value(logOption) : underRoot(root, "/opt/hbi/log/powerboard-sim.log");
    options.reportMs = parser.value(reportOption).toInt();
    options.ambientMs = parser.value(ambientOption).toInt();
    options.lfOnly = parser.isSet(lfOption);
    if (root.isEmpty() && !parser.isSet(linkOption)) {
        // Never take over the real unit's device by accident.
        fprintf(stderr, "powerboard-sim: give --root, --link or DUCTLINE_ROOT\n");
        return 2;
    }

    BoardModel board;
    board.set("board", parser.value(boardOption));
    board.set("coiler", parser.value(coilerOption));
    board.set("camera", parser.value(cameraOption));

    Simulator simulator(options, &board);
    if (!simulator.start())
        return 1;

    if (pipe(g_signalPipe) == 0) {
        auto *notifier = new QSocketNotifier(g_signalPipe[0], QSocketNotifier::Read, &app);
        QObject::connect(notifier, &QSocketNotifier::activated, &app, &QCoreApplication::quit);
        std::signal(SIGTERM, onSignal);
        std::signal(SIGINT, onSignal);
    }
    return app.exec();
}
