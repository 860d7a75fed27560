// The unit's recording scripts and recorder, driven as the console drives them:
// real recordings of a few seconds, checked by reading and decoding the MP4.
#include "kitscripts.h"
#include "support/testunit.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QPainter>
#include <QRegularExpression>
#include <QThread>
#include <QtTest>

#include <cstdio>
#include <signal.h>

namespace {
constexpr int kFramesPerSecond = 25;
// Frames are decoded at a quarter of their size: enough for solid blocks, and fast.
constexpr int kScale = 4;
const QRect kBlock(80, 64, 240, 192);
const QColor kOrange(255, 140, 0);
const QColor kTeal(0, 128, 128);
// Start-up and the script's poll put the file's first frame up to this far before
// the moment videoRecord.sh returns.
constexpr double kStartSlack = 0.4;
constexpr unsigned long kSleepMs = 1600;
constexpr unsigned long kPauseMs = 1500;

struct MediaInfo {
    double seconds = -1;
    int width = 0;
    int height = 0;
};

bool near(QRgb pixel, const QColor &colour)
{
    return qAbs(qRed(pixel) - colour.red()) < 45 && qAbs(qGreen(pixel) - colour.green()) < 45
        && qAbs(qBlue(pixel) - colour.blue()) < 45;
}

QString describe(QRgb pixel)
{
    return QStringLiteral("(%1, %2, %3)").arg(qRed(pixel)).arg(qGreen(pixel)).arg(qBlue(pixel));
}

double seconds(const QElapsedTimer &clock)
{
    return clock.nsecsElapsed() / 1e9;
}

// Every frame of the file's span is there: nothing dropped, nothing doubled.
bool frameCountMatches(int frames, double seconds)
{
    return qAbs(frames - seconds * kFramesPerSecond) <= 2;
}
} // namespace

class TestRecorderKit : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase();
    void cleanup();
    void recordingCarriesTheOverlayInPlace();
    void pauseLeavesOneFileWithoutThePausedTime();
    void killedRecorderLeavesAPlayableFile();
    void refusesWhatItCannotDo();

private:
    QString recordingPath(const QString &name) const { return m_unit.root() + QStringLiteral("/media/") + name; }
    void startRecording(const QString &path, QElapsedTimer &clock);
    qint64 recorderPid() const;
    QByteArray recorderState() const;
    void placeOverlay(const QColor &colour);
    MediaInfo discover(const QString &path);
    QVector<QImage> decodeFrames(const QString &path);
    QRgb blockPixel(const QImage &frame) const;

    TestUnit m_unit;
};

void TestRecorderKit::initTestCase()
{
    QVERIFY(m_unit.isValid());
    QVERIFY2(QFile::exists(m_unit.path(QStringLiteral("/usr/local/bin/videorecorder"))), "recorder not in the kit");
}

void TestRecorderKit::cleanup()
{
    // Never leave a recorder running into the next case.
    const qint64 pid = recorderPid();
    if (pid > 0 && ::kill(pid, 0) == 0)
        runKitScript(m_unit, QStringLiteral("stopRecord.sh"));
}

void TestRecorderKit::startRecording(const QString &path, QElapsedTimer &clock)
{
    // As the console starts it: through sudo, which on the simulated unit is a shim on PATH.
    QProcess sudo;
    sudo.start(QStringLiteral("sudo"), {m_unit.path(QStringLiteral("/opt/hbi/bin/videoRecord.sh")), path});
    const bool finished = sudo.waitForFinished(15000);
    const int status = finished ? sudo.exitCode() : -1;
    clock.start();
    QVERIFY2(status == 0, qPrintable(m_unit.kitLog().join(QLatin1Char('\n'))));
    QVERIFY(recorderPid() > 0);
}

qint64 TestRecorderKit::recorderPid() const
{
    QFile file(m_unit.path(QStringLiteral("/run/unitkit/videorecorder.pid")));
    if (!file.open(QIODevice::ReadOnly))
        return -1;
    return file.readAll().trimmed().toLongLong();
}

