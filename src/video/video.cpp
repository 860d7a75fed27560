#include "video/video.h"

#include "core/consolesettings.h"
#include "app/controller.h"
#include "core/uikeys.h"
#include "core/unitpaths.h"
#include "instrument/cameracontroller.h"
#include "reports/corvaneexport.h"
#include "reports/wrcexport.h"
#include "survey/surveydata.h"
#include "video/camera.h"
#include "video/overlay.h"
#include "video/picturecontrols.h"
#include "video/statusoverlay.h"
#include "video/textscreen.h"
#include "video/videoscripts.h"
#include "video/videotools.h"
#include "widgets/indicators.h"
#include "widgets/keypaddialog.h"
#include "widgets/menudialog.h"
#include "widgets/messagedialog.h"
#include "widgets/textentrydialog.h"

#include <QDateTime>
#include <QDebug>
#include <QFile>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QTimer>
#include <QVBoxLayout>

namespace {
constexpr int kPictureWidth = 720;
constexpr int kPictureHeight = 576;
constexpr int kStripWidth = 80;
// A survey is stamped three seconds late: the recorder's first frames are not yet in the file.
constexpr uint kSurveyTimestampLead = 3;

const QString kRecordScript = QStringLiteral("videoRecord.sh");
const QString kPauseScript = QStringLiteral("pauseRecord.sh");
const QString kResumeScript = QStringLiteral("resumeRecord.sh");
const QString kStopScript = QStringLiteral("stopRecord.sh");
const QString kStreamScript = QStringLiteral("videoStream.sh");
const QString kPreviewRestartScript = QStringLiteral("videoRestart.sh");
const QString kCameraDetectScript = QStringLiteral("cameraDetect.sh");
const QString kDropCacheScript = QStringLiteral("drop_cache.sh");
// What cameraDetect.sh prints while a camera is attached.
const QString kCameraAttachedAnswer = QStringLiteral("0");
const QString kEngineersNotesFile = QStringLiteral("EngineersNotes.txt");

SurveyManager *survey()
{
    return SurveyManager::instance();
}

bool isDigitKey(int key)
{
    return key >= Qt::Key_0 && key <= Qt::Key_9;
}

bool isLetterKey(int key)
{
    return (key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Ui::Key_a && key <= Ui::Key_z);
}
} // namespace

namespace Ui {
// The main screen's form: the picture with the overlay and status line over it,
// a row of labels under it and the status strip at the right.
class Video
{
public:
    QWidget *picture = nullptr;
    ::Camera *video_widget = nullptr;
    statusOverlay *status = nullptr;
    QLabel *label_logo_icon = nullptr;
    QLabel *labelLeft = nullptr;
    QLabel *label_2 = nullptr;
    QLabel *labelRight = nullptr;
    QLabel *label_date = nullptr;
    QLabel *label_time = nullptr;
    Indicators *indicators = nullptr;

    void setupUi(QWidget *screen)
    {
        auto *row = new QHBoxLayout(screen);
        row->setContentsMargins(0, 0, 0, 0);
        row->setSpacing(0);
        auto *column = new QVBoxLayout;
        column->setSpacing(0);
        row->addLayout(column);

        picture = new QWidget(screen);
        picture->setFixedSize(kPictureWidth, kPictureHeight);
        video_widget = new ::Camera(picture);
        video_widget->setGeometry(0, 0, kPictureWidth, kPictureHeight);
        column->addWidget(picture);

        auto *labels = new QHBoxLayout;
        labels->setContentsMargins(4, 0, 4, 0);
        labels->setSpacing(16);
        label_logo_icon = new QLabel(screen);
        labelLeft = new QLabel(screen);
        label_2 = new QLabel(screen);
        labelRight = new QLabel(screen);
        label_date = new QLabel(screen);
        label_time = new QLabel(screen);
        for (QLabel *label : {label_logo_icon, labelLeft, label_2, labelRight, label_date, label_time})
            labels->addWidget(label);
        labels->setStretchFactor(label_2, 1);
        column->addLayout(labels);

        indicators = new Indicators(screen);
        indicators->setFixedWidth(kStripWidth);
        row->addWidget(indicators);

        status = new statusOverlay(QString(), picture);
        status->setGeometry(0, kPictureHeight - 40, kPictureWidth, 40);
        status->hide();
    }
};
} // namespace Ui

