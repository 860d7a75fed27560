#include "app/controller.h"

#include "app/afterfirstpaint.h"
#include "app/coilerdistance.h"
#include "settings/iclock.h"
#include "app/imainwindow.h"
#include "app/isplashscreen.h"
#include "app/screenshot.h"
#include "app/screenstack.h"
#include "app/serviceabsent.h"
#include "connectivity/wifi.h"
#include "core/backgroundprocess.h"
#include "core/consolesettings.h"
#include "core/processcontroller.h"
#include "core/singleton.h"
#include "core/unitpaths.h"
#include "instrument/cameracontroller.h"
#include "instrument/clockcontrol.h"
#include "instrument/microcontroller.h"
#include "settings/istatus.h"
#include "storage/externalstorage.h"
#include "storage/reportmanager.h"
#include "storage/storagebase.h"
#include "survey/corvane/corvanecontroller.h"
#include "survey/wincan/wincancontroller.h"
#include "survey/ivideoscreen.h"
#include "survey/surveymanager.h"
#include "video/audio.h"
#include "video/video.h"
#include "widgets/indicators.h"

#include <QApplication>
#include <QCoreApplication>
#include <QDebug>
#include <QFile>
#include <QKeyEvent>
#include <QProcess>
#include <QRegularExpression>
#include <QShortcut>
#include <QStyle>
#include <QTimer>
#include <cstdio>

namespace {
Controller *s_instance = nullptr;

constexpr int kRunTimerMs = 60000;
constexpr int kTiltBlankMs = 2000;
constexpr int kShutdownDelayMs = 2000;
constexpr int kProgressTickMs = 10;
constexpr int kBacklightStep = 6;
} // namespace

Controller *Controller::create(IMainWindow *window, QObject *parent)
{
    return Singleton<Controller>::instance(s_instance, window, parent);
}

Controller *Controller::instance()
{
    return s_instance;
}

Controller::Controller(IMainWindow *window, QObject *parent)
    : QObject(parent), m_window(window), m_screens(new ScreenStack(window))
{
    QCoreApplication::setOrganizationName(QStringLiteral("Harbinger Instruments Ltd"));
    QCoreApplication::setApplicationName(QStringLiteral("Sewer Console"));
    QCoreApplication::setOrganizationDomain(QStringLiteral("harbinger-instruments.co.uk"));

    applyApplicationStyle();
    createServices();

    m_run_timer = new QTimer(this);
    connect(m_run_timer, &QTimer::timeout, this, &Controller::updateRunTime);
    m_run_timer->start(kRunTimerMs);

    init_clock();
    initialise_shortcuts();

    m_tilt_timer = new QTimer(this);
    connect(m_tilt_timer, &QTimer::timeout, this, &Controller::tilt_switch_timeout);

    QMetaObject::invokeMethod(m_window->widget(), "setController", Q_ARG(Controller *, this));
    m_window->selectScreen(kScreenSplash);
    connect(this, SIGNAL(sendKeyPress(QKeyEvent &)), m_window->widget(), SLOT(handleComment(QKeyEvent &)));
    logSystemVersion();
    connect(SurveyManager::instance(), &SurveyManager::updateCounter, this, &Controller::setCounterText);

    initWifi();
    audio *headset = audio::instance(this);
    connect(headset, &audio::detectStarted, SurveyManager::instance(), &SurveyManager::headsetDetectStarted);
    connect(headset, &audio::finished, SurveyManager::instance(), &SurveyManager::headsetDetectFinished);
    if (auto *video = dynamic_cast<Video *>(m_window->videoScreen()))
        connect(headset, &audio::updateAudioState, video->indicators(), &Indicators::setAudioState);
    init_micro();
    // Their answers come back through the event loop anyway; started before the first
    // picture, their programs only compete with it for the processor.
    AfterFirstPaint::run(m_window->widget(), this, [this, headset] {
        runVgaScript();
        storage->init();
        Wifi::instance()->init();
        headset->init();
    });

    m_startup_timer = new QTimer(this);
    connect(m_startup_timer, &QTimer::timeout, this, &Controller::fake_start_up_progress);
    m_startup_timer->start(kProgressTickMs);
}

