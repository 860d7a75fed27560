#pragma once

#include "support/testunit.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QRegularExpression>
#include <QSize>
#include <QStringList>
#include <QtTest>

// Runs one of the unit's scripts the way the console does (/bin/sh <script> args)
// and returns its exit code, or -1 if it did not finish in time.
inline int runKitScript(const TestUnit &unit, const QString &name, const QStringList &args = {},
                        QByteArray *output = nullptr, int timeoutMs = 15000)
{
    QProcess script;
    script.start(QStringLiteral("/bin/sh"), QStringList{unit.path(QStringLiteral("/opt/hbi/bin/") + name)} + args);
    if (!script.waitForFinished(timeoutMs)) {
        script.kill();
        script.waitForFinished();
        return -1;
    }
    if (output)
        *output = script.readAllStandardOutput();
    return script.exitStatus() == QProcess::NormalExit ? script.exitCode() : -1;
}

// Runs a program found on PATH (one of the kit's shims) and returns its exit code.
inline int runProgramOnPath(const QString &program, const QStringList &args)
{
    QProcess process;
    process.start(program, args);
    if (!process.waitForFinished(15000)) {
        process.kill();
        process.waitForFinished();
        return -1;
    }
    return process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1;
}

// Lines of the kit log written by one program ("<date> <time> <program>[<pid>]: <text>").
inline QStringList kitLogOf(const TestUnit &unit, const QString &program)
{
    QStringList lines;
    const QString tag = QLatin1Char(' ') + program + QLatin1Char('[');
    for (const QString &line : unit.kitLog())
        if (line.contains(tag))
            lines << line.mid(line.indexOf(QStringLiteral("]: ")) + 3);
    return lines;
}

// What gst-discoverer reads from a recording: its length and picture size.
struct MediaInfo {
    double seconds = -1;
    QSize size;
};

inline MediaInfo discoverMedia(const QString &path)
{
    QProcess discoverer;
    discoverer.start(QStringLiteral("gst-discoverer-1.0"), {path});
    discoverer.waitForFinished(30000);
    const QString report = QString::fromUtf8(discoverer.readAllStandardOutput());
    MediaInfo info;
    const QRegularExpressionMatch duration =
        QRegularExpression(QStringLiteral("Duration: (\\d+):(\\d+):(\\d+\\.\\d+)")).match(report);
    if (duration.hasMatch())
        info.seconds = duration.captured(1).toInt() * 3600 + duration.captured(2).toInt() * 60
            + duration.captured(3).toDouble();
    info.size = QSize(QRegularExpression(QStringLiteral("Width: (\\d+)")).match(report).captured(1).toInt(),
                      QRegularExpression(QStringLiteral("Height: (\\d+)")).match(report).captured(1).toInt());
    return info;
}

// Waits until the recording being made at `path` holds at least `seconds`, as
// its index (rewritten every second of video) says; returns what it holds then,
// or -1 when the recorder ended or 20 s went by. The video's own time, not the
// clock's: a loaded machine only takes longer.
inline double waitForRecorded(const TestUnit &unit, const QString &path, double seconds)
{
    const auto recorderEnded = [&unit] {
        QFile state(unit.path(QStringLiteral("/run/unitkit/videorecorder.state")));
        const QByteArray now = state.open(QIODevice::ReadOnly) ? state.readAll().trimmed() : QByteArray();
        return now == "failed" || now == "stopped";
    };
    double held = -1;
    QTest::qWaitFor([&] { return (held = discoverMedia(path).seconds) >= seconds || recorderEnded(); }, 20000);
    if (held < seconds)
        qWarning().noquote() << "recorded" << held << "s of" << seconds << "s;"
                             << kitLogOf(unit, QStringLiteral("videorecorder")).join(QLatin1String(" | "));
    return held >= seconds ? held : -1;
}

// One frame for every 40 ms the file says it holds, never more (no frame twice,
// no overlap); a live recorder on a loaded machine may drop a few, never a fifth.
inline bool framesFillTheDuration(int frames, double seconds)
{
    const double expected = seconds * 25;
    return frames <= expected + 2 && frames >= expected * 0.8;
}

// Plays the file to its end and keeps every frame, scaled down by `scale`; an
// empty list means it did not play through.
inline QVector<QImage> decodeFrames(const QString &path, const QString &folder, int scale = 1)
{
    QDir(folder).removeRecursively();
    QDir().mkpath(folder);
    const QString pipeline = QStringLiteral(
        "filesrc location=\"%1\" ! qtdemux ! h264parse ! avdec_h264 ! videoconvert ! videoscale"
        " ! video/x-raw,width=%2,height=%3 ! pngenc compression-level=1 ! multifilesink location=\"%4/frame%05d.png\"")
        .arg(path).arg(720 / scale).arg(576 / scale).arg(folder);
    QProcess player;
    player.start(QStringLiteral("/bin/sh"), {QStringLiteral("-c"), QStringLiteral("gst-launch-1.0 -q ") + pipeline});
    if (!player.waitForFinished(60000) || player.exitCode() != 0) {
        qWarning() << "playback failed:" << player.readAllStandardError();
        return {};
    }
    QVector<QImage> frames;
    for (const QString &name : QDir(folder).entryList({QStringLiteral("frame*.png")}, QDir::Files, QDir::Name))
        frames << QImage(folder + QLatin1Char('/') + name);
    return frames;
}