Video::Video(QWidget *parent)
    : PipeScreen(parent)
    , mOverlayTimer(new QTimer(this))
    , ui(new Ui::Video)
    , m_display(new QTimer(this))
    , m_clock(new QTimer(this))
    , m_snapshot_symbol_timer(new QTimer(this))
    , cameraDetectTimer(new QTimer(this))
    , default_logo(QStringLiteral(":/graphics/logo_corvane_small.png"))
    , m_scripts(new VideoScripts(this))
    , mVideoTools(new VideoTools(this))
    , m_pictureControls(new PictureControls(mVideoTools, m_scripts, this))
{
    setObjectName(QStringLiteral("videoScreen"));
    setFocusPolicy(Qt::StrongFocus);
    ui->setupUi(this);
    m_statusbar = ui->status;
    m_overlay = new overlay(ui->picture);
    m_overlay->setGeometry(0, 0, kPictureWidth, kPictureHeight);
    m_overlay->raise();
    m_statusbar->raise();
    ui->label_logo_icon->setPixmap(default_logo);

    mOverlayTimer->setSingleShot(true);
    connect(mOverlayTimer, &QTimer::timeout, this, &Video::clearHeader);
    m_snapshot_symbol_timer->setSingleShot(true);
    connect(m_snapshot_symbol_timer, &QTimer::timeout, this, &Video::snapshot_symbol_hide);
    connect(m_overlay, &overlay::accept, this, &Video::pageEditAccept);
    connect(m_overlay, &overlay::clearEditing, this, &Video::clearDownEditing);
    connect(m_pictureControls, &PictureControls::shown, this,
            [this](PictureControls::Control control, int value) { showPictureControl(control, value); });
    connect(ui->video_widget, &Camera::videoRecordingComplete, this, &Video::handleVideoRecordingComplete);
    connect(ui->video_widget, &Camera::runningVideoRestart, ui->indicators, &Indicators::restartVideo);

    connect(m_display, &QTimer::timeout, this, &Video::updateOverlays);
    connect(m_clock, &QTimer::timeout, this, &Video::showTime);
    connect(cameraDetectTimer, &QTimer::timeout, this, &Video::detectCamera);
    m_display->start(kOverlayRefreshMs);
    m_clock->start(kClockRefreshMs);
    cameraDetectTimer->start(kCameraDetectMs);

    setCameraIndicator(Indicators::Missing);
    m_pictureControls->applyStored();
    showTime();
}

Video::~Video()
{
    delete ui;
}

void Video::setController(Controller *controller)
{
    m_controller = controller;
    if (!controller)
        return;
    connect(controller, &Controller::shutdownMessage, this, &Video::displayShutdownMessage);
    connect(controller, &Controller::clearAllBuffers, this, &Video::clearBuffers);
    connect(controller, &Controller::updateTimeDate, this, &Video::timeDateUpdate);
    connect(controller, &Controller::timeShortcutTriggered, this, &Video::showTimeOverlay);
    connect(controller, &Controller::dateShortcutTriggered, this, &Video::showDateOverlay);
    connect(controller, &Controller::cameraShortcutTriggered, this, &Video::showCameraControl);
    connect(controller, &Controller::graphicsShortcutTriggered, this, &Video::graphicsShortcut);
    connect(controller, &Controller::setCounterShortcutTriggered, this, &Video::setCounterShortcut);
    connect(this, &Video::sendKeyPress, controller, &Controller::handleComment);
    CameraController *camera = CameraController::instance();
    connect(this, &Video::cameraDetached, camera, &CameraController::setVideoOff);
    connect(this, &Video::cameraAttached, camera, &CameraController::setVideoOn);
}

Indicators *Video::indicators() const { return ui->indicators; }
Camera *Video::camera() const { return ui->video_widget; }
QLabel *Video::timeLabel() const { return ui->label_time; }
QLabel *Video::dateLabel() const { return ui->label_date; }
QLabel *Video::logoLabel() const { return ui->label_logo_icon; }
bool Video::isTextScreenTimerActive() const { return mOverlayTimer->isActive(); }

QString Video::translateSurveyHeader(const QString &key)
{
    return TextScreen::translateSurveyHeader(key);
}

bool Video::inProjectSurvey() const
{
    return m_surveyType == SurveyManager::kSurveyType_CORVANE || m_surveyType == SurveyManager::kSurveyType_WINCAN;
}

void Video::setCameraIndicator(int state)
{
    ui->indicators->setCameraState(Indicators::CameraIndicatorState(state));
}

void Video::setMode(int mode)
{
    ui->indicators->setMode(Indicators::Mode(mode));
}

float Video::getCounter()
{
    return m_controller ? m_controller->counter() : 0.0f;
}

// ---- Recording ---------------------------------------------------------------

void Video::record(QString path)
{
    if (isRecording()) {
        qInfo().noquote() << "Already recording; not starting" << path;
        return;
    }
    setCameraIndicator(Indicators::Recording);
    setSurveyTimestamp();
    m_scripts->runScriptAsRoot(kRecordScript, {path});
    mRecording = true;
    // The preview is deliberately not restarted after a record, unlike after a stream.
}

