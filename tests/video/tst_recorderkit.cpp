// The unit's recording scripts and recorder, driven as the console drives them:
// real recordings of a few seconds, checked by reading and decoding the MP4.
#include "kitscripts.h"
#include "support/testunit.h"

#include <QDir>
#include <QFile>
#include <QImage>
#include <QPainter>
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

bool near(QRgb pixel, const QColor &colour)
{
    return qAbs(qRed(pixel) - colour.red()) < 45 && qAbs(qGreen(pixel) - colour.green()) < 45
        && qAbs(qBlue(pixel) - colour.blue()) < 45;
}

QString describe(QRgb pixel)
{
    return QStringLiteral("(%1, %2, %3)").arg(qRed(pixel)).arg(qGreen(pixel)).arg(qBlue(pixel));
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
    void scriptsStartedTogetherKeepTheirOrder();
    void refusesWhatItCannotDo();

private:
    QString recordingPath(const QString &name) const { return m_unit.root() + QStringLiteral("/media/") + name; }
    QProcess *startRecording(const QString &path);
    static int endOf(QProcess *script);
    qint64 recorderPid() const;
    void placeOverlay(const QColor &colour);
    QVector<QImage> decoded(const QString &path) const;
    static QRgb blockPixel(const QImage &frame) { return frame.pixel(kBlock.center() / kScale); }

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

QProcess *TestRecorderKit::startRecording(const QString &path)
{
    // As the console starts it: through sudo, which on the simulated unit is a shim
    // on PATH. The script runs as long as the recording does.
    auto *script = new QProcess(this);
    script->start(QStringLiteral("sudo"), {m_unit.path(QStringLiteral("/opt/hbi/bin/videoRecord.sh")), path});
    const QString started = QStringLiteral("recording ") + path;
    const bool recording = QTest::qWaitFor(
        [&] {
            return kitLogOf(m_unit, QStringLiteral("videoRecord.sh")).filter(started).size() > 0
                || script->state() == QProcess::NotRunning;
        },
        30000);
    if (!recording || script->state() == QProcess::NotRunning) {
        qWarning().noquote() << (kitLogOf(m_unit, QStringLiteral("videorecorder"))
                                 + kitLogOf(m_unit, QStringLiteral("videoRecord.sh")))
                                    .join(QLatin1Char('\n')).right(900);
        return nullptr;
    }
    return recorderPid() > 0 ? script : nullptr;
}

// The exit code of a script started here once it has ended, or -1 if it runs on.
int TestRecorderKit::endOf(QProcess *script)
{
    if (script->state() != QProcess::NotRunning && !script->waitForFinished(20000))
        return -1;
    return script->exitStatus() == QProcess::NormalExit ? script->exitCode() : -1;
}

qint64 TestRecorderKit::recorderPid() const
{
    QFile file(m_unit.path(QStringLiteral("/run/unitkit/videorecorder.pid")));
    if (!file.open(QIODevice::ReadOnly))
        return -1;
    return file.readAll().trimmed().toLongLong();
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

QVector<QImage> TestRecorderKit::decoded(const QString &path) const
{
    return decodeFrames(path, TestUnit::artifactsDir(QStringLiteral("recorderkit/") + QFileInfo(path).completeBaseName()),
                        kScale);
}

void TestRecorderKit::recordingCarriesTheOverlayInPlace()
{
    const QString path = recordingPath(QStringLiteral("overlay.mp4"));
    placeOverlay(kOrange);
    QProcess *script = startRecording(path);
    QVERIFY(script);
    // Everything the index holds before the swap was recorded before it.
    const double beforeSwap = waitForRecorded(m_unit, path, 1.0);
    QVERIFY(beforeSwap > 0);
    placeOverlay(kTeal);
    // The index lags the recording by up to a second; two more seconds of video
    // leave the new overlay (in within 0.3 s) well inside the file.
    const double recorded = waitForRecorded(m_unit, path, beforeSwap + 2.0);
    QVERIFY(recorded > 0);

    // The record script ran for the whole recording and ends with it.
    QCOMPARE(script->state(), QProcess::Running);
    QCOMPARE(runKitScript(m_unit, QStringLiteral("stopRecord.sh")), 0);
    QCOMPARE(endOf(script), 0);
    QVERIFY(!QFile::exists(m_unit.path(QStringLiteral("/run/unitkit/videorecorder.pid"))));

    const MediaInfo info = discoverMedia(path);
    QCOMPARE(info.size, QSize(720, 576));
    QVERIFY2(info.seconds >= recorded, qPrintable(QStringLiteral("%1 s, had %2 s").arg(info.seconds).arg(recorded)));
    const QVector<QImage> frames = decoded(path);
    QVERIFY(framesFillTheDuration(frames.size(), info.seconds));

    // Halfway to the swap: the first overlay is in (within 0.3 s), the second not yet.
    const int earlyFrame = int(beforeSwap * kFramesPerSecond / 2);
    const QImage early = frames.at(earlyFrame);
    QVERIFY2(near(blockPixel(early), kOrange), qPrintable(describe(blockPixel(early))));
    int firstTeal = -1;
    for (int i = 0; i < frames.size() && firstTeal < 0; ++i)
        if (near(blockPixel(frames.at(i)), kTeal))
            firstTeal = i;
    qInfo("index held %.2f s at the swap; first new overlay in frame %d", beforeSwap, firstTeal);
    QVERIFY(firstTeal > earlyFrame);
    for (int i = firstTeal; i < frames.size(); ++i)
        QVERIFY2(near(blockPixel(frames.at(i)), kTeal), qPrintable(QStringLiteral("frame %1").arg(i)));

    // Outside the block the overlay is transparent: the moving test picture shows.
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
    QProcess *script = startRecording(path);
    QVERIFY(script);

    // One recording at a time: a second start is refused and the first goes on.
    const QString second = recordingPath(QStringLiteral("second.mp4"));
    QCOMPARE(runKitScript(m_unit, QStringLiteral("videoRecord.sh"), {second}), 1);
    QVERIFY(!QFile::exists(second));

    QVERIFY(waitForRecorded(m_unit, path, 1.0) > 0);
    QCOMPARE(runKitScript(m_unit, QStringLiteral("pauseRecord.sh")), 0);
    // The length of the pause, not a wait for anything: were the paused time kept
    // in the time stamps, the file would say it holds a second more than its frames.
    QTest::qWait(1000);
    QCOMPARE(runKitScript(m_unit, QStringLiteral("resumeRecord.sh")), 0);
    const double resumedAt = discoverMedia(path).seconds;
    const double recorded = waitForRecorded(m_unit, path, resumedAt + 1.0);
    QVERIFY(recorded > 0);
    QCOMPARE(runKitScript(m_unit, QStringLiteral("stopRecord.sh")), 0);
    QCOMPARE(endOf(script), 0);

    const MediaInfo info = discoverMedia(path);
    QCOMPARE(info.size, QSize(720, 576));
    QVERIFY(info.seconds >= recorded);
    const QVector<QImage> frames = decoded(path);
    QVERIFY2(framesFillTheDuration(frames.size(), info.seconds),
             qPrintable(QStringLiteral("%1 frames in %2 s").arg(frames.size()).arg(info.seconds)));

    const QStringList log = kitLogOf(m_unit, QStringLiteral("videorecorder"));
    QVERIFY(log.contains(QStringLiteral("paused")));
    QVERIFY(log.contains(QStringLiteral("resumed")));
}

void TestRecorderKit::killedRecorderLeavesAPlayableFile()
{
    const QString path = recordingPath(QStringLiteral("killed.mp4"));
    placeOverlay(kOrange);
    QProcess *script = startRecording(path);
    QVERIFY(script);
    const double indexed = waitForRecorded(m_unit, path, 2.0);
    QVERIFY(indexed > 0);
    QCOMPARE(::kill(pid_t(recorderPid()), SIGKILL), 0);
    // The record script ends with the fault and says so, for the console to show.
    QCOMPARE(endOf(script), 1);
    QVERIFY(QString::fromLocal8Bit(script->readAllStandardError()).contains(QStringLiteral("ended during the recording")));

    // What the index held before the kill is still there: at most its last second is lost.
    const MediaInfo info = discoverMedia(path);
    qInfo("the index held %.2f s before the kill; the file holds %.2f s", indexed, info.seconds);
    QCOMPARE(info.size, QSize(720, 576));
    QVERIFY(info.seconds >= indexed);
    const QVector<QImage> frames = decoded(path);
    QVERIFY(framesFillTheDuration(frames.size(), info.seconds));
    QVERIFY(near(blockPixel(frames.last()), kOrange));

    // After the crash the scripts find nothing to stop, and a new recording starts.
    QCOMPARE(runKitScript(m_unit, QStringLiteral("stopRecord.sh")), 0);
    QVERIFY(kitLogOf(m_unit, QStringLiteral("stopRecord.sh")).contains(QStringLiteral("no recording to stop")));
    QProcess *after = startRecording(recordingPath(QStringLiteral("after.mp4")));
    QVERIFY(after);
    // The killall shim ends a recording by its remembered PID as cleanly as the stop script.
    QCOMPARE(runProgramOnPath(QStringLiteral("killall"), {QStringLiteral("videorecorder")}), 0);
    QCOMPARE(endOf(after), 0);
    QVERIFY(discoverMedia(recordingPath(QStringLiteral("after.mp4"))).seconds > 0);
}

// The console starts these scripts together and waits on none; the recorder
// still hears them in the order they were started.
void TestRecorderKit::scriptsStartedTogetherKeepTheirOrder()
{
    // Record and at once stop: the stop finds the recorder it was meant for.
    QProcess record;
    record.start(QStringLiteral("sudo"), {m_unit.path(QStringLiteral("/opt/hbi/bin/videoRecord.sh")),
                                          recordingPath(QStringLiteral("brief.mp4"))});
    QCOMPARE(runKitScript(m_unit, QStringLiteral("stopRecord.sh"), {}, nullptr, 30000), 0);
    QVERIFY(endOf(&record) >= 0);
    QVERIFY(recorderPid() < 0 || ::kill(pid_t(recorderPid()), 0) != 0);

    // Resume and stop of a paused recording: resumed, then finished.
    QProcess *paused = startRecording(recordingPath(QStringLiteral("pausedstop.mp4")));
    QVERIFY(paused);
    QCOMPARE(runKitScript(m_unit, QStringLiteral("pauseRecord.sh")), 0);
    QProcess resume;
    QProcess stop;
    resume.start(QStringLiteral("/bin/sh"), {m_unit.path(QStringLiteral("/opt/hbi/bin/resumeRecord.sh"))});
    stop.start(QStringLiteral("/bin/sh"), {m_unit.path(QStringLiteral("/opt/hbi/bin/stopRecord.sh"))});
    QCOMPARE(endOf(&resume), 0);
    QCOMPARE(endOf(&stop), 0);
    QCOMPARE(endOf(paused), 0);
    const QStringList recorder = kitLogOf(m_unit, QStringLiteral("videorecorder"));
    const int resumedAt = recorder.lastIndexOf(QStringLiteral("resumed"));
    QVERIFY2(resumedAt >= 0 && resumedAt < recorder.lastIndexOf(QRegularExpression(QStringLiteral("finishing .*"))),
             qPrintable(recorder.join(QLatin1Char('\n'))));

    // Stop and at once record: the last recording is finished, the next one starts.
    QProcess *first = startRecording(recordingPath(QStringLiteral("first.mp4")));
    QVERIFY(first);
    stop.start(QStringLiteral("/bin/sh"), {m_unit.path(QStringLiteral("/opt/hbi/bin/stopRecord.sh"))});
    QProcess *next = startRecording(recordingPath(QStringLiteral("next.mp4")));
    QVERIFY(next);
    QCOMPARE(endOf(first), 0);
    QCOMPARE(endOf(&stop), 0);
    QCOMPARE(next->state(), QProcess::Running);
    QCOMPARE(runKitScript(m_unit, QStringLiteral("stopRecord.sh")), 0);
    QCOMPARE(endOf(next), 0);
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