Controller::~Controller()
{
    if (m_micro) {
        // The window may already be half gone: the board hears the last commands, the screens don't.
        disconnect(m_micro, nullptr, this, nullptr);
        m_micro->setLampBrightness(0);
        m_micro->setCamState(1);
    }
    SurveyManager::instance()->handleAction(SurveyManager::kActionStop, 0);
    delete m_quitShortcut;
    delete m_tiltShortcut;
    // Closes the serial line.
    delete m_micro;
    m_micro = nullptr;
    delete m_startup_timer;
    delete m_tilt_timer;
    if (s_instance == this)
        s_instance = nullptr;
}

void Controller::applyApplicationStyle()
{
    m_settingsFilename = QCoreApplication::applicationDirPath() + QStringLiteral("/settings.ini");
    QSettings styleSettings(m_settingsFilename, QSettings::IniFormat);
    const QString style = styleSettings.value(QStringLiteral("Application/Style")).toString();
    if (style.isEmpty()) {
        if (QApplication::style())
            styleSettings.setValue(QStringLiteral("Application/Style"), QApplication::style()->objectName());
    } else if (QStyle *applied = QApplication::setStyle(style)) {
        styleSettings.setValue(QStringLiteral("Application/Style"), applied->objectName());
    }
    styleSettings.sync();
}

void Controller::runVgaScript()
{
    const bool external = ConsoleSettings().value(QStringLiteral("Display/External_Enabled")).toBool();
    startInBackground(QStringLiteral("/bin/sh"),
                      {unitPath(QStringLiteral("/opt/hbi/bin/vga_set.sh")),
                       external ? QStringLiteral("start") : QStringLiteral("stop")},
                      this);
    // Nothing here reads its answer, so the screens are built while it runs.
}

void Controller::createServices()
{
    CameraController::instance();  // lives as long as the process: its chain outlasts any screen
    process = ProcessController::instance(this);
    storagebase = StorageBase::instance(this);
    storage = ExternalStorage::instance(this);
    connect(storage, &ExternalStorage::saveto_device_changed, storage, &ExternalStorage::requestUpdate);
    SurveyManager::instance(m_window->videoScreen(), this);
    connectSurveyScreens();
    SurveyManager::instance()->answerCameraWarnings(CameraController::instance()->warnings());
}

void Controller::connectSurveyScreens()
{
    CorvaneController *corvane = CorvaneController::instance();
    connect(corvane, &CorvaneController::selectSiteInfoScreen, this, &Controller::selectSiteInfoScreen);
    connect(corvane, &CorvaneController::selectWRCSiteInfoScreen, this, &Controller::selectWRCSiteInfoScreen);
    connect(corvane, &CorvaneController::selectWRCRunInfoScreen, this, &Controller::selectWRCRunInfoScreen);
    connect(corvane, &CorvaneController::selectEngNoteScreen, this, &Controller::selectEngNoteScreen);
    WinCanController *wincan = WinCanController::instance();
    connect(wincan, &WinCanController::selectWCProjectInfoScreen, this, &Controller::selectWCProjectInfoScreen);
    connect(wincan, &WinCanController::selectWCSectionInfoScreen, this, &Controller::selectWCSectionInfoScreen);
}

void Controller::logSystemVersion()
{
    QFile file(unitPath(QStringLiteral("/opt/hbi/version")));
    QString version = QStringLiteral("missing");
    if (file.open(QIODevice::ReadOnly | QIODevice::Text)) {
        const QByteArray line = file.readLine();
        version = line.isEmpty() ? QStringLiteral("empty") : QString::fromUtf8(line).trimmed();
    }
    qInfo().noquote() << QStringLiteral("System Version = ") + version;
}