void Video::setSurveyTimestamp()
{
    m_surveyTimestamp = uint(QDateTime::currentSecsSinceEpoch()) + kSurveyTimestampLead;
}

void Video::pause()
{
    if (!survey()->isRecording()) {
        qDebug() << "Pause ignored: no survey is recording";
        return;
    }
    if (!m_paused) {
        m_scripts->runScript(kPauseScript);
        setCameraIndicator(Indicators::Paused);
        m_paused = true;
    } else {
        m_scripts->runScript(kResumeScript);
        setCameraIndicator(Indicators::Recording);
        m_paused = false;
    }
}

void Video::play()
{
    // The Play key reaches pause(): Play and Pause are one toggle.
}

void Video::stop()
{
    if (!survey()->isRecording()) {
        qDebug() << "Stop ignored: no survey is recording";
        return;
    }
    // A paused recorder must be running again before it can finish the file,
    // whichever road the stop came by (key, menu, shortcut).
    if (m_paused)
        pause();
    setCameraIndicator(Indicators::Saving);
    mRecording = false;
    m_scripts->runScript(kStopScript);
    QTimer::singleShot(kRecordingCompleteMs, this, &Video::handleVideoRecordingComplete);
    m_overlay->addHeaders(QImage());
    hideStatusBar();
}

// Runs after the stop script has had its second, and again when the camera view
// reports its own recorder stopped; both paths end in the same idle state.
void Video::handleVideoRecordingComplete()
{
    // Record may be pressed again within the second the last recording takes to
    // save: the new recording must not be reset as if it had ended.
    const bool newRecordingRunning = mRecording;
    if (!newRecordingRunning) {
        setCameraIndicator(Indicators::Stop);
        m_paused = false;
    }
    const QString directory = survey()->getDirectory();
    switch (m_surveyType) {
    case SurveyManager::kSurveyType_WINCAN:
        qInfo().noquote() << "MiraculIX export of" << directory << "not available in this build";
        break;
    case SurveyManager::kSurveyType_CORVANE:
        // Kept current after every recording, not only when the project is finalised.
        CorvaneExport(directory, QString()).startExport();
        WRCExport::exportIfWanted(directory);
        break;
    default:
        break;
    }
    if (newRecordingRunning) {
        qInfo() << "A new recording started before the last one was saved; the survey goes on";
        return;
    }
    survey()->reset();
    QTimer::singleShot(kAudioResetMs, this, &Video::audioReset);
}

void Video::streamRecord(QString ip, QString port)
{
    m_scripts->runScript(kStreamScript, {ip, port});
    QTimer::singleShot(kStreamRestartMs, this, &Video::delayedRestart);
}

void Video::delayedRestart()
{
    m_scripts->runScript(kPreviewRestartScript);
}

void Video::streamStop()
{
    m_scripts->runProgram(QStringLiteral("killall"), {QStringLiteral("gst-launch-1.0")});
    m_scripts->runScript(kPreviewRestartScript);
}

// ---- Pass-through and things that only log -------------------------------------

void Video::hideVideo() { ui->video_widget->hide(); }
void Video::showVideo() { ui->video_widget->show(); }

void Video::showError(IVideoScreen::error_t kind, QString text)
{
    qWarning().noquote() << "Video error" << kind << text;
}

void Video::setCameraPresent(bool present)
{
    qDebug() << "Camera present" << present;
}

void Video::setBatteryLevel(int level)
{
    ui->indicators->setBatteryLevel(level);
    // The strip's time estimate follows the level on purpose: the board sends no separate figure.
    ui->indicators->setBatteryTimeRemaining(level);
}

void Video::setChargingState(int state) { ui->indicators->setChargingState(state); }
void Video::setBatteryTimeRemaining(int minutes) { ui->indicators->setBatteryTimeRemaining(minutes); }
void Video::displayLampBrightness(int percent) { ui->indicators->displayLampBrightness(percent); }
void Video::setDiskRecordTimeRemaining(int minutes) { ui->indicators->setDiskRecordTimeRemaining(minutes); }
void Video::setSaveToIndicator(StorageBase::StorageItem item) { ui->indicators->selectStorage(item); }
void Video::setOstraWifiLogo(int state) { ui->indicators->setOstraWifiLogo(state); }

void Video::displayBacklight(int level)
{
    qDebug() << "Backlight" << level;
}

void Video::displayJpegComplete()
{
    qDebug() << "Snapshot saved";
}

void Video::displayShutdownComplete()
{
    qDebug() << "Shutdown complete";
}