QByteArray TestRecorderKit::recorderState() const
{
    QFile file(m_unit.path(QStringLiteral("/run/unitkit/videorecorder.state")));
    return file.open(QIODevice::ReadOnly) ? file.readAll().trimmed() : QByteArray();
}

// Writes the overlay the way the console does: a complete file renamed into place.
void TestRecorderKit::placeOverlay(const QColor &colour)
{
    QImage overlay(720, 576, QImage::Format_ARGB32_Premultiplied);
    overlay.fill(Qt::transparent);
    QPainter(&overlay).fillRect(kBlock, colour);
    const QString temporary = m_unit.path(QStringLiteral("/dev/shm/overlay_temporary.png"));
    QVERIFY(overlay.save(temporary));
    QCOMPARE(std::rename(QFile::encodeName(temporary).constData(),
                         QFile::encodeName(m_unit.path(QStringLiteral("/dev/shm/overlay.png"))).constData()),
             0);
}

MediaInfo TestRecorderKit::discover(const QString &path)
{
    QProcess discoverer;
    discoverer.start(QStringLiteral("gst-discoverer-1.0"), {path});
    discoverer.waitForFinished(15000);
    const QString report = QString::fromUtf8(discoverer.readAllStandardOutput());
    MediaInfo info;
    const QRegularExpressionMatch duration =
        QRegularExpression(QStringLiteral("Duration: (\\d+):(\\d+):(\\d+\\.\\d+)")).match(report);
    if (duration.hasMatch())
        info.seconds = duration.captured(1).toInt() * 3600 + duration.captured(2).toInt() * 60
            + duration.captured(3).toDouble();
    info.width = QRegularExpression(QStringLiteral("Width: (\\d+)")).match(report).captured(1).toInt();
    info.height = QRegularExpression(QStringLiteral("Height: (\\d+)")).match(report).captured(1).toInt();
    return info;
}

// Plays the file to its end and keeps every frame; an empty list means it did not play through.
QVector<QImage> TestRecorderKit::decodeFrames(const QString &path)
{
    const QString folder = TestUnit::artifactsDir(QStringLiteral("recorderkit/") + QFileInfo(path).completeBaseName());
    QDir(folder).removeRecursively();
    QDir().mkpath(folder);
    const QString pipeline = QStringLiteral(
        "filesrc location=\"%1\" ! qtdemux ! h264parse ! avdec_h264 ! videoconvert ! videoscale"
        " ! video/x-raw,width=%2,height=%3 ! pngenc ! multifilesink location=\"%4/frame%05d.png\"")
        .arg(path).arg(720 / kScale).arg(576 / kScale).arg(folder);
    QProcess player;
    player.start(QStringLiteral("/bin/sh"), {QStringLiteral("-c"), QStringLiteral("gst-launch-1.0 -q ") + pipeline});
    if (!player.waitForFinished(30000) || player.exitCode() != 0) {
        qWarning() << "playback failed:" << player.readAllStandardError();
        return {};
    }
    QVector<QImage> frames;
    for (const QString &name : QDir(folder).entryList({QStringLiteral("frame*.png")}, QDir::Files, QDir::Name))
        frames << QImage(folder + QLatin1Char('/') + name);
    return frames;
}

QRgb TestRecorderKit::blockPixel(const QImage &frame) const
{
    return frame.pixel(kBlock.center() / kScale);
}

