// The main screen driven as the window and the survey manager drive it, with the
// unit kit's real scripts; which scripts ran is read from the kit's log.
#include "core/consolesettings.h"
#include "app/controller.h"
#include "app/mainwindow.h"
#include "core/uikeys.h"
#include "kitscripts.h"
#include "support/boxanswer.h"
#include "support/logcapture.h"
#include "support/testunit.h"
#include "survey/surveymanager.h"
#include "video/camera.h"
#include "video/overlay.h"
#include "video/picturecontrols.h"
#include "video/textscreen.h"
#include "video/video.h"
#include "video/videoscripts.h"
#include "widgets/indicators.h"
#include "widgets/messagedialog.h"

#include <QApplication>
#include <QMessageBox>
#include <QSignalSpy>
#include <QtTest>

namespace {
constexpr int kScriptWaitMs = 20000;

// Pixels of a picture that are not fully transparent, inside a region.
int drawnPixels(const QImage &picture, const QRect &region)
{
    int count = 0;
    for (int y = region.top(); y <= region.bottom(); ++y)
        for (int x = region.left(); x <= region.right(); ++x)
            if (qAlpha(picture.pixel(x, y)) != 0)
                ++count;
    return count;
}
} // namespace

// Hears what a note answers.
class NoteListener : public QObject
{
    Q_OBJECT
public:
    QList<int> answers;
public slots:
    void closed(int key) { answers << key; }
};

class TestVideo : public QObject
{
    Q_OBJECT
    TestUnit m_unit;
    MainWindow *m_window = nullptr;
    Controller *m_controller = nullptr;
    Video *m_video = nullptr;

    SurveyManager *survey() const { return SurveyManager::instance(); }
    void press(int key, bool repeat = false)
    {
        QKeyEvent event(QEvent::KeyPress, key, Qt::NoModifier, QString(), repeat);
        QApplication::sendEvent(m_video, &event);
    }
    void release(int key)
    {
        QKeyEvent event(QEvent::KeyRelease, key, Qt::NoModifier);
        QApplication::sendEvent(m_video, &event);
    }
    QStringList scriptLog(const QString &script) const { return kitLogOf(m_unit, script); }
    // The overlay picture the recorder reads, once every capture asked for is in place.
    QImage publishedOverlay()
    {
        [&] { QTRY_COMPARE_WITH_TIMEOUT(m_video->overlayWidget()->capturesPending(), 0, 5000); }();
        return QImage(m_unit.path(QStringLiteral("/dev/shm/overlay.png")));
    }
    void startRecording(const QString &name);
    // Until the kit's record script says its recorder records.
    void waitUntilRecording(const QString &name);
    void stopRecording();

private slots:
    void initTestCase();
    void init();

    void secondRecordStartsNoSecondScript();
    void failedRecordScriptEndsTheRecordingAndSaysWhy();
    void stopWhilePausedResumesThenStops();
    void pauseAndStopActAtOnceWhileTheRecordScriptRuns();
    void recordingOutlivesAnyScriptTimeLimit();
    void returnToTheScreenAcknowledgesTheOpenNote();
    void recordWithinTheSavingSecondIsNotReset();
    void pauseOutsideARecordingChangesNothing();
    void surveyFieldsRunOnInTheRightColumn();
    void surveyTextStaysForItsTime();
    void winCanCodeWithoutTimeoutIsNotStamped();
    void pageOverlaysOutsideOneToNineAreIgnored();
    void unchangedCameraDetectionSaysNothing();
    void pictureControlsStopShortOfTheirLimits_data();
    void pictureControlsStopShortOfTheirLimits();
    void escapePutsThePictureValuesBack();
    void shutdownMessageCoversTheScreen();
};

void TestVideo::initTestCase()
{
    QVERIFY(m_unit.isValid());
    m_window = new MainWindow;
    m_controller = Controller::create(m_window, m_window);
    m_video = dynamic_cast<Video *>(m_window->videoScreen());
    QVERIFY(m_video);
    // Nobody has asked for the camera yet.
    QCOMPARE(m_video->indicators()->cameraState(), Indicators::Missing);
    QCOMPARE(m_video->whatsThis(), QStringLiteral("Main screen"));
    QCOMPARE(m_video->objectName(), QStringLiteral("videoScreen"));
    QTRY_COMPARE_WITH_TIMEOUT(m_window->screen(), int(Controller::kScreenLogin), 5000);
    m_window->selectScreen(Controller::kScreenVideo);
    // The kit's camera is attached: the strip says so once it has been asked.
    m_video->detectCamera();
    QTRY_VERIFY_WITH_TIMEOUT(m_video->isCameraPresent(), kScriptWaitMs);
    QCOMPARE(m_video->indicators()->cameraState(), Indicators::Stop);
}