void Video::audioReset()
{
    qDebug() << "Audio reset after recording";
}

void Video::displayVideoCaptureError(bool fatal, QString message)
{
    static int errorCount = 0;
    ++errorCount;
    qWarning().noquote() << "Video capture error. errorCount: " + QString::number(errorCount);
    setCameraIndicator(Indicators::Stop);
    m_scripts->runScript(kDropCacheScript);
    showError(fatal ? kCritical : kWarning, message);
}

void Video::displayJpegError(int key, QString message)
{
    Q_UNUSED(key)
    showError(kCritical, message);
}

void Video::displayShutdownMessage()
{
    ui->video_widget->hide();
    if (!shutdownbox) {
        shutdownbox = new QMessageBox(this);
        shutdownbox->setIcon(QMessageBox::Information);
        shutdownbox->setText(tr("System Will Now Shutdown"));
        QPushButton *button = shutdownbox->addButton(tr("Press Return to continue"), QMessageBox::ActionRole);
        button->hide();
        shutdownbox->setWindowFlags(shutdownbox->windowFlags() | Qt::FramelessWindowHint);
        shutdownbox->setStyleSheet(QStringLiteral("QMessageBox, QPushButton { background-color: black; }"
                                                  " QLabel, QPushButton { color: yellow; }"));
    }
    shutdownbox->exec();
}

void Video::clearBuffers()
{
    qInfo() << "Clearing the text screens";
    mOverlayTimer->stop();
    m_overlay->addHeaders(QImage());
    markDirty();
    updateOverlays();
}

void Video::timeDateUpdate()
{
    m_overlay->setDate();
    m_overlay->setTime();
    showTime();
}

// ---- Timed text screens -------------------------------------------------------

int Video::textScreenColour() const
{
    if (m_surveyType != SurveyManager::kSurveyType_WINCAN)
        return 0;
    return ConsoleSettings().value(QStringLiteral("WinCan/Text_Colour"), 0).toInt();
}

int Video::textScreenSeconds(const QVariant &headerDefault) const
{
    ConsoleSettings settings;
    if (m_surveyType == SurveyManager::kSurveyType_WINCAN)
        return settings.value(QStringLiteral("WinCan/Text_Timeout"), 5).toInt();
    return settings.value(QStringLiteral("Timings/Header"), headerDefault).toInt();
}

void Video::beginTextScreen()
{
    clearDownEditing();
    updateOverlays();
}

void Video::createNewSurveyText()
{
    mOverlayTimer->stop();
    beginTextScreen();
    QList<TextScreen::Field> fields;
    if (SurveyData *data = survey()->getSurveyData()) {
        for (const QString &key : data->toStringList())
            fields << TextScreen::Field(key, data->get(key));
    }
    m_surveyText = TextScreen::surveyDetails(fields, textScreenColour());
    const int seconds = textScreenSeconds(1);
    m_overlay->addHeaders(m_surveyText);
    mOverlayTimer->start(seconds * 1000);
    markDirty();
    updateOverlays();
}

void Video::createEndHeader()
{
    beginTextScreen();
    ConsoleSettings settings;
    QStringList lines;
    for (int n = 1; n <= 4; ++n)
        lines << settings.value(QStringLiteral("End_Header/Line%1").arg(n)).toString();
    m_surveyText = TextScreen::endHeader(lines, textScreenColour());
    // The end screen stays until stop() takes it away; no timer here.
    m_overlay->addHeaders(m_surveyText);
    m_overlay->captureOverlay();
    markDirty();
    updateOverlays();
}

void Video::createWinCanCodeText(QString code, QString text)
{
    mOverlayTimer->stop();
    beginTextScreen();
    ConsoleSettings settings;
    settings.setValue(QStringLiteral("WinCan/Code"), code);
    settings.setValue(QStringLiteral("WinCan/Sentence"), text);
    const int colour = settings.value(QStringLiteral("WinCan/Text_Colour"), 0).toInt();
    m_surveyText = TextScreen::winCanCode(code, text, colour);
    const int seconds = settings.value(QStringLiteral("WinCan/Text_Timeout"), 5).toInt();
    if (seconds > 0) {
        m_overlay->addHeaders(m_surveyText);
        m_overlay->captureOverlay();
    }
    // Started even for 0 seconds, so a text screen still standing is cleared.
    mOverlayTimer->start(qMax(0, seconds) * 1000);
    markDirty();
    updateOverlays();
}

void Video::clearHeader()
{
    m_overlay->addHeaders(QImage());
}

// ---- Overlay refresh and clock ----------------------------------------------------

