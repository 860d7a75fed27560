#include "video/video.h"

#include "core/consolesettings.h"
#include "core/uikeys.h"
#include "core/unitpaths.h"
#include "reports/corvaneexport.h"
#include "reports/miraculixexport.h"
#include "reports/wrcexport.h"
#include "survey/surveydata.h"
#include "video/camera.h"
#include "video/capture/videolibrary.h"
#include "video/cameradetector.h"
#include "video/overlay.h"
#include "video/operatorcomments.h"
#include "video/pageoverlays.h"
#include "video/picturecontrols.h"
#include "video/recordingcontrol.h"
#include "video/screenclock.h"
#include "video/shutdownnotice.h"
#include "video/statusoverlay.h"
#include "video/surveydialoghost.h"
#include "video/timedtextscreens.h"
#include "video/textscreen.h"
#include "video/videoscripts.h"
#include "video/videoform.h"
#include "video/videokeys.h"
#include "video/videotools.h"
#include "widgets/graphics.h"
#include "widgets/indicators.h"

#include <QDateTime>
#include <QDebug>
#include <QFileInfo>
#include <QLabel>
#include <QProcess>
#include <QTimer>

namespace {
const QString kDropCacheScript = QStringLiteral("drop_cache.sh");
// The logos are drawn at the height of the row under the picture.
const QSize kLogoBox(Ui::Video::kPictureWidth / 2, Ui::Video::kLabelRowHeight);

SurveyManager *survey()
{
    return SurveyManager::instance();
}

} // namespace


Video::Video(QWidget *parent)
    : PipeScreen(parent)
    , ui(new Ui::Video)
    , m_display(new QTimer(this))
    , m_snapshot_symbol_timer(new QTimer(this))
    , default_logo(graphicsPixmap(QStringLiteral(":/graphics/logo_corvane_small.png"), kLogoBox))
    , m_scripts(new VideoScripts(this))
    , mVideoTools(new VideoTools(this))
    , m_pictureControls(new PictureControls(mVideoTools, m_scripts, this))
    , m_recording(new RecordingControl(m_scripts, this))
    , m_dialogs(new SurveyDialogHost(this))
    , m_comments(new OperatorComments(this, this))
    , m_keys(new VideoKeys(this))
    , video_widget(new VideoLibrary(this))
{
    setObjectName(QStringLiteral("videoScreen"));
    setFocusPolicy(Qt::StrongFocus);
    ui->setupUi(this);
    m_statusbar = ui->status;
    m_overlay = new overlay(ui->picture);
    m_overlay->setGeometry(0, 0, Ui::Video::kPictureWidth, Ui::Video::kPictureHeight);
    m_overlay->raise();
    m_statusbar->raise();
    showLogo(default_logo);

    m_textScreens = new TimedTextScreens(m_overlay, this);
    m_pages = new PageOverlays(m_overlay, this);
    connect(m_pages, &PageOverlays::modeChanged, this, &Video::setMode);
    connect(m_pages, &PageOverlays::changed, this, [this] {
        markDirty();
        updateOverlays();
    });
    m_cameraDetector = new CameraDetector(this);
    connect(m_cameraDetector, &CameraDetector::presenceChanged, this, &Video::onCameraDetected);
    m_snapshot_symbol_timer->setSingleShot(true);
    connect(m_snapshot_symbol_timer, &QTimer::timeout, this, &Video::snapshot_symbol_hide);
    connect(m_overlay, &overlay::accept, this, &Video::pageEditAccept);
    connect(m_overlay, &overlay::clearEditing, this, &Video::clearDownEditing);
    connect(m_pictureControls, &PictureControls::shown, this,
            [this](PictureControls::Control control, int value) { showPictureControl(control, value); });
    connect(ui->video_widget, &Camera::videoRecordingComplete, this, &Video::handleVideoRecordingComplete);
    connect(ui->video_widget, &Camera::runningVideoRestart, ui->indicators, &Indicators::restartVideo);

    connect(video_widget, &VideoLibrary::videoCaptureError, this, &Video::displayVideoCaptureError);
    connect(m_recording, &RecordingControl::indicatorChanged, this, &Video::setCameraIndicator);
    connect(m_recording, &RecordingControl::saved, this, &Video::handleVideoRecordingComplete);
    connect(m_recording, &RecordingControl::recordFailed, this, &Video::handleRecordFailed);
    connect(m_display, &QTimer::timeout, this, &Video::updateOverlays);
    m_display->start(kOverlayRefreshMs);

    setCameraIndicator(Indicators::Missing);
    m_pictureControls->applyStored();
    m_screenClock = new ScreenClock(ui->label_time, ui->label_date, this);
    showTime();
}