// Timing is checked only in the direction a loaded machine cannot break: the file
// holds at least what was slept through while it recorded, and never more than the
// time that passed around it.
void TestRecorderKit::recordingCarriesTheOverlayInPlace()
{
    const QString path = recordingPath(QStringLiteral("overlay.mp4"));
    placeOverlay(kOrange);
    QElapsedTimer clock;
    startRecording(path, clock);
    QThread::msleep(kSleepMs);
    placeOverlay(kTeal);
    QThread::msleep(kSleepMs);

    QCOMPARE(runKitScript(m_unit, QStringLiteral("stopRecord.sh")), 0);
    const double elapsed = seconds(clock);
    // The file is finished when the stop script returns.
    QVERIFY(!QFile::exists(m_unit.path(QStringLiteral("/run/unitkit/videorecorder.pid"))));
    QCOMPARE(recorderState(), QByteArray("stopped"));

    const MediaInfo info = discover(path);
    QCOMPARE(info.width, 720);
    QCOMPARE(info.height, 576);
    QVERIFY2(info.seconds > 2 * kSleepMs / 1000.0 - kStartSlack && info.seconds < elapsed + kStartSlack,
             qPrintable(QStringLiteral("duration %1 s, %2 s passed").arg(info.seconds).arg(elapsed)));

    const QVector<QImage> frames = decodeFrames(path);
    QVERIFY(!frames.isEmpty());
    QVERIFY2(frameCountMatches(frames.size(), info.seconds), qPrintable(QString::number(frames.size())));

    // Orange from its first frames, then teal once it was renamed in, and never back.
    int firstOrange = -1;
    for (int i = 0; i < qMin(frames.size(), kFramesPerSecond) && firstOrange < 0; ++i)
        if (near(blockPixel(frames.at(i)), kOrange))
            firstOrange = i;
    QVERIFY2(firstOrange >= 0, qPrintable(describe(blockPixel(frames.first()))));
    int firstTeal = -1;
    for (int i = firstOrange; i < frames.size() && firstTeal < 0; ++i)
        if (!near(blockPixel(frames.at(i)), kOrange))
            firstTeal = i;
    QVERIFY(firstTeal > firstOrange);
    QVERIFY2(double(firstTeal) / kFramesPerSecond > kSleepMs / 1000.0 - kStartSlack,
             qPrintable(QStringLiteral("teal from frame %1").arg(firstTeal)));
    for (int i = firstTeal; i < frames.size(); ++i)
        QVERIFY2(near(blockPixel(frames.at(i)), kTeal), qPrintable(QStringLiteral("frame %1").arg(i)));

    // Outside the block the overlay is transparent: the moving test picture shows.
    const QImage early = frames.at(firstOrange);
    const QImage late = frames.last();
    int changed = 0;
    for (int x = 0; x < early.width(); ++x) {
        const QPoint spot(x, early.height() - 8);
        QVERIFY(!near(late.pixel(spot), kTeal) || !near(early.pixel(spot), kOrange));
        if (early.pixel(spot) != late.pixel(spot))
            ++changed;
    }
    QVERIFY2(changed > early.width() / 10, "the picture under the overlay does not move");
}

void TestRecorderKit::pauseLeavesOneFileWithoutThePausedTime()
{
    const QString path = recordingPath(QStringLiteral("paused.mp4"));
    placeOverlay(kOrange);
    QElapsedTimer clock;
    startRecording(path, clock);

    // One recording at a time: a second start is refused and the first goes on.
    const QString second = recordingPath(QStringLiteral("second.mp4"));
    QCOMPARE(runKitScript(m_unit, QStringLiteral("videoRecord.sh"), {second}), 1);
    QVERIFY(!QFile::exists(second));

    QThread::msleep(kSleepMs);
    QCOMPARE(runKitScript(m_unit, QStringLiteral("pauseRecord.sh")), 0);
    QThread::msleep(kPauseMs);
    QCOMPARE(runKitScript(m_unit, QStringLiteral("resumeRecord.sh")), 0);
    QThread::msleep(kSleepMs);
    QCOMPARE(runKitScript(m_unit, QStringLiteral("stopRecord.sh")), 0);
    const double elapsed = seconds(clock);

    // The recorder was paused at least as long as the test slept between the two
    // confirmations: the file lacks that time, and holds the time slept recording.
    const MediaInfo info = discover(path);
    QCOMPARE(info.width, 720);
    QVERIFY2(info.seconds > 2 * kSleepMs / 1000.0 - kStartSlack
                 && info.seconds < elapsed - kPauseMs / 1000.0 + kStartSlack,
             qPrintable(QStringLiteral("duration %1 s, %2 s passed").arg(info.seconds).arg(elapsed)));
    const QVector<QImage> frames = decodeFrames(path);
    QVERIFY2(frameCountMatches(frames.size(), info.seconds), qPrintable(QStringLiteral("%1 frames").arg(frames.size())));

    const QStringList log = kitLogOf(m_unit, QStringLiteral("videorecorder"));
    QVERIFY(log.contains(QStringLiteral("paused")));
    QVERIFY(log.contains(QStringLiteral("resumed")));
}