void Video::updateOverlays()
{
    const bool imperial = ConsoleSettings().value(QStringLiteral("Coiler/Imperial"), false).toBool();
    m_overlay->setCounterUnits(imperial ? QStringLiteral("ft") : QStringLiteral("m"));
    const float counter = getCounter();
    if (!mRunOnce) {
        m_overlay->setCounter(counter);
        mRunOnce = true;
    }
    // Compared as shown: a change below a tenth does not redraw.
    if (QString::number(m_overlay->getCounter(), 'f', 1) != QString::number(counter, 'f', 1))
        m_overlay->setCounter(counter);
    drawEditOverlay();
    if (m_overlay_dirty)
        drawRecordOverlay();
}

void Video::drawEditOverlay()
{
    if (!m_snapshot_dirty)
        return;
    m_snapshot_dirty = false;
    if (m_snapshot_symbol)
        m_overlay->snapshotShow();
    else
        m_overlay->snapshotHide();
}

void Video::drawRecordOverlay()
{
    m_overlay_dirty = false;
    m_overlay->captureOverlay();
}

void Video::showTime()
{
    const QDateTime now = QDateTime::currentDateTime();
    const bool twelveHour = ConsoleSettings().value(QStringLiteral("Clock_mode")).toInt() == 1;
    QString time = now.time().toString(twelveHour ? QStringLiteral("hh:mm AP") : QStringLiteral("hh:mm"));
    // The colon blinks.
    if (now.time().second() % 2 == 0)
        time[2] = QLatin1Char(' ');
    ui->label_time->setText(time);
    ui->label_date->setText(now.date().toString(QStringLiteral("dd/MM/yy")));
}

// ---- Camera detection -------------------------------------------------------------

void Video::detectCamera()
{
    if (!detectProcess) {
        detectProcess = new QProcess(this);
        connect(detectProcess, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this,
                &Video::detectScriptFinished);
    }
    if (detectProcess->state() != QProcess::NotRunning)
        return;
    detectProcess->start(QStringLiteral("/bin/sh"), {unitScriptPath(kCameraDetectScript)});
    if (!detectProcess->waitForFinished(kCameraDetectWaitMs))
        qDebug() << "Camera detection still running after" << kCameraDetectWaitMs << "ms";
}

void Video::detectScriptFinished()
{
    const QString answer = QString::fromLocal8Bit(detectProcess->readAllStandardOutput()).trimmed();
    if (answer == m_lastDetectOutput)
        return;
    if (answer == kCameraAttachedAnswer)
        emit cameraAttached();
    else
        emit cameraDetached();
    m_lastDetectOutput = answer;
}

// ---- Picture controls -------------------------------------------------------------

void Video::showCameraControl()
{
    if (!m_pictureControls->open())
        return;
    setFocus();
}

void Video::showPictureControl(int control, int value)
{
    ui->indicators->setModeInt(Indicators::Mode(Indicators::kBrightness + control), value);
}

void Video::incrementCameraControl(int step)
{
    m_pictureControls->increment(step);
}

void Video::decrementCameraControl(int step)
{
    m_pictureControls->decrement(step);
}

void Video::closePictureControls(bool keepValues)
{
    if (!m_pictureControls->isActive())
        return;
    if (keepValues)
        m_pictureControls->accept();
    else
        m_pictureControls->cancel();
    clearDownEditing();
}

// ---- Snapshots, comments and engineer's notes ------------------------------------------

void Video::saveJpeg(QString path, bool comment)
{
    ui->video_widget->takeImage(path);
    m_snapshot_comment = comment;
    survey()->appendObservation(0, getCounter(), QStringLiteral("JPEG"), QFileInfo(path).fileName());
    ui->indicators->setSnapshotIcon(1);
    m_snapshot_symbol = true;
    m_snapshot_dirty = true;
    m_snapshot_symbol_timer->start(kSnapshotSymbolMs);
}

void Video::snapshot_symbol_hide()
{
    ui->indicators->setSnapshotIcon(0);
    m_snapshot_symbol = false;
    m_snapshot_dirty = true;
    snapshotRequest();
}

void Video::snapshotRequest()
{
    if (m_surveyType != SurveyManager::kSurveyType_CORVANE || !survey()->isRecording() || !m_snapshot_comment)
        return;
    showTextEntry(tr("\tPlease add a comment\t"), {QString()}, this, SLOT(comment_key_press(int, QString)), false);
}

void Video::commentRequest()
{
    if (m_surveyType == SurveyManager::kSurveyType_CORVANE) {
        recCount = 0;
        lineCount = 0;
        openEngineersNotes({QStringLiteral("* 1"), QStringLiteral("* 2"), QStringLiteral("* 3"), QStringLiteral("* 4")});
        return;
    }
    showTextEntry(tr("\tPlease add a comment\t"), {QString()}, this, SLOT(comment_key_press(int, QString)), false);
}