void Controller::init_clock()
{
    // The power board does not exist yet; the clock only keeps the pointer.
    m_clock = new ClockControl(m_micro, this);
    if (IClock *clockScreen = m_window->clockScreen())
        clockScreen->setControl(m_clock);
    connect(m_clock, &ClockControl::timeDateSet, this, &Controller::newTimeDate);
}

void Controller::initWifi()
{
    Wifi *wifi = Wifi::instance(this);
    connect(wifi, SIGNAL(updateWifiState(int)), m_window->widget(), SLOT(updateWifiIcon(int)));
    connect(wifi, SIGNAL(wiredChanged(bool)), m_window->widget(), SLOT(setTethered(bool)));
}

void Controller::init_micro()
{
    m_micro = new Microcontroller(unitPath(QStringLiteral("/dev/ttyAMA1")), this);
    connect(m_micro, &Microcontroller::batteryCapacityChanged, this, &Controller::setBatteryLevel);
    connect(m_micro, &Microcontroller::batteryVoltageChanged, this, &Controller::setBatteryVoltage);
    connect(m_micro, &Microcontroller::batteryCurrentChanged, this, &Controller::setBatteryCurrent);
    connect(m_micro, &Microcontroller::batteryStatusChanged, this, &Controller::setBatteryChargingStates);
    connect(m_micro, &Microcontroller::backlightChanged, this, &Controller::displayBacklight);
    connect(m_micro, &Microcontroller::lampBrightnessChanged, this, &Controller::displayLampBrightness);
    connect(m_micro, &Microcontroller::microVersionReceived, this, &Controller::setMicroVersion);
    connect(m_micro, &Microcontroller::logOverTempReceived, this, &Controller::setOverTempLight);
    connect(m_micro, &Microcontroller::logUnderTempReceived, this, &Controller::setUnderTempLight);
    connect(m_micro, &Microcontroller::logShockReceived, this, &Controller::setShockLight);
    connect(m_micro, &Microcontroller::logHumReceived, this, &Controller::setHumLight);
    connect(m_micro, &Microcontroller::logOverVoltReceived, this, &Controller::setOverVoltLight);
    connect(m_micro, &Microcontroller::logUnderVoltReceived, this, &Controller::setUnderVoltLight);
    connect(m_micro, &Microcontroller::logTamperReceived, this, &Controller::setTamperLight);
    connect(m_micro, &Microcontroller::logServiceReceived, this, &Controller::setServiceLight);
    connect(m_micro, &Microcontroller::orientationChanged, this, &Controller::handleOrientationChange);
    connect(m_micro, &Microcontroller::ambientLightChanged, this, &Controller::handleAmbientLightChange);
    connect(m_micro, &Microcontroller::shutdownReceived, this, &Controller::systemShutdown);
}

QShortcut *Controller::addShortcut(const QKeySequence &keys, const char *slot)
{
    auto *shortcut = new QShortcut(keys, m_window->widget());
    shortcut->setContext(Qt::ApplicationShortcut);
    connect(shortcut, SIGNAL(activated()), this, slot);
    return shortcut;
}

void Controller::initialise_shortcuts()
{
    m_quitShortcut = addShortcut(QKeySequence(Qt::CTRL | Qt::ALT | Qt::Key_Q), SLOT(quit()));
    m_tiltShortcut = addShortcut(QKeySequence(Qt::Key_F12), SLOT(tiltSwitch()));
    m_time_display = addShortcut(QKeySequence(Qt::CTRL | Qt::Key_T), SLOT(timeDisplay()));
    m_date_display = addShortcut(QKeySequence(Qt::CTRL | Qt::Key_D), SLOT(dateDisplay()));
    m_graphics_display = addShortcut(QKeySequence(Qt::CTRL | Qt::Key_G), SLOT(graphicsDisplay()));
    m_set_counter = addShortcut(QKeySequence(Qt::CTRL | Qt::Key_M), SLOT(setCounterSC()));
}

