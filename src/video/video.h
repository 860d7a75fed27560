#pragma once

#include "app/keyhold.h"
#include "survey/ivideoscreen.h"
#include "widgets/pipescreen.h"

#include <QImage>
#include <QKeyEvent>
#include <QPixmap>

class Camera;
class Controller;
class Indicators;
class KeypadDialog;
class MessageDialog;
class PictureControls;
class QLabel;
class QMessageBox;
class QProcess;
class QTimer;
class TextEntryDialog;
class VideoScripts;
class VideoTools;
class KeypadDialog;
class menuDialog;
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
public:
    static constexpr int kOverlayRefreshMs = 200;
    static constexpr int kClockRefreshMs = 1000;
    static constexpr int kCameraDetectMs = 2000;
    static constexpr int kCameraDetectWaitMs = 1000;
    static constexpr int kRecordingCompleteMs = 1000;
    static constexpr int kSnapshotSymbolMs = 1000;
    static constexpr int kStreamRestartMs = 500;
    static constexpr int kAudioResetMs = 2000;
    // Counted events of a held Zero key before the counter is zeroed.
    static constexpr int kZeroCounterHold = 7;

    explicit Video(QWidget *parent = nullptr);
    ~Video() override;

    void setController(Controller *controller);

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
    bool isPaused() override { return m_paused; }
    bool isRecording() override { return mRecording; }
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
    int currentPage() const { return m_current_page; }
    int editPage() const { return m_edit_page; }
    bool isTextScreenTimerActive() const;
    SurveyManager::SurveyType surveyType() const { return m_surveyType; }
    uint surveyTimestamp() const { return m_surveyTimestamp; }

    // The operator's name of a survey field key.
    static QString translateSurveyHeader(const QString &key);

signals:
    void sendKeyPress(QKeyEvent &event);
    void cameraAttached();
    void cameraDetached();
    void stopRecord();

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
    void detectScriptFinished();
    void showPictureControl(int control, int value);

private:
    // The dialog kinds a survey opens on this screen; false for one it cannot show.
    bool openSurveyDialog(IVideoScreen::overlay_menu_t type, const QString &title, const QStringList &list,
                          QObject *receiver, const char *slot, bool flag);
    void closeDialogs();
    void discardAnsweredDialogs();
    bool acknowledgeOpenNote();
    QList<KeypadDialog *> surveyDialogs() const;
    void placeDialog(QWidget *dialog) const;
    QWidget *dialogParent() const;
    void snapshotRequest();
    void openEngineersNotes(const QStringList &labels);
    void setSurveyTimestamp();
    void setCameraIndicator(int state);
    void markDirty() { m_overlay_dirty = true; }
    void drawEditOverlay();
    void drawRecordOverlay();
    void showOverlayAction(void (overlay::*toggle)(), int mode);
    void setMode(int mode);
    // The timed text screens: hand the picture to the overlay for a number of seconds.
    void beginTextScreen();
    int textScreenColour() const;
    int textScreenSeconds(const QVariant &headerDefault) const;
    void closePictureControls(bool keepValues);
    bool handleZeroCounterPress(QKeyEvent *event);
    bool handlePictureControlPress(int key);
    bool handlePlainRelease(int key);
    bool inProjectSurvey() const;

    int recCount = 0;
    int lineCount = 0;
    bool mRecording = false;
    QTimer *mOverlayTimer;
    Controller *m_controller = nullptr;
    Ui::Video *ui;
    SurveyManager::SurveyType m_surveyType = SurveyManager::kSurveyType_BASIC;
    QTimer *m_display;
    QTimer *m_clock;
    QTimer *m_snapshot_symbol_timer;
    QTimer *cameraDetectTimer;
    QProcess *detectProcess = nullptr;
    QString m_lastDetectOutput;
    bool m_overlay_dirty = true;
    bool m_snapshot_symbol = false;
    bool m_snapshot_dirty = false;
    bool m_snapshot_comment = true;
    uint m_surveyTimestamp = 0;
    QImage m_surveyText;
    overlay *m_overlay;
    statusOverlay *m_statusbar;
    bool m_active_buff = false;
    int m_current_page = 0;
    int m_active_page = 0;
    int m_edit_page = 0;
    bool m_paused = false;
    bool counter_transparent = false;
    int m_counterState = 0;
    KeyHold m_zeroCounterHold{kZeroCounterHold};
    QPixmap default_logo;
    QMessageBox *shutdownbox = nullptr;
    menuDialog *MenuDialog = nullptr;
    MessageDialog *messageDialog = nullptr;
    TextEntryDialog *textEntryDialog = nullptr;
    bool mRunOnce = false;
    VideoScripts *m_scripts;
    VideoTools *mVideoTools;
    PictureControls *m_pictureControls;
};