void TestVideo::init()
{
    survey()->setType(SurveyManager::kSurveyType_BASIC);
    m_video->setLogo(SurveyManager::kSurveyType_BASIC);
    survey()->reset();
}

void TestVideo::startRecording(const QString &name)
{
    survey()->setStatus(SurveyManager::Recording);
    m_video->record(m_unit.root() + QStringLiteral("/media/") + name);
    QVERIFY(m_video->isRecording());
    QCOMPARE(m_video->indicators()->cameraState(), Indicators::Recording);
}

void TestVideo::stopRecording()
{
    const int stops = scriptLog(QStringLiteral("stopRecord.sh")).size();
    if (m_video->isRecording())
        m_video->stop();
    QVERIFY(!m_video->isRecording());
    QCOMPARE(m_video->indicators()->cameraState(), Indicators::Saving);
    QTRY_VERIFY_WITH_TIMEOUT(scriptLog(QStringLiteral("stopRecord.sh")).size() > stops, kScriptWaitMs);
    // A second after the stop the recording counts as complete and the survey falls idle.
    QTRY_COMPARE_WITH_TIMEOUT(m_video->indicators()->cameraState(), Indicators::Stop, 3000);
    QCOMPARE(survey()->status(), SurveyManager::Idle);
}

void TestVideo::failedRecordScriptEndsTheRecordingAndSaysWhy()
{
    LogCapture log;
    survey()->setStatus(SurveyManager::Recording);
    m_video->record(m_unit.root() + QStringLiteral("/no-such-folder/section.mp4"));
    QVERIFY(m_video->isRecording());
    QTRY_VERIFY_WITH_TIMEOUT(!m_video->isRecording(), kScriptWaitMs);
    QCOMPARE(m_video->indicators()->cameraState(), Indicators::Stop);
    QCOMPARE(survey()->status(), SurveyManager::Idle);

    auto *note = qobject_cast<MessageDialog *>(m_video->openDialog());
    QVERIFY(note);
    QVERIFY2(note->text().contains(QStringLiteral("did not start")), qPrintable(note->text()));
    m_video->dummyEscape();
    // Logged once, with the recorder's own word on why.
    const QStringList failures = log.messages().filter(QStringLiteral("videoRecord.sh")).filter(QStringLiteral("ended with"));
    QCOMPARE(failures.size(), 1);
    QVERIFY2(failures.first().contains(QStringLiteral("did not start recording"))
                 && failures.first().contains(QStringLiteral("error from")),
             qPrintable(failures.first()));
}

void TestVideo::secondRecordStartsNoSecondScript()
{
    startRecording(QStringLiteral("first.mp4"));
    LogCapture log;
    m_video->record(m_unit.root() + QStringLiteral("/media/second.mp4"));
    QTRY_VERIFY_WITH_TIMEOUT(scriptLog(QStringLiteral("videoRecord.sh")).size() == 1, kScriptWaitMs);
    QVERIFY(scriptLog(QStringLiteral("videoRecord.sh")).first().startsWith(QStringLiteral("recording ")));
    QVERIFY(scriptLog(QStringLiteral("videoRecord.sh")).first().contains(QStringLiteral("first.mp4")));
    QVERIFY(!log.contains(QStringLiteral("second.mp4 ")) || !log.contains(QStringLiteral("Running sudo")));
    QVERIFY(scriptLog(QStringLiteral("sudo")).join('\n').contains(QStringLiteral("videoRecord.sh")));
    stopRecording();
    QVERIFY(!QFile::exists(m_unit.root() + QStringLiteral("/media/second.mp4")));
}

