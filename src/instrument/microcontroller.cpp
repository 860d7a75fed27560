#include "instrument/microcontroller.h"

#include "instrument/microserialdelegate.h"
#include "instrument/serialport.h"

#include <QDebug>
#include <QSettings>

#include <ctime>

namespace {
constexpr int kMaxLevel = 255;
// Backlight/Level holds a percentage; an unset level counts as this many.
constexpr int kDefaultBacklightPercent = 128;

int clampLevel(int level)
{
    return qBound(0, level, kMaxLevel);
}
}

QString Microcontroller::logKeyword(Log log)
{
    static const char *const keywords[kLogCount] = {"LOG:TMPR", "LOG:SHK", "LOG:HUM", "LOG:OV", "LOG:UV",
                                                    "LOG:OT",   "LOG:UT",  "LOG:ID",  "LOG:STAT"};
    return QString::fromLatin1(keywords[log]);
}

Microcontroller::Microcontroller(const QString &device, QObject *parent)
    : QObject(parent)
{
    auto *port = new SerialPort(device, kBaud, this);
    m_serial = port;
    m_serial_delegate = new MicroSerialDelegate(this, this);
    m_serial->setDelegate(m_serial_delegate);
    // A board that is not there yet must not stop the console: commands to a
    // closed port are dropped.
    m_serial->open();
    sendStartupBurst();
    setRTC();
    connectCameraRequests();
}

Microcontroller::~Microcontroller()
{
    m_serial->close();
}

void Microcontroller::sendStartupBurst()
{
    send(QStringLiteral("*ID?"));
    for (Log log : {kLogID, kLogTamper, kLogHum, kLogOV, kLogUV, kLogOT, kLogUT, kLogShock})
        triggerLog(log);
    // Kept without its line end: the board has always taken it together with
    // the clock command that follows on the same line.
    m_serial->sendText("BFG:VOLT?");
}

void Microcontroller::connectCameraRequests()
{
    CameraController *camera = CameraController::instance();
    const auto unique = Qt::UniqueConnection;
    connect(camera, &CameraController::getCoilerID, this, &Microcontroller::getCoilerID, unique);
    connect(camera, &CameraController::setCoilerEQ, this, &Microcontroller::setCoilerEQ, unique);
    connect(camera, &CameraController::setCoilerType, this, &Microcontroller::setCoilerType, unique);
    connect(camera, &CameraController::getCamVolt, this, &Microcontroller::getCamVolt, unique);
    connect(camera, &CameraController::getCamCurrent, this, &Microcontroller::getCamCurrent, unique);
    connect(camera, &CameraController::getCamTemp, this, &Microcontroller::getCamTemp, unique);
    connect(camera, &CameraController::getCamPressure, this, &Microcontroller::getCamPressure, unique);
    connect(camera, &CameraController::getCamOrientation, this, &Microcontroller::getCamOrientation, unique);
    connect(camera, &CameraController::getCamSerial, this, &Microcontroller::getCamSerial, unique);
    connect(camera, &CameraController::getCamFW, this, &Microcontroller::getCamFW, unique);
    connect(camera, &CameraController::getCamPart, this, &Microcontroller::getCamPart, unique);
    connect(camera, &CameraController::getCamHW, this, &Microcontroller::getCamHW, unique);
    connect(camera, &CameraController::getCamManufactureDate, this, &Microcontroller::getCamManufactureDate, unique);
    connect(camera, &CameraController::getCamMaintenanceDate, this, &Microcontroller::getCamMaintenanceDate, unique);
    connect(camera, &CameraController::getCamStatus, this, &Microcontroller::getCamStatus, unique);
    connect(camera, &CameraController::setCamState, this, &Microcontroller::setCamState, unique);
    connect(camera, &CameraController::getCamBoard, this, &Microcontroller::getCamBoard, unique);
    connect(camera, &CameraController::setSonde, this, &Microcontroller::setSonde, unique);
    connect(camera, &CameraController::getSonde, this, &Microcontroller::getSonde, unique);
    connect(camera, &CameraController::getSondeFrequency, this, &Microcontroller::getSondeFrequency, unique);
    connect(camera, &CameraController::getAtexPass, this, &Microcontroller::getAtexPass, unique);
    connect(camera, &CameraController::sendAtexPass, this, &Microcontroller::sendAtexPass, unique);
    connect(camera, &CameraController::requestCamLogID, this, &Microcontroller::getCamLogID, unique);
    connect(camera, &CameraController::requestCamLogOP, this, &Microcontroller::getCamLogOP, unique);
    connect(camera, &CameraController::requestCamLogUP, this, &Microcontroller::getCamLogUP, unique);
    connect(camera, &CameraController::requestCamLogOT, this, &Microcontroller::getCamLogOT, unique);
    connect(camera, &CameraController::requestCamLogUT, this, &Microcontroller::getCamLogUT, unique);
    connect(camera, &CameraController::requestCamLogOV, this, &Microcontroller::getCamLogOV, unique);
    connect(camera, &CameraController::requestCamLogUV, this, &Microcontroller::getCamLogUV, unique);
    connect(this, &Microcontroller::sentAtexPass, camera, &CameraController::passCodeSent, unique);
}