void Video::openEngineersNotes(const QStringList &labels)
{
    showParamEntry(tr("Please add your engineer's notes"), labels, this, SLOT(siteSnapshot(QStringList)));
}

void Video::triggerComment(int key, QString text)
{
    comment_key_press(key, text);
}

void Video::comment_key_press(int key, QString text)
{
    if (key == TextEntryDialog::kAccepted)
        survey()->appendObservation(0, 0.0f, QStringLiteral("BOTH"), QString());
    if (key == TextEntryDialog::kAccepted || key == TextEntryDialog::kAcceptedTextOnly)
        survey()->appendObservation(0, getCounter(), QStringLiteral("TEXT"), text);
}

void Video::siteSnapshot(QStringList lines)
{
    const QString directory = survey()->getDirectory();
    QFile notes(directory + kEngineersNotesFile);
    // A new run of the notes dialog starts the file afresh.
    if (!directory.isEmpty() && recCount == 0 && notes.exists())
        notes.remove();
    // Without a project the notes have no home; never drop them in the working directory.
    if (directory.isEmpty() || !notes.open(QIODevice::Append)) {
        qWarning().noquote() << "Engineer's notes not saved, cannot open" << notes.fileName();
    } else {
        for (const QString &line : lines) {
            if (line.isEmpty())
                continue;
            ++lineCount;
            notes.write(QByteArray::number(lineCount) + ")" + line.toUtf8() + "\n");
        }
    }
    recCount = lineCount;
    showMenu(tr("Would you Like to add more engineer's notes?"), {tr("Yes"), tr("No")}, this, SLOT(addRec(int)),
             false);
}

void Video::addRec(int answer)
{
    if (answer != 0)
        return;
    QStringList labels;
    for (int i = 0; i < 4; ++i)
        labels << QStringLiteral("*%1").arg(++recCount);
    openEngineersNotes(labels);
}

// ---- Page and item overlays -------------------------------------------------------

void Video::showPageOverlay(int page)
{
    if (page < 0 || page > overlay::kPageCount) {
        qDebug() << "No page overlay" << page;
        return;
    }
    hidePageOverlay();
    m_active_page = page;
    m_current_page = page;
    if (page != 0) {
        m_active_buff = true;
        m_overlay->show();
        m_overlay->showPage(page);
        setMode(Indicators::kPage1 + page - 1);
    }
    markDirty();
    updateOverlays();
}

void Video::editPageOverlay()
{
    if (m_edit_page != 0 || m_current_page < 1 || m_current_page > overlay::kPageCount)
        return;
    m_active_page = m_current_page;
    m_edit_page = m_current_page;
    markDirty();
    updateOverlays();
}

void Video::hidePageOverlay()
{
    if (m_current_page != 0)
        m_overlay->hidePage(m_current_page);
    m_active_buff = false;
    m_current_page = 0;
    setMode(Indicators::kModeNone);
}

void Video::pageEditAccept()
{
    clearDownEditing();
    setMode(Indicators::kModeNone);
}

void Video::clearDownEditing()
{
    m_active_buff = false;
    m_active_page = 0;
    m_edit_page = 0;
    markDirty();
    m_pictureControls->accept();
    setMode(Indicators::kModeNone);
    setFocus();
}

void Video::showOverlayAction(void (overlay::*toggle)(), int mode)
{
    m_overlay->show();
    if (toggle)
        (m_overlay->*toggle)();
    markDirty();
    updateOverlays();
    setMode(mode);
}

void Video::showCounterOverlay() { showOverlayAction(&overlay::toggleCounter, Indicators::kModeCounter); }
void Video::showDateOverlay() { showOverlayAction(&overlay::toggleDate, Indicators::kModeDate); }
void Video::showTimeOverlay() { showOverlayAction(&overlay::toggleTime, Indicators::kModeTime); }
void Video::showGraphicsOverlay() { showOverlayAction(&overlay::toggleGraphics, Indicators::kModeGraphic); }
void Video::showTextOverlay() { showOverlayAction(nullptr, Indicators::kModeText); }

void Video::graphicsShortcut()
{
    survey()->handleAction(SurveyManager::kActionGraphics, 0);
}

void Video::setCounterShortcut()
{
    survey()->handleAction(SurveyManager::kActionSetCounter, 0);
}

void Video::dummyEscape()
{
    closeDialogs();
    closePictureControls(false);
}

