#pragma once

#include "survey/ivideoscreen.h"
#include "widgets/pipescreen.h"

#include <QImage>
#include <QKeyEvent>
#include <QPixmap>

#include <functional>

class Camera;
class Indicators;
class PictureControls;
class QLabel;
class ScreenClock;
class ShutdownNotice;
class CameraDetector;
class TimedTextScreens;
class VideoKeys;
class PageOverlays;
class QTimer;
class OperatorComments;
class RecordingControl;
class SurveyDialogHost;
class VideoScripts;
class VideoTools;
class VideoLibrary;
class overlay;
class statusOverlay;

namespace Ui {
class Video;
}

// The main screen of the unit: the live picture with the overlay over it and the
// status strip beside it. It starts and stops every recording and stream through
// the unit's scripts, draws the timed text screens that are burnt into the
// recording, owns the picture controls and hosts the dialogs of a survey. The
// survey manager sees it only as IVideoScreen.
class Video : public PipeScreen, public IVideoScreen
{
    Q_OBJECT
    // The key table works on the screen's page and picture-control state.
    friend class VideoKeys;
public:
    static constexpr int kOverlayRefreshMs = 200;
    static constexpr int kSnapshotSymbolMs = 1000;
    static constexpr int kAudioResetMs = 2000;
    // The settings tab F1 opens.
    static constexpr int kStatusSettingsTab = 4;

    explicit Video(QWidget *parent = nullptr);
    ~Video() override;

    // Where the distance shown and written with observations comes from.
    void setCounterSource(std::function<float()> source);

    // IVideoScreen
    void record(QString path) override;
    void streamRecord(QString ip, QString port) override;
    void streamStop() override;
    void play() override;
    void pause() override;
    void stop() override;
    void hideVideo() override;
    void showVideo() override;
    void showError(IVideoScreen::error_t kind, QString text) override;
    void setCameraPresent(bool present) override;
    void setBatteryLevel(int level) override;
    void setChargingState(int state) override;
    void setBatteryTimeRemaining(int minutes) override;
    void displayBacklight(int level) override;
    void displayLampBrightness(int percent) override;
    void setDiskRecordTimeRemaining(int minutes) override;
    void saveJpeg(QString path, bool comment) override;
    bool isPaused() override;
    bool isRecording() override;
    void createNewSurveyText() override;
    void createEndHeader() override;
    void setSaveToIndicator(StorageBase::StorageItem item) override;
    void setLogo(SurveyManager::SurveyType type) override;
    void triggerComment(int key, QString text) override;
    void showCounterOverlay() override;
    void showTextOverlay() override;
    void showDateOverlay() override;
    void showTimeOverlay() override;
    void showCameraControl() override;
    void dummyEscape() override;
    void showGraphicsOverlay() override;
    void showPageOverlay(int page) override;
    void editPageOverlay() override;
    void hidePageOverlay() override;
    void showStatusBar(QString title, QStringList items) override;
    void hideStatusBar() override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    uint64_t getVideoPosition() override { return 0; }
    float getCounter() override;
    int getCounterState() override { return m_counterState; }
    void setCounterState(int state) override { m_counterState = state; }
    void showMenu(QString title, QStringList rows, QObject *receiver, const char *slot, bool escape) override;
    void showDialogue(QString title, QStringList rows, QObject *receiver, const char *slot) override;
    void showMessage(QString title, QStringList lines, QObject *receiver, const char *slot) override;
    void showTextEntry(QString title, QStringList prompt, QObject *receiver, const char *slot, bool mandatory) override;
    void showParamEntry(QString title, QStringList prompt, QObject *receiver, const char *slot) override;
    void createWinCanCodeText(QString code, QString text) override;
    void setOstraWifiLogo(int state) override;
    void commentRequest() override;
    void setCounterTransparency(bool transparent) override { counter_transparent = transparent; }
    bool getCounterTransparency() override { return counter_transparent; }
    void closeDialogue() override { closeDialogs(); }