void Controller::timeDisplay() { emit timeShortcutTriggered(); }
void Controller::dateDisplay() { emit dateShortcutTriggered(); }
void Controller::graphicsDisplay() { emit graphicsShortcutTriggered(); }
void Controller::setCounterSC() { emit setCounterShortcutTriggered(); }
void Controller::cameraControlDisplay() { emit cameraShortcutTriggered(); }

// ---- Screens ---------------------------------------------------------------

int Controller::currentScreen() const
{
    return m_screens->current();
}

QStack<int> Controller::screenStack() const
{
    return m_screens->stack();
}

void Controller::selectVideoScreen() { pushScreen(kScreenVideo); }
void Controller::selectReportScreen() { pushScreen(kScreenReport); }
void Controller::selectSettingsScreen() { pushScreen(kScreenSettings); }
void Controller::selectDiagnosticsScreen() { pushScreen(kScreenDiagnostics); }
void Controller::selectHelpScreen() { pushScreen(kScreenHelp); }
void Controller::selectSiteInfoScreen() { pushScreen(kScreenSiteInfo); }
void Controller::selectRunInfoScreen() { pushScreen(kScreenRunInfo); }
void Controller::selectWCProjectInfoScreen() { pushScreen(kScreenWCProjectInfo); }
void Controller::selectWCSectionInfoScreen() { pushScreen(kScreenWCSectionInfo); }
void Controller::selectWCSectionInfoScreen2() { pushScreen(kScreenWCSectionInfo2); }
void Controller::selectEngNoteScreen() { pushScreen(kScreenEngNote); }
void Controller::selectWRCSiteInfoScreen() { pushScreen(kScreenWRCSiteInfo); }
void Controller::selectWRCRunInfoScreen() { pushScreen(kScreenWRCRunInfo); }

void Controller::pushScreen(int n)
{
    m_screens->push(n);
}

void Controller::popScreen()
{
    m_screens->pop();
}

void Controller::setSettingsScreen(int tab)
{
    emit setActiveScreen(tab);
}

void Controller::reportUp()
{
    if (ReportManager *browser = m_screens->reportManager())
        browser->hierarchyUp();
}

void Controller::reportDown(int row)
{
    if (ReportManager *browser = m_screens->reportManager())
        browser->hierarchyDown(row);
}

// ---- Power board -------------------------------------------------------------

void Controller::lampUp()
{
    m_micro->setLampBrightnessDelta(51);
}

void Controller::lampDown()
{
    m_micro->setLampBrightnessDelta(-51);
}

void Controller::lampOff()
{
    m_micro->setLampOff();
}

void Controller::backlightUp()
{
    setNewBacklight(m_backlight + kBacklightStep);
}

void Controller::backlightDown()
{
    setNewBacklight(m_backlight - kBacklightStep);
}

void Controller::setNewBacklight(int level)
{
    setBacklight(level);
}

void Controller::setBacklight(int level)
{
    m_micro->setBacklight(level);
    m_backlight = m_micro->getBacklight();
}

void Controller::triggerBacklightUpdate()
{
    m_micro->triggerBacklightUpdate();
    m_backlight = m_micro->getBacklight();
}

void Controller::toggleSonde()
{
    CameraController::instance()->SetSondeStatus();
}

void Controller::zeroCounter()
{
    m_micro->zeroCounter();
}

void Controller::setCounter()
{
    setCounterText(ConsoleSettings().value(QStringLiteral("counter/text"), QStringLiteral("0.00")).toString());
}

void Controller::setCounterText(const QString &text)
{
    ConsoleSettings settings;
    const float meterage = CoilerDistance::storedMeterage(settings);
    const bool imperial = settings.value(QStringLiteral("Coiler/Imperial"), false).toBool();
    int counts = 0;
    if (!CoilerDistance::counterTextToCounts(text, meterage, imperial, &counts))
        return;
    m_micro->setCounter(counts);
}