void Video::setLogo(SurveyManager::SurveyType type)
{
    m_surveyType = type;
    QLabel *logo = ui->label_logo_icon;
    switch (type) {
    case SurveyManager::kSurveyType_CORVANE:
        logo->setPixmap(QPixmap(QStringLiteral(":/graphics/icon ostra.png"))
                            .scaled(logo->size(), Qt::KeepAspectRatio, Qt::SmoothTransformation));
        break;
    case SurveyManager::kSurveyType_WINCAN:
        logo->setPixmap(QPixmap(QStringLiteral(":/graphics/wincan_logo.png")));
        break;
    default:
        logo->setPixmap(default_logo);
        break;
    }
}

void Video::showStatusBar(QString title, QStringList items)
{
    Q_UNUSED(title)
    m_statusbar->setStatusText(items.join(QLatin1Char(' ')));
    m_statusbar->show();
}

void Video::hideStatusBar()
{
    m_statusbar->hide();
}

// ---- Survey dialogs ---------------------------------------------------------------

QWidget *Video::dialogParent() const
{
    return parentWidget() ? parentWidget() : const_cast<Video *>(this);
}

void Video::placeDialog(QWidget *dialog) const
{
    // Centred on the picture, which leaves the status strip at the right free.
    const QWidget *parent = dialogParent();
    dialog->adjustSize();
    dialog->move((parent->width() - kStripWidth - dialog->width()) / 2, (parent->height() - dialog->height()) / 2);
}

bool Video::openSurveyDialog(IVideoScreen::overlay_menu_t type, const QString &title, const QStringList &list,
                             QObject *receiver, const char *slot, bool flag)
{
    // Closing answers the open dialog, and its flow may open its next question
    // at once: that one stays, under the new dialog, and is not lost unanswered.
    closeDialogs();
    discardAnsweredDialogs();
    QDialog *dialog = nullptr;
    switch (type) {
    case kOverlyMenu:
    case kOverlayDialogue:
        dialog = MenuDialog = new menuDialog(dialogParent(), receiver, slot, title, list);
        break;
    case kOverlayTextEntry:
        dialog = textEntryDialog = new TextEntryDialog(dialogParent(), receiver, slot, title, list.value(list.size() - 1),
                                                       list.value(0), flag);
        break;
    case kOverlayMessage:
        dialog = messageDialog = receiver && slot
            ? new MessageDialog(dialogParent(), receiver, slot, title, list.value(0))
            : new MessageDialog(dialogParent(), title, list.value(0));
        break;
    case kOverlayParamEntry:
        qInfo().noquote() << "Parameter entry" << title << "not available in this build";
        return false;
    default:
        qWarning() << "Unknown dialog type" << type;
        return false;
    }
    dialog->setModal(true);
    placeDialog(dialog);
    dialog->show();
    dialog->setFocus();
    return true;
}

QList<KeypadDialog *> Video::surveyDialogs() const
{
    return dialogParent()->findChildren<KeypadDialog *>(QString(), Qt::FindDirectChildrenOnly);
}

void Video::closeDialogs()
{
    for (KeypadDialog *dialog : surveyDialogs()) {
        if (dialog->isHidden())
            continue;
        if (auto *menu = qobject_cast<menuDialog *>(dialog))
            menu->escape();
        else
            dialog->close();
    }
}

bool Video::acknowledgeOpenNote()
{
    // The flows close their notes by sending Return to the screen: the note that
    // stands open takes it as its OK, as if the operator had pressed it there.
    for (KeypadDialog *dialog : surveyDialogs()) {
        auto *note = qobject_cast<MessageDialog *>(dialog);
        if (!note || !note->isVisible())
            continue;
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
        QKeyEvent release(QEvent::KeyRelease, Qt::Key_Return, Qt::NoModifier);
        QCoreApplication::sendEvent(note, &press);
        QCoreApplication::sendEvent(note, &release);
        return true;
    }
    return false;
}

void Video::discardAnsweredDialogs()
{
    // Later, not now: the dialog may still be inside the signal that answered.
    for (KeypadDialog *dialog : surveyDialogs()) {
        if (dialog->isHidden())
            dialog->deleteLater();
    }
}

QWidget *Video::openDialog() const
{
    const QList<KeypadDialog *> dialogs = surveyDialogs();
    for (auto it = dialogs.crbegin(); it != dialogs.crend(); ++it) {
        if ((*it)->isVisible())
            return *it;
    }
    return nullptr;
}

void Video::showMenu(QString title, QStringList rows, QObject *receiver, const char *slot, bool escape)
{
    Q_UNUSED(escape)
    openSurveyDialog(kOverlyMenu, title, rows, receiver, slot, false);
}

void Video::showDialogue(QString title, QStringList rows, QObject *receiver, const char *slot)
{
    openSurveyDialog(kOverlayDialogue, title, rows, receiver, slot, false);
}