    // For the status strip, the overlay and tests that look at the screen.
    Indicators *indicators() const;
    overlay *overlayWidget() const { return m_overlay; }
    Camera *camera() const;
    statusOverlay *statusBar() const { return m_statusbar; }
    QLabel *timeLabel() const;
    QLabel *dateLabel() const;
    QLabel *logoLabel() const;
    PictureControls *pictureControls() const { return m_pictureControls; }
    VideoScripts *scripts() const { return m_scripts; }
    // The dialog a survey has open, if any.
    QWidget *openDialog() const;
    int currentPage() const;
    int editPage() const;
    bool isTextScreenTimerActive() const;
    SurveyManager::SurveyType surveyType() const { return m_surveyType; }
    uint surveyTimestamp() const;
    RecordingControl *recording() const { return m_recording; }
    // Whether the last camera detection found a camera; the strip shows it while no recording runs.
    bool isCameraPresent() const { return m_cameraPresent; }

    // The operator's name of a survey field key.
    static QString translateSurveyHeader(const QString &key);

signals:
    void sendKeyPress(QKeyEvent &event);
    void cameraAttached();
    void cameraDetached();
    void stopRecord();
    void reportScreenRequested();
    // A tab number, or -1 for the tab last shown.
    void settingsScreenRequested(int tab);

public slots:
    void updateOverlays();
    void showTime();
    void detectCamera();
    void clearHeader();
    void handleVideoRecordingComplete();
    void delayedRestart();
    void snapshot_symbol_hide();
    void comment_key_press(int key, QString text);
    void siteSnapshot(QStringList lines);
    void addRec(int answer);
    void pageEditAccept();
    void clearDownEditing();
    void displayShutdownMessage();
    void displayVideoCaptureError(bool fatal, QString message);
    void displayJpegError(int key, QString message);
    void displayJpegComplete();
    void displayShutdownComplete();
    void audioReset();
    void clearBuffers();
    void timeDateUpdate();
    void graphicsShortcut();
    void setCounterShortcut();
    void incrementCameraControl(int step);
    void decrementCameraControl(int step);

private slots:
    void onCameraDetected(bool present);
    void showPictureControl(int control, int value);
    void handleRecordFailed(const QString &cause);

private:
    // The dialog kinds a survey opens on this screen; false for one it cannot show.
    bool openSurveyDialog(IVideoScreen::overlay_menu_t type, const QString &title, const QStringList &list,
                          QObject *receiver, const char *slot, bool flag);
    void closeDialogs();
    void snapshotRequest();
    void setCameraIndicator(int state);
    // The strip between recordings: ready with a camera, missing without.
    void showIdleCameraState();
    void markDirty() { m_overlay_dirty = true; }
    void drawEditOverlay();
    void drawRecordOverlay();
    void showOverlayAction(void (overlay::*toggle)(), int mode);
    void setMode(int mode);
    // The timed text screens: hand the picture to the overlay for a number of seconds.
    void beginTextScreen();
    void endTextScreen();
    void closePictureControls(bool keepValues);
    void showLogo(const QPixmap &logo);
    bool inProjectSurvey() const;

    std::function<float()> m_counterSource;
    Ui::Video *ui;
    SurveyManager::SurveyType m_surveyType = SurveyManager::kSurveyType_BASIC;
    QTimer *m_display;
    QTimer *m_snapshot_symbol_timer;
    bool m_overlay_dirty = true;
    bool m_snapshot_symbol = false;
    bool m_snapshot_dirty = false;
    bool m_snapshot_comment = true;
    overlay *m_overlay;
    statusOverlay *m_statusbar;
    bool counter_transparent = false;
    int m_counterState = 0;
    QPixmap default_logo;
    ShutdownNotice *shutdownbox = nullptr;
    ScreenClock *m_screenClock = nullptr;
    bool mRunOnce = false;
    VideoScripts *m_scripts;
    VideoTools *mVideoTools;
    PictureControls *m_pictureControls;
    RecordingControl *m_recording;
    SurveyDialogHost *m_dialogs;
    OperatorComments *m_comments;
    VideoKeys *m_keys;
    // The in-process capture layer: built at start, its start slots unused on the unit.
    VideoLibrary *video_widget;
    PageOverlays *m_pages;
    TimedTextScreens *m_textScreens;
    CameraDetector *m_cameraDetector;
    bool m_cameraPresent = false;
};