void TestRecorderKit::killedRecorderLeavesAPlayableFile()
{
    const QString path = recordingPath(QStringLiteral("killed.mp4"));
    placeOverlay(kOrange);
    QElapsedTimer clock;
    startRecording(path, clock);
    // The file's index is rewritten every second: wait until it holds two.
    QTRY_VERIFY_WITH_TIMEOUT(discover(path).seconds >= 2.0, 20000);
    const qint64 pid = recorderPid();
    QCOMPARE(::kill(pid, SIGKILL), 0);
    const double killedAt = seconds(clock);

    const MediaInfo info = discover(path);
    qInfo("killed after %.2f s; the file holds %.2f s", killedAt, info.seconds);
    QCOMPARE(info.width, 720);
    QCOMPARE(info.height, 576);
    QVERIFY(info.seconds >= 2.0);
    QVERIFY(info.seconds < killedAt + kStartSlack);
    const QVector<QImage> frames = decodeFrames(path);
    QVERIFY(frameCountMatches(frames.size(), info.seconds));
    QVERIFY(near(blockPixel(frames.last()), kOrange));

    // After the crash the scripts find nothing to stop, and a new recording starts.
    QCOMPARE(runKitScript(m_unit, QStringLiteral("stopRecord.sh")), 0);
    QVERIFY(kitLogOf(m_unit, QStringLiteral("stopRecord.sh")).contains(QStringLiteral("no recording to stop")));
    QCOMPARE(runKitScript(m_unit, QStringLiteral("videoRecord.sh"), {recordingPath(QStringLiteral("after.mp4"))}), 0);
    QCOMPARE(runKitScript(m_unit, QStringLiteral("stopRecord.sh")), 0);
    QVERIFY(discover(recordingPath(QStringLiteral("after.mp4"))).seconds > 0);
}

void TestRecorderKit::refusesWhatItCannotDo()
{
    QCOMPARE(runKitScript(m_unit, QStringLiteral("videoRecord.sh")), 1);
    QVERIFY(kitLogOf(m_unit, QStringLiteral("videoRecord.sh")).contains(QStringLiteral("no recording path given")));

    QCOMPARE(runKitScript(m_unit, QStringLiteral("videoRecord.sh"), {m_unit.root() + QStringLiteral("/missing/v.mp4")}), 1);
    QFile state(m_unit.path(QStringLiteral("/run/unitkit/videorecorder.state")));
    QVERIFY(state.open(QIODevice::ReadOnly));
    QCOMPARE(state.readAll().trimmed(), QByteArray("failed"));
    QVERIFY(kitLogOf(m_unit, QStringLiteral("videorecorder")).last().contains(QStringLiteral("ended with a fault"))
            || kitLogOf(m_unit, QStringLiteral("videoRecord.sh")).last().contains(QStringLiteral("did not start")));

    QCOMPARE(runKitScript(m_unit, QStringLiteral("pauseRecord.sh")), 1);
    QCOMPARE(runKitScript(m_unit, QStringLiteral("resumeRecord.sh")), 1);
    QVERIFY(kitLogOf(m_unit, QStringLiteral("pauseRecord.sh")).contains(QStringLiteral("no recording to pause")));
    QCOMPARE(runKitScript(m_unit, QStringLiteral("stopRecord.sh")), 0);
}

QTEST_GUILESS_MAIN(TestRecorderKit)
#include "tst_recorderkit.moc"