void Video::showMessage(QString title, QStringList lines, QObject *receiver, const char *slot)
{
    openSurveyDialog(kOverlayMessage, title, lines, receiver, slot, false);
}

void Video::showTextEntry(QString title, QStringList prompt, QObject *receiver, const char *slot, bool mandatory)
{
    openSurveyDialog(kOverlayTextEntry, title, prompt, receiver, slot, mandatory);
}

void Video::showParamEntry(QString title, QStringList prompt, QObject *receiver, const char *slot)
{
    openSurveyDialog(kOverlayParamEntry, title, prompt, receiver, slot, false);
}

// ---- Keys -------------------------------------------------------------------------

void Video::keyPressEvent(QKeyEvent *event)
{
    const int key = event->key();
    if (event->isAutoRepeat() && key != Ui::Key_Survey && key != Ui::Key_ZeroCounter)
        return;
    bool handled = false;
    // Letters also name a defect code in a project survey, and still act below.
    if (inProjectSurvey() && isLetterKey(key))
        survey()->handleText(QChar(key));
    if (m_edit_page != 0) {
        m_overlay->pageAddChar(m_edit_page, key);
        handled = true;
    }
    if (m_pictureControls->isActive())
        handled = handlePictureControlPress(key) || handled;

    if (key == Ui::Key_MediaStop && isRecording()) {
        emit stopRecord();
        handled = true;
    } else if ((key == Qt::Key_Return || key == Qt::Key_Enter) && acknowledgeOpenNote()) {
        handled = true;
    } else if (key == Ui::Key_MediaPause || key == Ui::Key_MediaPlay) {
        pause();
        handled = true;
    } else if (key == Ui::Key_ZeroCounter) {
        handled = handleZeroCounterPress(event);
    }
    if (!handled)
        PipeScreen::keyPressEvent(event);
}

bool Video::handlePictureControlPress(int key)
{
    switch (key) {
    case Qt::Key_Left:
        m_pictureControls->selectPrevious();
        return true;
    case Qt::Key_Right:
        m_pictureControls->selectNext();
        return true;
    case Qt::Key_Up:
        incrementCameraControl(PictureControls::kStep);
        return true;
    case Qt::Key_Down:
        decrementCameraControl(PictureControls::kStep);
        return true;
    default:
        return false;
    }
}

// The counter is zeroed only by holding the key: a tap never loses a distance.
bool Video::handleZeroCounterPress(QKeyEvent *event)
{
    if (m_zeroCounterHold.press(event)) {
        qInfo() << "Reset meterage counter";
        survey()->handleAction(SurveyManager::kActionResetCounter, 0);
    }
    return true;
}

void Video::keyReleaseEvent(QKeyEvent *event)
{
    const int key = event->key();
    bool handled = event->modifiers() == Qt::NoModifier && handlePlainRelease(key);
    if (isDigitKey(key) && m_edit_page == 0) {
        survey()->handleAction(SurveyManager::kActionPage, key - Qt::Key_0);
        handled = true;
    } else if (key == Qt::Key_Enter) {
        closePictureControls(true);
        if (m_active_page != 0)
            m_overlay->pageAddChar(m_active_page, key);
        handled = true;
    }
    if (!handled)
        PipeScreen::keyReleaseEvent(event);
}

bool Video::handlePlainRelease(int key)
{
    switch (key) {
    case Ui::Key_WinCan:
        survey()->handleAction(SurveyManager::kActionWincan, 0);
        return true;
    case Qt::Key_Escape:
        if (!m_pictureControls->isActive())
            return false;
        closePictureControls(false);
        return true;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (!m_pictureControls->isActive())
            return false;
        closePictureControls(true);
        return true;
    case Ui::Key_GraphicMode:
        if (m_active_buff)
            return false;
        survey()->handleAction(SurveyManager::kActionGraphics, 0);
        return true;
    case Ui::Key_Report:
        if (m_controller)
            m_controller->pushScreen(Controller::kScreenReport);
        return true;
    case Ui::Key_TextMode:
        if (m_current_page == 0)
            return false;
        survey()->handleAction(SurveyManager::kActionText, 0);
        return true;
    case Ui::Key_CounterMode:
        if (m_active_buff)
            return false;
        showCounterOverlay();
        return true;
    case Ui::Key_Settings:
        if (m_controller)
            m_controller->pushScreen(Controller::kScreenSettings);
        return true;
    case Ui::Key_F1:
        if (m_controller) {
            m_controller->setSettingsScreen(4);
            m_controller->pushScreen(Controller::kScreenSettings);
        }
        return true;
    default:
        return false;
    }
}
