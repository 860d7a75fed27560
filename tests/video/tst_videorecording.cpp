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
#include <QRegularExpression>
#include <QtTest>

namespace {
constexpr int kFramesPerSecond = 25;

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

    void waitForKitLine(const QString &program, const QString &start);

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

void TestVideoRecording::waitForKitLine(const QString &program, const QString &start)
{
    const auto logged = [&] {
        for (const QString &line : kitLogOf(m_unit, program))
            if (line.startsWith(start))
                return true;
        return false;
    };
    QTRY_VERIFY_WITH_TIMEOUT(logged(), 30000);
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
    waitForKitLine(QStringLiteral("videoRecord.sh"), QStringLiteral("recording "));

    // Each stretch lasts two seconds of the video's own time beyond what the
    // index (a second behind at most) held when it began.
    QVERIFY(waitForRecorded(m_unit, path, 1.0) > 0);
    m_video->createNewSurveyText();
    QTRY_COMPARE(m_video->overlayWidget()->capturesPending(), 0);
    const QImage header(m_unit.path(QStringLiteral("/dev/shm/overlay.png")));
    QVERIFY(waitForRecorded(m_unit, path, discoverMedia(path).seconds + 2.0) > 0);
    m_video->clearHeader();
    QTRY_COMPARE(m_video->overlayWidget()->capturesPending(), 0);
    const double recorded = waitForRecorded(m_unit, path, discoverMedia(path).seconds + 2.0);
    QVERIFY(recorded > 0);

    m_video->stop();
    waitForKitLine(QStringLiteral("stopRecord.sh"), QStringLiteral("recording stopped"));
    QTRY_VERIFY_WITH_TIMEOUT(SurveyManager::instance()->status() == SurveyManager::Idle, 10000);

    const MediaInfo info = discoverMedia(path);
    QCOMPARE(info.size, QSize(720, 576));
    QVERIFY(info.seconds >= recorded);

    // The text pixels of the header: black strokes the recording must show dark.
    QVector<QPoint> strokes;
    for (int y = 0; y < header.height(); ++y)
        for (int x = 0; x < header.width(); ++x)
            if (qAlpha(header.pixel(x, y)) == 255 && luma(header.pixel(x, y)) < 30)
                strokes << QPoint(x, y);
    QVERIFY2(strokes.size() > 500, qPrintable(QString::number(strokes.size())));

    const QVector<QImage> frames = decodeFrames(path, TestUnit::artifactsDir(QStringLiteral("videorecording/frames")));
    QVERIFY(framesFillTheDuration(frames.size(), info.seconds));
    // Frame by frame: without the text, with it, without it again, one stretch each.
    // Frames before the picture comes up are black all over and say nothing.
    const auto pictureIsUp = [](const QImage &frame) {
        long sum = 0;
        int samples = 0;
        for (int y = 0; y < frame.height(); y += 16)
            for (int x = 0; x < frame.width(); x += 16, ++samples)
                sum += luma(frame.pixel(x, y));
        return sum / samples > 16;
    };
    QString shape;
    for (const QImage &frame : frames) {
        if (shape.isEmpty() && !pictureIsUp(frame))
            continue;
        int dark = 0;
        for (const QPoint &point : strokes)
            dark += luma(frame.pixel(point)) < 70;
        const double share = double(dark) / strokes.size();
        const QChar state = share > 0.8 ? QLatin1Char('T') : share < 0.4 ? QLatin1Char('-') : QLatin1Char('?');
        if (!shape.endsWith(state))
            shape += state;
    }
    QVERIFY2(QRegularExpression(QStringLiteral("^-\\??T\\??-$")).match(shape).hasMatch(), qPrintable(shape));
}

QTEST_MAIN(TestVideoRecording)
#include "tst_videorecording.moc"