Video::~Video()
{
    delete m_keys;
    delete m_dialogs;
    delete ui;
}

void Video::setCounterSource(std::function<float()> source)
{
    m_counterSource = std::move(source);
}

Indicators *Video::indicators() const { return ui->indicators; }
Camera *Video::camera() const { return ui->video_widget; }
QLabel *Video::timeLabel() const { return ui->label_time; }
QLabel *Video::dateLabel() const { return ui->label_date; }
QLabel *Video::logoLabel() const { return ui->label_logo_icon; }
bool Video::isTextScreenTimerActive() const { return m_textScreens->isTimerActive(); }

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

void Video::showIdleCameraState()
{
    setCameraIndicator(m_cameraPresent ? Indicators::Stop : Indicators::Missing);
}

bool Video::isPaused() { return m_recording->isPaused(); }
bool Video::isRecording() { return m_recording->isRecording(); }
uint Video::surveyTimestamp() const { return m_recording->surveyTimestamp(); }

void Video::setMode(int mode)
{
    ui->indicators->setMode(Indicators::Mode(mode));
}

float Video::getCounter()
{
    return m_counterSource ? m_counterSource() : 0.0f;
}

// ---- Recording ---------------------------------------------------------------

void Video::record(QString path)
{
    m_recording->record(path);
}

void Video::pause()
{
    if (!survey()->isRecording()) {
        qDebug() << "Pause ignored: no survey is recording";
        return;
    }
    m_recording->togglePause();
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
    m_recording->stop();
    m_overlay->addHeaders(QImage());
    hideStatusBar();
}