float Controller::counter()
{
    ConsoleSettings settings;
    m_coiler_meterage = CoilerDistance::storedMeterage(settings);
    const bool imperial = settings.value(QStringLiteral("Coiler/Imperial"), false).toBool();
    return CoilerDistance::countsToDistance(m_micro->getCounter(), m_coiler_meterage, imperial);
}

void Controller::setFGCalibration()
{
    m_micro->batterySetCalibrationMode();
}

void Controller::clearLog()
{
    m_micro->clearLog();
    if (powerBoardType) {
        m_micro->clearCamLog();
        CameraController::instance()->ClearCameraLogs();
    }
    if (IStatus *status = m_window->statusScreen())
        status->clearFaults();
}

bool Controller::isNewPowerBoard(const QString &version)
{
    if (!version.contains(QLatin1Char('.')))
        return false;
    QString major = version.split(QLatin1Char('.')).first();
    major.remove(QRegularExpression(QStringLiteral("[a-zA-Z]")));
    bool ok = false;
    const int number = major.toInt(&ok, 10);
    return ok && number > 1;
}

void Controller::handlePowerBoardID(QString version)
{
    powerBoardType = isNewPowerBoard(version);
    qInfo() << "Power board" << version << (powerBoardType ? "is new type" : "is old type");
    CameraController::instance()->handlePowerBoardID(powerBoardType);
}

void Controller::setMicroVersion(QString version)
{
    if (IStatus *status = m_window->statusScreen())
        status->setMicroVersion(version);
    handlePowerBoardID(version);
}

void Controller::toStatus(void (IStatus::*set)(int), int value)
{
    if (IStatus *status = m_window->statusScreen())
        (status->*set)(value);
}

void Controller::toVideoScreen(void (IVideoScreen::*set)(int), int value)
{
    if (IVideoScreen *video = m_window->videoScreen())
        (video->*set)(value);
}

void Controller::setBatteryVoltage(int millivolts) { toStatus(&IStatus::setBatteryVoltage, millivolts); }

void Controller::setBatteryCurrent(int milliamps)
{
    if (IStatus *status = m_window->statusScreen())
        status->setBatteryCurrent(static_cast<int16_t>(milliamps));
}

void Controller::setOverTempLight(int state) { toStatus(&IStatus::setOverTempLight, state); }
void Controller::setUnderTempLight(int state) { toStatus(&IStatus::setUnderTempLight, state); }
void Controller::setShockLight(int state) { toStatus(&IStatus::setShockLight, state); }
void Controller::setHumLight(int state) { toStatus(&IStatus::setHumidityLight, state); }
void Controller::setOverVoltLight(int state) { toStatus(&IStatus::setOverVoltLight, state); }
void Controller::setUnderVoltLight(int state) { toStatus(&IStatus::setUnderVoltLight, state); }
void Controller::setTamperLight(int state) { toStatus(&IStatus::setTamperLight, state); }
void Controller::setServiceLight(int state) { toStatus(&IStatus::setServiceLight, state); }
void Controller::setBatteryLevel(int level) { toVideoScreen(&IVideoScreen::setBatteryLevel, level); }
void Controller::setBatteryChargingStates(int state) { toVideoScreen(&IVideoScreen::setChargingState, state); }

void Controller::displayLampBrightness(int level)
{
    toVideoScreen(&IVideoScreen::displayLampBrightness, level * 100 / 255);
}

void Controller::displayBacklight(int level)
{
    qDebug() << "Backlight now" << level;
}

void Controller::handleOrientationChange(int x, int y, int z)
{
    qInfo().noquote() << QStringLiteral("new orientation = (%1, %2, %3)").arg(x).arg(y).arg(z);
}

int Controller::backlightForAmbientLight(int level)
{
    if (level < 64)
        return 0x40;
    if (level < 2048)
        return 127;
    if (level < 8192)
        return 191;
    return 255;
}

void Controller::handleAmbientLightChange(int level)
{
    if (m_lid_shut)
        return;
    setBacklight(backlightForAmbientLight(level));
}