void TestVideo::stopWhilePausedResumesThenStops()
{
    startRecording(QStringLiteral("paused.mp4"));
    QTRY_VERIFY_WITH_TIMEOUT(!scriptLog(QStringLiteral("videoRecord.sh")).isEmpty(), kScriptWaitMs);
    press(Ui::Key_MediaPause);
    QVERIFY(m_video->isPaused());
    QCOMPARE(m_video->indicators()->cameraState(), Indicators::Paused);

    bool pausedAtStop = true;
    connect(m_video, &Video::stopRecord, this, [&] { pausedAtStop = m_video->isPaused(); });
    press(Ui::Key_MediaStop);
    disconnect(m_video, &Video::stopRecord, this, nullptr);
    QVERIFY(!pausedAtStop);
    stopRecording();

    // The scripts ran, and the recorder heard them, in that order: resumed, then stopped.
    const QStringList kit = m_unit.kitLog();
    const int resumeAt = kit.lastIndexOf(QRegularExpression(QStringLiteral(".* resumeRecord.sh\\[.*")));
    const int stopAt = kit.lastIndexOf(QRegularExpression(QStringLiteral(".* stopRecord.sh\\[.*")));
    QVERIFY2(resumeAt >= 0 && resumeAt < stopAt, qPrintable(kit.join('\n')));
    const QStringList recorder = kitLogOf(m_unit, QStringLiteral("videorecorder"));
    QVERIFY(recorder.lastIndexOf(QStringLiteral("paused")) < recorder.lastIndexOf(QStringLiteral("resumed")));
    QVERIFY(scriptLog(QStringLiteral("stopRecord.sh")).last().endsWith(QStringLiteral(", stopped)")));
}

void TestVideo::waitUntilRecording(const QString &name)
{
    const QRegularExpression started(QStringLiteral("^recording .*") + QRegularExpression::escape(name)
                                     + QStringLiteral(" \\("));
    const auto recording = [&] { return scriptLog(QStringLiteral("videoRecord.sh")).filter(started).size() == 1; };
    QTRY_VERIFY_WITH_TIMEOUT(recording(), kScriptWaitMs);
}

// A real record script runs as long as its recording: nothing the operator asks
// for meanwhile may wait for it to end.
void TestVideo::pauseAndStopActAtOnceWhileTheRecordScriptRuns()
{
    startRecording(QStringLiteral("atonce.mp4"));
    waitUntilRecording(QStringLiteral("atonce.mp4"));
    QSignalSpy started(m_video->scripts(), &VideoScripts::started);

    press(Ui::Key_MediaPause);
    QCOMPARE(started.size(), 1);
    QCOMPARE(started.first().first().toString(), QStringLiteral("pauseRecord.sh"));
    QTRY_VERIFY_WITH_TIMEOUT(!scriptLog(QStringLiteral("pauseRecord.sh")).filter(QStringLiteral("is paused")).isEmpty(),
                             kScriptWaitMs);
    press(Ui::Key_MediaPlay);
    QCOMPARE(started.last().first().toString(), QStringLiteral("resumeRecord.sh"));

    m_video->stop();
    QCOMPARE(started.last().first().toString(), QStringLiteral("stopRecord.sh"));
    // The record script was running all along, and ends with its recording.
    QCOMPARE(scriptLog(QStringLiteral("videoRecord.sh")).filter(QStringLiteral("atonce.mp4 finished")).size(), 0);
    stopRecording();
    QTRY_VERIFY_WITH_TIMEOUT(!scriptLog(QStringLiteral("videoRecord.sh")).filter(QStringLiteral("atonce.mp4 finished")).isEmpty(),
                             kScriptWaitMs);
    QTRY_VERIFY_WITH_TIMEOUT(m_video->scripts()->isIdle(), kScriptWaitMs);
}

// However long a recording runs, no time limit of the screen's ends it: every
// limit the screen keeps on its scripts is run out here at once.
void TestVideo::recordingOutlivesAnyScriptTimeLimit()
{
    LogCapture log;
    startRecording(QStringLiteral("long.mp4"));
    waitUntilRecording(QStringLiteral("long.mp4"));
    const QString path = m_unit.root() + QStringLiteral("/media/long.mp4");
    const double before = waitForRecorded(m_unit, path, 1.0);
    QVERIFY(before > 0);
    for (QTimer *limit : m_video->scripts()->findChildren<QTimer *>())
        if (limit->isActive())
            QVERIFY(QMetaObject::invokeMethod(limit, "timeout"));
    QVERIFY(m_video->isRecording());
    QCOMPARE(m_video->indicators()->cameraState(), Indicators::Recording);
    QVERIFY(!m_video->openDialog());
    QVERIFY2(waitForRecorded(m_unit, path, before + 1.0) > 0, "the recorder goes on recording");
    QVERIFY(scriptLog(QStringLiteral("videoRecord.sh")).filter(QStringLiteral("long.mp4 finished")).isEmpty());
    QVERIFY2(!log.contains(QStringLiteral("ended with")), qPrintable(log.messages().join(QLatin1Char('\n'))));
    stopRecording();
    QTRY_VERIFY_WITH_TIMEOUT(!scriptLog(QStringLiteral("videoRecord.sh")).filter(QStringLiteral("long.mp4 finished")).isEmpty(),
                             kScriptWaitMs);
}