// Runs after the stop script has had its second, and again when the camera view
// reports its own recorder stopped; both paths end in the same idle state.
void Video::handleVideoRecordingComplete()
{
    // Record may be pressed again within the second the last recording takes to
    // save: the new recording must not be reset as if it had ended.
    const bool newRecordingRunning = isRecording();
    if (!newRecordingRunning) {
        showIdleCameraState();
        m_recording->clear();
    }
    const QString directory = survey()->getDirectory();
    switch (m_surveyType) {
    // Kept current after every recording, not only when the project is finalised.
    case SurveyManager::kSurveyType_WINCAN:
        MiraculIXExport(directory, QString()).startExport();
        break;
    case SurveyManager::kSurveyType_CORVANE:
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

// The recorder never started: the survey goes back to idle as after a stop, and
// the operator is told, so nobody records a section into nothing.
void Video::handleRecordFailed(const QString &cause)
{
    showIdleCameraState();
    m_overlay->addHeaders(QImage());
    hideStatusBar();
    if (survey()->isRecording())
        survey()->reset();
    QStringList lines{tr("The recording did not start. Please press Record again.")};
    if (!cause.isEmpty())
        lines.first() += QLatin1Char('\n') + cause;
    showMessage(tr("Recording Failed"), lines, nullptr, nullptr);
}

void Video::streamRecord(QString ip, QString port)
{
    m_recording->streamRecord(ip, port);
}

void Video::delayedRestart()
{
    m_recording->restartPreview();
}

void Video::streamStop()
{
    m_recording->streamStop();
}

// ---- Pass-through and things that only log -------------------------------------

void Video::hideVideo() { ui->video_widget->hide(); }
void Video::showVideo() { ui->video_widget->show(); }

void Video::showError(IVideoScreen::error_t kind, QString text)
{
    qWarning().noquote() << "Video error" << kind << text;
}

// The one answer to "is there a camera": the strip shows it between recordings,
// and the camera controller hears it through cameraAttached and cameraDetached.
void Video::setCameraPresent(bool present)
{
    m_cameraPresent = present;
    const Indicators::CameraIndicatorState shown = ui->indicators->cameraState();
    if (shown == Indicators::Missing || shown == Indicators::Stop)
        showIdleCameraState();
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
void Video::setSaveToIndicator(StorageBase::StorageItem item) { ui->indicators->selectStorage(StorageBase::stripName(item)); }
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
    showIdleCameraState();
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
    if (!shutdownbox)
        shutdownbox = new ShutdownNotice(this);
    shutdownbox->exec();
}

void Video::clearBuffers()
{
    qInfo() << "Clearing the text screens";
    m_textScreens->clear();
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

void Video::beginTextScreen()
{
    clearDownEditing();
    updateOverlays();
}

void Video::endTextScreen()
{
    markDirty();
    updateOverlays();
}

void Video::createNewSurveyText()
{
    beginTextScreen();
    QList<TextScreen::Field> fields;
    if (SurveyData *data = survey()->getSurveyData()) {
        for (const QString &key : data->toStringList())
            fields << TextScreen::Field(key, data->get(key));
    }
    m_textScreens->showSurveyDetails(fields, m_surveyType == SurveyManager::kSurveyType_WINCAN);
    endTextScreen();
}

void Video::createEndHeader()
{
    beginTextScreen();
    m_textScreens->showEndHeader(m_surveyType == SurveyManager::kSurveyType_WINCAN);
    endTextScreen();
}

void Video::createWinCanCodeText(QString code, QString text)
{
    beginTextScreen();
    m_textScreens->showWinCanCode(code, text);
    endTextScreen();
}

void Video::clearHeader()
{
    m_textScreens->clearHeader();
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
    m_screenClock->showTime();
}

// ---- Camera detection -------------------------------------------------------------

void Video::detectCamera()
{
    m_cameraDetector->detectCamera();
}

void Video::onCameraDetected(bool present)
{
    setCameraPresent(present);
    if (present)
        emit cameraAttached();
    else
        emit cameraDetached();
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
    qInfo().noquote() << "Snapshot" << path;
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
    m_comments->askForComment();
}

void Video::commentRequest()
{
    if (m_surveyType == SurveyManager::kSurveyType_CORVANE)
        m_comments->askForEngineersNotes();
    else
        m_comments->askForComment();
}

void Video::triggerComment(int key, QString text) { m_comments->comment_key_press(key, text); }
void Video::comment_key_press(int key, QString text) { m_comments->comment_key_press(key, text); }
void Video::siteSnapshot(QStringList lines) { m_comments->siteSnapshot(lines); }
void Video::addRec(int answer) { m_comments->addRec(answer); }

// ---- Page and item overlays -------------------------------------------------------

int Video::currentPage() const { return m_pages->currentPage(); }
int Video::editPage() const { return m_pages->editPage(); }
void Video::showPageOverlay(int page) { m_pages->show(page); }
void Video::editPageOverlay() { m_pages->edit(); }
void Video::hidePageOverlay() { m_pages->hide(); }

void Video::pageEditAccept()
{
    clearDownEditing();
    setMode(Indicators::kModeNone);
}

void Video::clearDownEditing()
{
    m_pages->clearEditing();
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
    switch (type) {
    case SurveyManager::kSurveyType_CORVANE:
        showLogo(graphicsPixmap(QStringLiteral(":/graphics/icon ostra.png"), kLogoBox));
        break;
    case SurveyManager::kSurveyType_WINCAN:
        showLogo(graphicsPixmap(QStringLiteral(":/graphics/wincan_logo.png"), kLogoBox));
        break;
    default:
        showLogo(default_logo);
        break;
    }
}

// Every logo, the WinCan one too, is fitted to the row under the picture: one
// drawn at its own size would be cut off at the label's edges.
void Video::showLogo(const QPixmap &logo)
{
    const int height = Ui::Video::kLabelRowHeight;
    const QPixmap fitted =
        logo.isNull() || logo.height() == height ? logo : logo.scaledToHeight(height, Qt::SmoothTransformation);
    ui->label_logo_icon->setFixedSize(fitted.isNull() ? QSize(0, height) : fitted.size());
    ui->label_logo_icon->setPixmap(fitted);
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

bool Video::openSurveyDialog(IVideoScreen::overlay_menu_t type, const QString &title, const QStringList &list,
                             QObject *receiver, const char *slot, bool flag)
{
    return m_dialogs->open(type, title, list, receiver, slot, flag);
}

void Video::closeDialogs()
{
    m_dialogs->closeAll();
}

QWidget *Video::openDialog() const
{
    return m_dialogs->openDialog();
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
    if (!m_keys->press(event))
        PipeScreen::keyPressEvent(event);
}

void Video::keyReleaseEvent(QKeyEvent *event)
{
    if (!m_keys->release(event))
        PipeScreen::keyReleaseEvent(event);
}