void Controller::tiltSwitch()
{
    if (!ConsoleSettings().value(QStringLiteral("Backlight/Auto_Off")).toBool())
        return;
    setBacklight(0);
    m_tilt_timer->setSingleShot(true);
    m_tilt_timer->start(kTiltBlankMs);
}

void Controller::tilt_switch_timeout()
{
    triggerBacklightUpdate();
}

// ---- Start-up, run time, shutdown -------------------------------------------

void Controller::fake_start_up_progress()
{
    const int count = m_progress++;
    ISplashScreen *splash = m_window->splashScreen();
    auto progress = [splash, count](const QString &text) {
        if (splash)
            splash->setProgress(text, count);
    };

    switch (count) {
    case 0:
        setBacklight(128);
        m_micro->triggerBatteryUpdate();
        break;
    case 1:
        triggerBacklightUpdate();
        return;
    case 10:
        m_micro->enableCamera(true);
        CameraController::instance()->enablePolling();
        break;
    case 30:
        storage->requestUpdate();
        break;
    case 100:
        progress(tr("Done"));
        m_startup_timer->stop();
        m_startup_timer->deleteLater();
        m_startup_timer = nullptr;
        pushScreen(kScreenLogin);
        return;
    default:
        break;
    }
    progress(count % 10 == 0 ? tr("Initialising") : QString());
}

void Controller::updateRunTime()
{
    ConsoleSettings settings;
    const qlonglong seconds = settings.value(QStringLiteral("Time/Run"), QStringLiteral("0")).toLongLong();
    settings.setValue(QStringLiteral("Time/Run"), QString::number(seconds + kRunTimerMs / 1000));
    m_run_timer->start(kRunTimerMs);
}

void Controller::newTimeDate()
{
    qInfo() << "System time and date changed";
    emit updateTimeDate();
}

void Controller::systemShutdown()
{
    // The board may repeat its request; one shutdown is enough.
    if (m_shutdownRequested)
        return;
    m_shutdownRequested = true;
    qInfo() << "Shutdown Requested";
    // The recording is closed before the power goes, so its file is complete.
    SurveyManager::instance()->handleAction(SurveyManager::kActionStop, 0);
    Wifi *wifi = Wifi::instance();
    if (wifi->ssid() != QLatin1String("off")) {
        wifi->setShutdown();
        connect(this, &Controller::shutdownWiFi, wifi, &Wifi::wifi_disconnect_forget, Qt::UniqueConnection);
        emit shutdownWiFi();
    }
    m_micro->setBuzzer(false);
    QTimer::singleShot(kShutdownDelayMs, this, &Controller::shutdown);
    emit shutdownMessage();
}

void Controller::shutdown()
{
    qInfo() << "Lanthorn shutting down...";
    QProcess script;
    script.start(QStringLiteral("sudo"), {unitPath(QStringLiteral("/opt/hbi/bin/shutdown.sh"))});
    script.waitForFinished(30000);
    qInfo().noquote() << QString::fromLocal8Bit(script.readAllStandardOutput()).trimmed();
}

void Controller::quit()
{
    puts("Quit!\r");
    SurveyManager::instance()->handleAction(SurveyManager::kActionStop, 0);
    QCoreApplication::quit();
}

// ---- Miscellaneous -------------------------------------------------------------

void Controller::takeScreenshot()
{
    Screenshot::take(storagebase);
}

void Controller::showCameraSettings()
{
    cameraControlDisplay();
}

void Controller::clearBuffers()
{
    qInfo() << "Clearing buffers";
    emit clearAllBuffers();
}

void Controller::handleComment(QKeyEvent &event)
{
    emit sendKeyPress(event);
}

void Controller::batteryTest()
{
    m_batteryTestLevel = (m_batteryTestLevel + 10) % 110;
    setBatteryLevel(m_batteryTestLevel);
}

void Controller::batteryStateTest()
{
    m_batteryTestState = (m_batteryTestState + 1) % 4;
    setBatteryChargingStates(m_batteryTestState);
}