void Microcontroller::send(const QString &command)
{
    m_serial->sendText((command + QLatin1Char('\n')).toLatin1().constData());
}

void Microcontroller::query(CameraController::CameraCommand command)
{
    send(MicroSerialDelegate::cameraKeyword(command) + QLatin1Char('?'));
}

void Microcontroller::storeLog(Log log, const QString &record)
{
    m_logData[log] = record;
    m_logUpdated[log] = true;
}

void Microcontroller::setBacklight(int level)
{
    m_backlight = clampLevel(level);
    send(QStringLiteral("BLT %1").arg(m_backlight));
    emit backlightChanged(m_backlight);
}

void Microcontroller::setBacklightDelta(int delta)
{
    setBacklight(m_backlight + delta);
}

void Microcontroller::triggerBacklightUpdate()
{
    int percent = QSettings(QStringLiteral("Corvane"), QStringLiteral("Ductline"))
                      .value(QStringLiteral("Backlight/Level")).toInt();
    if (percent == 0)
        percent = kDefaultBacklightPercent;
    setBacklight(percent * kMaxLevel / 100);
}

void Microcontroller::setLampBrightness(int level)
{
    m_lamp = clampLevel(level);
    send(QStringLiteral("CLT %1").arg(m_lamp));
    emit lampBrightnessChanged(m_lamp);
}

void Microcontroller::setLampBrightnessDelta(int delta)
{
    if (!m_lamp_on && m_lamp > 0) {
        // The first press after "lamp off" brings back the old brightness.
        if (delta > 0) {
            setLampBrightness(m_lamp);
            m_lamp_on = true;
        }
        return;
    }
    setLampBrightness(m_lamp + delta);
    m_lamp_on = true;
}

void Microcontroller::setLampOff()
{
    send(QStringLiteral("CLT 0"));
    m_lamp_on = false;
    emit lampBrightnessChanged(0);
}

void Microcontroller::batterySetCalibrationMode()
{
    send(QStringLiteral("BFG:CAL"));
}

void Microcontroller::triggerBatteryUpdate()
{
    triggerBatteryCapUpdate();
    send(QStringLiteral("BFG:STAT?"));
}

void Microcontroller::triggerBatteryCapUpdate()
{
    send(QStringLiteral("BFG:CAP?"));
}

void Microcontroller::triggerOrientation()
{
    send(QStringLiteral("ACC:OR?"));
}

void Microcontroller::triggerLog(Log log)
{
    send(logKeyword(log) + QLatin1Char('?'));
}

void Microcontroller::enableCamera(bool on)
{
    send(QStringLiteral("CLT:OUT %1").arg(on ? 1 : 0));
}

void Microcontroller::zeroCounter()
{
    send(QStringLiteral("QER 0"));
    m_counter = 0;
}

void Microcontroller::setCounter(int counts)
{
    send(QStringLiteral("QER %1").arg(counts));
    m_counter = counts;
}

void Microcontroller::clearLog()
{
    setRTC();
    send(QStringLiteral("LOG:CLS"));
    m_service = false;
}

