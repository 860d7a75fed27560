// A recording made through the main screen on the simulated unit: the file the
// kit's recorder leaves is read back and its frames carry the text that was on
// the screen while they were recorded.
#include "core/consolesettings.h"
#include "kitscripts.h"
#include "support/testunit.h"
#include "survey/surveymanager.h"
#include "video/overlay.h"
#include "video/video.h"
#include "video/videoscripts.h"

#include <QDir>
#include <QElapsedTimer>
#include <QRegularExpression>
#include <QtTest>

namespace {
constexpr int kFramesPerSecond = 25;
constexpr double kTimingSlack = 0.5;

int luma(QRgb pixel)
{
    return (299 * qRed(pixel) + 587 * qGreen(pixel) + 114 * qBlue(pixel)) / 1000;
}
} // namespace

class TestVideoRecording : public QObject
{
    Q_OBJECT
    TestUnit m_unit;
    Video *m_video = nullptr;

    double discoverSeconds(const QString &path, QSize *size);
    QVector<QImage> decodeFrames(const QString &path);
    void waitForKitLine(const QString &program, const QString &start, int count);

private slots:
    void initTestCase();
    void recordingCarriesTheSurveyText();
};

void TestVideoRecording::initTestCase()
{
    QVERIFY(m_unit.isValid());
    m_video = new Video;
    m_video->resize(800, 600);
    SurveyManager::instance(m_video);
}

double TestVideoRecording::discoverSeconds(const QString &path, QSize *size)
{
    QProcess discoverer;
    discoverer.start(QStringLiteral("gst-discoverer-1.0"), {path});
    discoverer.waitForFinished(15000);
    const QString report = QString::fromUtf8(discoverer.readAllStandardOutput());
    size->setWidth(QRegularExpression(QStringLiteral("Width: (\\d+)")).match(report).captured(1).toInt());
    size->setHeight(QRegularExpression(QStringLiteral("Height: (\\d+)")).match(report).captured(1).toInt());
    const QRegularExpressionMatch duration =
        QRegularExpression(QStringLiteral("Duration: (\\d+):(\\d+):(\\d+\\.\\d+)")).match(report);
    if (!duration.hasMatch())
        return -1;
    return duration.captured(1).toInt() * 3600 + duration.captured(2).toInt() * 60 + duration.captured(3).toDouble();
}

QVector<QImage> TestVideoRecording::decodeFrames(const QString &path)
{
    const QString folder = TestUnit::artifactsDir(QStringLiteral("videorecording/frames"));
    QDir(folder).removeRecursively();
    QDir().mkpath(folder);
    QProcess player;
    player.start(QStringLiteral("gst-launch-1.0"),
                 {QStringLiteral("-q"), QStringLiteral("filesrc"), QStringLiteral("location=") + path,
                  QStringLiteral("!"), QStringLiteral("qtdemux"), QStringLiteral("!"), QStringLiteral("h264parse"),
                  QStringLiteral("!"), QStringLiteral("avdec_h264"), QStringLiteral("!"), QStringLiteral("videoconvert"),
                  QStringLiteral("!"), QStringLiteral("pngenc"), QStringLiteral("!"), QStringLiteral("multifilesink"),
                  QStringLiteral("location=") + folder + QStringLiteral("/frame%05d.png")});
    if (!player.waitForFinished(60000) || player.exitCode() != 0)
        return {};
    QVector<QImage> frames;
    for (const QString &name : QDir(folder).entryList({QStringLiteral("frame*.png")}, QDir::Files, QDir::Name))
        frames << QImage(folder + QLatin1Char('/') + name);
    return frames;
}

void TestVideoRecording::waitForKitLine(const QString &program, const QString &start, int count)
{
    QTRY_VERIFY_WITH_TIMEOUT(
        [&] {
            int found = 0;
            for (const QString &line : kitLogOf(m_unit, program))
                found += line.startsWith(start);
            return found >= count;
        }(),
        20000);
}

void TestVideoRecording::recordingCarriesTheSurveyText()
{
    ConsoleSettings settings;
    for (const char *key : {"SiteName", "SiteAddress", "Operator", "Client", "Reason", "Direction", "Material"})
        settings.setValue(QStringLiteral("SurveyData/") + QLatin1String(key), QStringLiteral("WWWWWWWWWWWWWWWW"));
    // Long enough never to run out here: the test takes the text away itself.
    settings.setValue(QStringLiteral("Timings/Header"), 60);
    settings.sync();

    const QString path = m_unit.root() + QStringLiteral("/media/section.mp4");
    SurveyManager::instance()->setStatus(SurveyManager::Recording);
    m_video->clearHeader();
    QTRY_COMPARE(m_video->overlayWidget()->capturesPending(), 0);
    m_video->record(path);
    waitForKitLine(QStringLiteral("videoRecord.sh"), QStringLiteral("recording "), 1);
    QElapsedTimer clock;
    clock.start();

    QTest::qWait(1000);
    m_video->createNewSurveyText();
    QTRY_COMPARE(m_video->overlayWidget()->capturesPending(), 0);
    const double shownAt = clock.nsecsElapsed() / 1e9;
    const QImage header(m_unit.path(QStringLiteral("/dev/shm/overlay.png")));
    QTest::qWait(1500);
    m_video->clearHeader();
    QTRY_COMPARE(m_video->overlayWidget()->capturesPending(), 0);
    const double clearedAt = clock.nsecsElapsed() / 1e9;
    QTest::qWait(1500);

    const double stoppedAt = clock.nsecsElapsed() / 1e9;
    m_video->stop();
    waitForKitLine(QStringLiteral("stopRecord.sh"), QStringLiteral("recording stopped"), 1);
    QTRY_VERIFY_WITH_TIMEOUT(SurveyManager::instance()->status() == SurveyManager::Idle, 3000);

    QSize size;
    const double seconds = discoverSeconds(path, &size);
    QCOMPARE(size, QSize(720, 576));
    QVERIFY2(qAbs(seconds - stoppedAt) < kTimingSlack,
             qPrintable(QStringLiteral("duration %1 s, stopped after %2 s").arg(seconds).arg(stoppedAt)));

    // The text pixels of the header: black strokes the recording must show dark.
    QVector<QPoint> strokes;
    for (int y = 0; y < header.height(); ++y)
        for (int x = 0; x < header.width(); ++x)
            if (qAlpha(header.pixel(x, y)) == 255 && luma(header.pixel(x, y)) < 30)
                strokes << QPoint(x, y);
    QVERIFY2(strokes.size() > 500, qPrintable(QString::number(strokes.size())));

    const QVector<QImage> frames = decodeFrames(path);
    QVERIFY(qAbs(frames.size() - seconds * kFramesPerSecond) <= 2);
    auto darkShare = [&](double at) {
        const QImage &frame = frames.at(qBound(0, int(at * kFramesPerSecond), frames.size() - 1));
        int dark = 0;
        for (const QPoint &point : strokes)
            dark += luma(frame.pixel(point)) < 70;
        return double(dark) / strokes.size();
    };
    const double before = darkShare(shownAt - 0.6);
    const double during = darkShare((shownAt + clearedAt) / 2);
    const double after = darkShare(clearedAt + 0.8);
    qInfo("dark share of the text strokes: before %.2f, during %.2f, after %.2f", before, during, after);
    QVERIFY(during > 0.8);
    QVERIFY(before < 0.4);
    QVERIFY(after < 0.4);
}

QTEST_MAIN(TestVideoRecording)
#include "tst_videorecording.moc"
