#pragma once

#include <QObject>
#include <QStack>
#include <QString>
#include <memory>

class IMainWindow;
class IStatus;
class IVideoScreen;
class ProcessController;
class StorageBase;
class ExternalStorage;
class ClockControl;
class Microcontroller;
class QKeyEvent;
class QShortcut;
class QTimer;
class ScreenStack;

template <typename T>
class Singleton;

// The process-wide centre: owns the instrument link and long-lived services,
// walks start-up, holds the stack of screens and its rules, forwards power-board
// events to the screens and carries out shutdown.
class Controller : public QObject
{
    Q_OBJECT
public:
    enum Screen {
        kScreenSplash = 0,
        kScreenLogin = 1,
        kScreenVideo = 2,
        kScreenReport = 3,
        kScreenSettings = 4,
        kScreenDiagnostics = 5,
        kScreenHelp = 6,
        kScreenSiteInfo = 7,
        kScreenRunInfo = 8,
        kScreenWCProjectInfo = 9,
        kScreenWCSectionInfo = 10,
        kScreenWCSectionInfo2 = 11,
        kScreenEngNote = 12,
        kScreenWRCSiteInfo = 13,
        kScreenWRCRunInfo = 14,
    };

    static Controller *create(IMainWindow *window, QObject *parent);
    static Controller *instance();
    ~Controller() override;

    QString settingsFile() const { return m_settingsFilename; }
    bool getPowerBoardID() const { return powerBoardType; }
    ClockControl *clockControl() const { return m_clock; }
    int currentScreen() const;
    QStack<int> screenStack() const;

    // Old (false) or new (true) power board, from the version text it reports.
    static bool isNewPowerBoard(const QString &version);
    // The backlight level the ambient light sensor's reading calls for.
    static int backlightForAmbientLight(int level);

signals:
    void counterSelected(bool);
    void shutdownMessage();
    void clearAllBuffers();
    void updateTimeDate();
    void timeShortcutTriggered();
    void dateShortcutTriggered();
    void cameraShortcutTriggered();
    void graphicsShortcutTriggered();
    void setCounterShortcutTriggered();
    void sendKeyPress(QKeyEvent &event);
    void setActiveScreen(int);
    void shutdownWiFi();

public slots:
    void selectVideoScreen();
    void selectReportScreen();
    void selectSettingsScreen();
    void selectDiagnosticsScreen();
    void selectHelpScreen();
    void selectSiteInfoScreen();
    void selectRunInfoScreen();
    void selectWCProjectInfoScreen();
    void selectWCSectionInfoScreen();
    void selectWCSectionInfoScreen2();
    void selectEngNoteScreen();
    void selectWRCSiteInfoScreen();
    void selectWRCRunInfoScreen();
    void pushScreen(int n);
    void popScreen();
    void setSettingsScreen(int tab);
    void reportUp();
    void reportDown(int row);

    void lampUp();
    void lampDown();
    void lampOff();
    void backlightUp();
    void backlightDown();
    void setNewBacklight(int level);
    void toggleSonde();
    void zeroCounter();
    void setCounter();
    // The distance the operator typed or reset, sent to the board as encoder counts.
    void setCounterText(const QString &text);
    float counter();
    void setFGCalibration();
    void clearLog();
    void takeScreenshot();
    void showCameraSettings();
    void clearBuffers();
    void handleComment(QKeyEvent &event);

    // From the power board.
    void setBatteryVoltage(int millivolts);
    void setBatteryCurrent(int milliamps);
    void setOverTempLight(int state);
    void setUnderTempLight(int state);
    void setShockLight(int state);
    void setHumLight(int state);
    void setOverVoltLight(int state);
    void setUnderVoltLight(int state);
    void setTamperLight(int state);
    void setServiceLight(int state);
    void setBatteryLevel(int level);
    void setBatteryChargingStates(int state);
    void displayLampBrightness(int level);
    void displayBacklight(int level);
    void setMicroVersion(QString version);
    void handlePowerBoardID(QString version);
    void handleOrientationChange(int x, int y, int z);
    void handleAmbientLightChange(int level);
    void systemShutdown();
    void shutdown();

    void fake_start_up_progress();
    void tiltSwitch();
    void tilt_switch_timeout();
    void updateRunTime();
    void newTimeDate();
    void quit();

    // Bench-test helpers: nothing connects them.
    void batteryTest();
    void batteryStateTest();

private slots:
    void timeDisplay();
    void dateDisplay();
    void graphicsDisplay();
    void setCounterSC();
    void cameraControlDisplay();

private:
    friend class Singleton<Controller>;
    Controller(IMainWindow *window, QObject *parent);

    void applyApplicationStyle();
    void runVgaScript();
    void createServices();
    // The survey modes ask for their forms by signal.
    void connectSurveyScreens();
    void logSystemVersion();
    void init_clock();
    void initWifi();
    void init_micro();
    void initialise_shortcuts();
    QShortcut *addShortcut(const QKeySequence &keys, const char *slot);
    void setBacklight(int level);
    // Power-board events go to the screen that shows them, when it is built.
    void toStatus(void (IStatus::*set)(int), int value);
    void toVideoScreen(void (IVideoScreen::*set)(int), int value);
    void triggerBacklightUpdate();

    ProcessController *process = nullptr;
    StorageBase *storagebase = nullptr;
    ExternalStorage *storage = nullptr;
    QTimer *m_startup_timer = nullptr;
    QTimer *m_tilt_timer = nullptr;
    QTimer *m_run_timer = nullptr;
    IMainWindow *m_window = nullptr;
    QString m_settingsFilename;
    int m_backlight = 0;
    std::unique_ptr<ScreenStack> m_screens;
    ClockControl *m_clock = nullptr;
    Microcontroller *m_micro = nullptr;
    bool m_lid_shut = false;
    bool m_shutdownRequested = false;
    QShortcut *m_quitShortcut = nullptr;
    QShortcut *m_tiltShortcut = nullptr;
    QShortcut *m_time_display = nullptr;
    QShortcut *m_date_display = nullptr;
    QShortcut *m_graphics_display = nullptr;
    QShortcut *m_set_counter = nullptr;
    float m_coiler_meterage = 0.76f;
    bool powerBoardType = false;
    int m_progress = 0;
    int m_batteryTestLevel = 0;
    int m_batteryTestState = 0;
};