void Microcontroller::setRTC()
{
    static const char *const weekdays[] = {"SUN", "MON", "TUE", "WED", "THU", "FRI", "SAT"};
    const std::time_t now = std::time(nullptr);
    std::tm utc;
    // The board's clock runs in UTC whatever the console's time zone.
    if (now == std::time_t(-1) || !gmtime_r(&now, &utc)) {
        qWarning() << "Get time failed";
        return;
    }
    send(QString::asprintf("RTC %04d%02d%02d %02d%02d%02d %s", utc.tm_year + 1900, utc.tm_mon + 1, utc.tm_mday,
                           utc.tm_hour, utc.tm_min, utc.tm_sec, weekdays[utc.tm_wday % 7]));
}

void Microcontroller::setBuzzer(bool on)
{
    m_buzzer = on;
    send(QStringLiteral("BUZ:OUT %1").arg(on ? 1 : 0));
}

void Microcontroller::getCoilerID() { query(CameraController::kCoilID); }

void Microcontroller::setCoilerEQ(int eq)
{
    const QString keyword = MicroSerialDelegate::cameraKeyword(CameraController::kCoilEQ);
    send(keyword + QStringLiteral(" %1").arg(eq));
    query(CameraController::kCoilEQ);
}

void Microcontroller::setCoilerType(bool newType)
{
    const QString keyword = MicroSerialDelegate::cameraKeyword(CameraController::kCoilType);
    send(keyword + (newType ? QStringLiteral(" 1") : QStringLiteral(" 0")));
    query(CameraController::kCoilType);
}

void Microcontroller::getCamVolt() { query(CameraController::kCamVolt); }
void Microcontroller::getCamCurrent() { query(CameraController::kCamCurrent); }
void Microcontroller::getCamTemp() { query(CameraController::kCamTemp); }
void Microcontroller::getCamPressure() { query(CameraController::kCamPressure); }
void Microcontroller::getCamOrientation() { query(CameraController::kCamOrientation); }
void Microcontroller::getCamSerial() { query(CameraController::kCamSerial); }
void Microcontroller::getCamFW() { query(CameraController::kCamFW); }
void Microcontroller::getCamPart() { query(CameraController::kCamPart); }
void Microcontroller::getCamHW() { query(CameraController::kCamHW); }
void Microcontroller::getCamBoard() { query(CameraController::kCamBoard); }
void Microcontroller::getCamManufactureDate() { query(CameraController::kCamManuf); }
void Microcontroller::getCamMaintenanceDate() { query(CameraController::kCamMaintenance); }
void Microcontroller::getCamStatus() { query(CameraController::kCamStatus); }

void Microcontroller::setCamState(int state)
{
    const QString keyword = MicroSerialDelegate::cameraKeyword(CameraController::kCamState);
    if (state >= 1 && state <= 4)
        send(keyword + QStringLiteral(" %1").arg(state));
    query(CameraController::kCamState);
}

void Microcontroller::setSonde(bool on)
{
    const QString keyword = MicroSerialDelegate::cameraKeyword(CameraController::kCamSondeStatus);
    send(keyword + (on ? QStringLiteral(" 1") : QStringLiteral(" 0")));
}

void Microcontroller::getSonde() { query(CameraController::kCamSondeStatus); }
void Microcontroller::getSondeFrequency() { query(CameraController::kCamSondeFrequency); }
void Microcontroller::getCamLogID() { query(CameraController::kCamLogID); }
void Microcontroller::getCamLogOP() { query(CameraController::kCamLogOP); }
void Microcontroller::getCamLogUP() { query(CameraController::kCamLogUP); }
void Microcontroller::getCamLogOT() { query(CameraController::kCamLogOT); }
void Microcontroller::getCamLogUT() { query(CameraController::kCamLogUT); }
void Microcontroller::getCamLogOV() { query(CameraController::kCamLogOV); }
void Microcontroller::getCamLogUV() { query(CameraController::kCamLogUV); }

void Microcontroller::clearCamLog()
{
    send(QStringLiteral("CAM:LOG:CLS"));
}

void Microcontroller::getAtexPass() { query(CameraController::kCamPassStatus); }

void Microcontroller::setAtexPass(QString code)
{
    send(MicroSerialDelegate::cameraKeyword(CameraController::kCamPassStatus) + QStringLiteral(":SET ") + code
         + QStringLiteral(" FFFF "));
}

void Microcontroller::sendAtexPass(QString code)
{
    send(MicroSerialDelegate::cameraKeyword(CameraController::kCamPassStatus) + QLatin1Char(' ') + code
         + QStringLiteral(" FFFF "));
    emit sentAtexPass();
}