void TestVideo::returnToTheScreenAcknowledgesTheOpenNote()
{
    NoteListener listener;
    m_video->showMessage(QStringLiteral("Note:"), {QStringLiteral("Please begin the survey...")}, &listener,
                         SLOT(closed(int)));
    QKeyEvent enter(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    // As the flows do after a note's time: a Return sent to the screen itself.
    m_video->keyPressEvent(&enter);
    QCOMPARE(listener.answers, QList<int>{1});
    QVERIFY(!m_video->openDialog());
    // With nothing open, Return to the screen does nothing.
    m_video->keyPressEvent(&enter);
    QCOMPARE(listener.answers, QList<int>{1});
}

void TestVideo::recordWithinTheSavingSecondIsNotReset()
{
    startRecording(QStringLiteral("saved.mp4"));
    QTRY_VERIFY_WITH_TIMEOUT(!scriptLog(QStringLiteral("videoRecord.sh")).isEmpty(), kScriptWaitMs);
    m_video->stop();
    // Record again before the last recording has had its second to save.
    startRecording(QStringLiteral("next.mp4"));
    m_video->handleVideoRecordingComplete();
    QVERIFY(m_video->isRecording());
    QCOMPARE(m_video->indicators()->cameraState(), Indicators::Recording);
    QCOMPARE(survey()->status(), SurveyManager::Recording);
    QTRY_VERIFY_WITH_TIMEOUT(scriptLog(QStringLiteral("videoRecord.sh")).size() >= 2, kScriptWaitMs);
    stopRecording();
}

void TestVideo::pauseOutsideARecordingChangesNothing()
{
    const int pauses = scriptLog(QStringLiteral("pauseRecord.sh")).size();
    const int resumes = scriptLog(QStringLiteral("resumeRecord.sh")).size();
    m_video->pause();
    QVERIFY(!m_video->isPaused());

    // Paused as far as the screen knows, but the survey has fallen idle meanwhile.
    survey()->setStatus(SurveyManager::Recording);
    m_video->pause();
    QVERIFY(m_video->isPaused());
    survey()->setStatus(SurveyManager::Idle);
    const Indicators::CameraIndicatorState shown = m_video->indicators()->cameraState();
    press(Ui::Key_MediaPlay);
    m_video->pause();
    QVERIFY(m_video->isPaused());
    QCOMPARE(m_video->indicators()->cameraState(), shown);
    QTRY_VERIFY_WITH_TIMEOUT(m_video->scripts()->isIdle(), kScriptWaitMs);
    QCOMPARE(scriptLog(QStringLiteral("pauseRecord.sh")).size(), pauses + 1);
    QCOMPARE(scriptLog(QStringLiteral("resumeRecord.sh")).size(), resumes);
    m_video->handleVideoRecordingComplete();
    QVERIFY(!m_video->isPaused());
}

void TestVideo::surveyFieldsRunOnInTheRightColumn()
{
    QCOMPARE(TextScreen::surveyFieldPosition(0), QPoint(50, 50));
    QCOMPARE(TextScreen::surveyFieldPosition(19), QPoint(50, 487));
    QCOMPARE(TextScreen::surveyFieldPosition(20), QPoint(400, 50));
    // No third column: past forty the fields run off the bottom of the picture.
    QCOMPARE(TextScreen::surveyFieldPosition(45), QPoint(400, 625));

    QList<TextScreen::Field> fields;
    for (int i = 0; i < 22; ++i)
        fields << TextScreen::Field(QStringLiteral("Client"), QStringLiteral("WWWWWWWW"));
    const QImage picture = TextScreen::surveyDetails(fields, 0);
    QCOMPARE(picture.size(), QSize(720, 576));
    QCOMPARE(picture.format(), QImage::Format_ARGB32_Premultiplied);
    const QRect rightRow21(400, 50 + 23 - 14, 200, 16);
    const QRect rightRow23(400, 50 + 2 * 23 - 14, 200, 16);
    QVERIFY(drawnPixels(picture, rightRow21) > 50);
    QVERIFY(drawnPixels(picture, rightRow23) == 0);
    const QRect belowLeftColumn(40, 50 + 20 * 23 - 14, 300, 16);
    QCOMPARE(drawnPixels(picture, belowLeftColumn), 0);

    // Black text on a white outline unless a WinCan colour is chosen.
    QCOMPARE(TextScreen::textColour(0), QColor(Qt::black));
    QCOMPARE(TextScreen::outlineColour(0), QColor(Qt::white));
    QCOMPARE(TextScreen::textColour(3), QColor(Qt::red));
    QCOMPARE(TextScreen::outlineColour(3), QColor(Qt::darkRed));
    QCOMPARE(TextScreen::textColour(9), QColor(Qt::black));
}

void TestVideo::surveyTextStaysForItsTime()
{
    ConsoleSettings settings;
    settings.setValue(QStringLiteral("SurveyData/Client"), QStringLiteral("Acme Water"));
    settings.setValue(QStringLiteral("Timings/Header"), 7);
    settings.sync();
    m_video->createNewSurveyText();
    QVERIFY(m_video->isTextScreenTimerActive());
    QVERIFY(drawnPixels(publishedOverlay(), QRect(40, 30, 300, 30)) > 100);
    m_video->clearHeader();
    QCOMPARE(drawnPixels(publishedOverlay(), QRect(40, 30, 300, 30)), 0);
    settings.remove(QStringLiteral("Timings/Header"));
}

void TestVideo::winCanCodeWithoutTimeoutIsNotStamped()
{
    survey()->setType(SurveyManager::kSurveyType_WINCAN);
    m_video->setLogo(SurveyManager::kSurveyType_WINCAN);
    ConsoleSettings settings;
    const QRect centre(160, 250, 400, 80);
    settings.setValue(QStringLiteral("WinCan/Text_Timeout"), 5);
    settings.sync();
    m_video->createWinCanCodeText(QStringLiteral("BAB"), QStringLiteral("Crack, longitudinal"));
    QVERIFY(drawnPixels(publishedOverlay(), centre) > 100);
    QCOMPARE(ConsoleSettings().value(QStringLiteral("WinCan/Code")).toString(), QStringLiteral("BAB"));
    m_video->clearHeader();

    settings.setValue(QStringLiteral("WinCan/Text_Timeout"), 0);
    settings.sync();
    m_video->createWinCanCodeText(QStringLiteral("DER"), QStringLiteral("Settled deposits"));
    QVERIFY(m_video->isTextScreenTimerActive());
    QCOMPARE(drawnPixels(publishedOverlay(), centre), 0);
    QTRY_VERIFY(!m_video->isTextScreenTimerActive());
    QCOMPARE(ConsoleSettings().value(QStringLiteral("WinCan/Sentence")).toString(), QStringLiteral("Settled deposits"));
}

void TestVideo::pageOverlaysOutsideOneToNineAreIgnored()
{
    m_video->showPageOverlay(3);
    QCOMPARE(m_video->currentPage(), 3);
    QCOMPARE(m_video->indicators()->mode(), Indicators::kPage3);
    m_video->showPageOverlay(10);
    m_video->showPageOverlay(-1);
    QCOMPARE(m_video->currentPage(), 3);
    QCOMPARE(m_video->indicators()->mode(), Indicators::kPage3);
    m_video->showPageOverlay(0);
    QCOMPARE(m_video->currentPage(), 0);
    QCOMPARE(m_video->indicators()->mode(), Indicators::kModeNone);
}

void TestVideo::unchangedCameraDetectionSaysNothing()
{
    QSignalSpy attached(m_video, &Video::cameraAttached);
    QSignalSpy detached(m_video, &Video::cameraDetached);
    QVERIFY(m_unit.writeFile(QStringLiteral("/var/hbi/sim/camera"), "1\n"));
    m_video->detectCamera();
    m_video->detectCamera();
    QVERIFY(attached.size() <= 1);
    QCOMPARE(detached.size(), 0);

    QVERIFY(m_unit.writeFile(QStringLiteral("/var/hbi/sim/camera"), "0\n"));
    m_video->detectCamera();
    m_video->detectCamera();
    m_video->detectCamera();
    QCOMPARE(detached.size(), 1);
    // One answer everywhere: the strip shows the camera gone.
    QCOMPARE(m_video->indicators()->cameraState(), Indicators::Missing);

    QVERIFY(m_unit.writeFile(QStringLiteral("/var/hbi/sim/camera"), "1\n"));
    attached.clear();
    m_video->detectCamera();
    m_video->detectCamera();
    QCOMPARE(attached.size(), 1);
    QCOMPARE(detached.size(), 1);
    QCOMPARE(m_video->indicators()->cameraState(), Indicators::Stop);
}

void TestVideo::pictureControlsStopShortOfTheirLimits_data()
{
    QTest::addColumn<int>("rightPresses");
    QTest::addColumn<int>("key");
    QTest::addColumn<int>("start");
    QTest::addColumn<QString>("setting");
    QTest::addColumn<int>("limit");
    // Two steps from the limit: two are taken, the third is refused.
    QTest::newRow("brightness up") << 0 << int(Qt::Key_Up) << 115 << "Camera/brightness" << 125;
    QTest::newRow("brightness down") << 0 << int(Qt::Key_Down) << -115 << "Camera/brightness" << -125;
    QTest::newRow("contrast up") << 1 << int(Qt::Key_Up) << 240 << "Camera/contrast" << 250;
    QTest::newRow("contrast down") << 1 << int(Qt::Key_Down) << 15 << "Camera/contrast" << 5;
    QTest::newRow("hue up, left round") << -2 << int(Qt::Key_Up) << 115 << "Camera/hue" << 125;
    QTest::newRow("saturation down, left round") << -1 << int(Qt::Key_Down) << 15 << "Camera/saturation" << 5;
}

void TestVideo::pictureControlsStopShortOfTheirLimits()
{
    QFETCH(int, rightPresses);
    QFETCH(int, key);
    QFETCH(int, start);
    QFETCH(QString, setting);
    QFETCH(int, limit);
    const int steps = 3;
    ConsoleSettings().remove(QStringLiteral("Camera"));
    ConsoleSettings().setValue(setting, start);

    m_video->showCameraControl();
    QCOMPARE(m_video->indicators()->mode(), Indicators::kBrightness);
    for (int i = 0; i < qAbs(rightPresses); ++i)
        press(rightPresses > 0 ? Qt::Key_Right : Qt::Key_Left);
    const int runsBefore = scriptLog(QStringLiteral("updateCameraControls.sh")).size();
    for (int i = 0; i < steps; ++i)
        press(key);
    QCOMPARE(ConsoleSettings().value(setting).toInt(), limit);
    // The script ran on every step, the refused ones too, and last with the limit.
    QTRY_COMPARE_WITH_TIMEOUT(scriptLog(QStringLiteral("updateCameraControls.sh")).size(), runsBefore + steps,
                              kScriptWaitMs);
    const PictureControls::Control control = m_video->pictureControls()->selected();
    QCOMPARE(m_video->indicators()->mode(), Indicators::Mode(Indicators::kBrightness + control));
    const QString applied = scriptLog(QStringLiteral("updateCameraControls.sh")).last();
    QVERIFY2(applied.contains(setting.mid(7) + QLatin1Char(' ') + QString::number(limit)), qPrintable(applied));

    release(Qt::Key_Return);
    QVERIFY(!m_video->pictureControls()->isActive());
    QCOMPARE(ConsoleSettings().value(setting).toInt(), limit);
    QCOMPARE(m_video->indicators()->mode(), Indicators::kModeNone);
}

void TestVideo::escapePutsThePictureValuesBack()
{
    ConsoleSettings().remove(QStringLiteral("Camera"));
    m_video->showCameraControl();
    press(Qt::Key_Right);
    press(Qt::Key_Up);
    press(Qt::Key_Up);
    QCOMPARE(ConsoleSettings().value(QStringLiteral("Camera/contrast")).toInt(), 70);
    // Opening them again while open starts nothing new.
    m_video->showCameraControl();
    QCOMPARE(m_video->pictureControls()->selected(), PictureControls::kContrast);

    release(Qt::Key_Escape);
    QVERIFY(!m_video->pictureControls()->isActive());
    QCOMPARE(ConsoleSettings().value(QStringLiteral("Camera/contrast")).toInt(), 60);
    QTRY_VERIFY_WITH_TIMEOUT(scriptLog(QStringLiteral("updateCameraControls.sh")).last().endsWith(
                                 QStringLiteral("brightness 5, contrast 60, saturation 75, hue 0")),
                             kScriptWaitMs);
}

void TestVideo::shutdownMessageCoversTheScreen()
{
    m_window->show();
    bool pictureHidden = false;
    BoxAnswer seen([&](QMessageBox *box) {
        pictureHidden = m_video->camera()->isHidden();
        box->done(0);
    });
    emit m_controller->shutdownMessage();
    QCOMPARE(seen.text, QStringLiteral("System Will Now Shutdown"));
    QVERIFY(pictureHidden);
}

QTEST_MAIN(TestVideo)
#include "tst_video.moc"
