#pragma once

#include <QWidget>

class QDateTime;
class QTimer;
class BatteryIndicator;
class IndicatorCell;
class WifiIndicator;
class audioindicator;

// The status strip at the right of the main screen, 80 pixels wide, top to bottom:
// clock, battery, lamp, save-to storage with the recording time left, camera
// state, the mode and value being edited, Wi-Fi and the mobile app, headset and
// the snapshot symbol.
class Indicators : public QWidget
{
    Q_OBJECT
public:
    enum CameraIndicatorState { Missing, Stop, Recording, Paused, Saving };
    Q_ENUM(CameraIndicatorState)
    // What the keys are editing. The picture controls follow kBrightness in the
    // order brightness, contrast, hue, saturation, and kPage1 + n - 1 is page n.
    enum Mode {
        kModeNone = 0,
        kModeCounter = 1,
        kBrightness = 2,
        kContrast = 3,
        kHue = 4,
        kSaturation = 5,
        kPage1 = 6,
        kPage2,
        kPage3,
        kPage4,
        kPage5,
        kPage6,
        kPage7,
        kPage8,
        kPage9 = 14,
        kModeDate = 15,
        kModeTime = 16,
        kModeGraphic = 17,
        kModeText = 18,
    };
    Q_ENUM(Mode)
    enum Cell { kClockCell, kLampCell, kStorageCell, kCameraCell, kModeCell, kSnapshotCell };

    explicit Indicators(QWidget *parent = nullptr);

    CameraIndicatorState cameraState() const { return m_cameraState; }
    Mode mode() const { return m_mode; }
    IndicatorCell *cell(Cell which) const;
    BatteryIndicator *battery() const { return m_battery; }
    WifiIndicator *wifi() const { return m_wifi; }
    audioindicator *headset() const { return m_headset; }

    static QString modeName(Mode mode);

public slots:
    void setBatteryLevel(int level);
    void setChargingState(int state);
    void setBatteryTimeRemaining(int value);
    void setDiskRecordTimeRemaining(int minutes);
    void displayLampBrightness(int percent);
    // The save-to device by its short name; empty when there is none.
    void selectStorage(const QString &name);
    void setCameraState(Indicators::CameraIndicatorState state);
    // The preview is being restarted; shown until the next camera state.
    void restartVideo(bool restarting);
    void setMode(Indicators::Mode mode);
    void setModeInt(Indicators::Mode mode, int value);
    // 1 shows the snapshot symbol, 0 hides it.
    void setSnapshotIcon(int shown);
    void setOstraWifiLogo(int state);
    void updateWifiIcon(int state);
    void setAudioState(int state);
    // 0 for 24 hours, 1 for 12 hours with AM/PM.
    void setClockMode(int mode);
    void showTime(const QDateTime &now);

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    void showCurrentTime();
    void showCameraState();
    void showStorage();

    IndicatorCell *m_clock = nullptr;
    BatteryIndicator *m_battery = nullptr;
    IndicatorCell *m_lamp = nullptr;
    IndicatorCell *m_storage = nullptr;
    IndicatorCell *m_camera = nullptr;
    IndicatorCell *m_modeCell = nullptr;
    WifiIndicator *m_wifi = nullptr;
    audioindicator *m_headset = nullptr;
    IndicatorCell *m_snapshot = nullptr;
    QTimer *m_clockTimer = nullptr;
    QString m_saveTo;
    int m_diskMinutes = -1;
    CameraIndicatorState m_cameraState = Missing;
    Mode m_mode = kModeNone;
    int m_clockMode = 0;
};
