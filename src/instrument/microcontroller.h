#pragma once

#include "instrument/cameracontroller.h"

#include <QObject>
#include <QString>
#include <array>

class ISerial;
class MicroSerialDelegate;

// The command side of the power board: owns the serial line and its decoder,
// caches what the board last said and turns requests into text commands. The
// board acknowledges nothing, so every command is fire and forget.
class Microcontroller : public QObject
{
    Q_OBJECT
public:
    // The board's event logs, each asked for by "<keyword>?".
    enum Log { kLogTamper, kLogShock, kLogHum, kLogOV, kLogUV, kLogOT, kLogUT, kLogID, kLogStat, kLogCount };
    Q_ENUM(Log)

    static constexpr int kBaud = 115200;
    static QString logKeyword(Log log);

    explicit Microcontroller(const QString &device, QObject *parent = nullptr);
    ~Microcontroller() override;

    ISerial *serial() const { return m_serial; }
    MicroSerialDelegate *delegate() const { return m_serial_delegate; }

    int getBacklight() const { return m_backlight; }
    int getLampBrightness() const { return m_lamp_on ? m_lamp : 0; }
    long getCounter() const { return m_counter; }
    int getBatteryStatus() const { return m_bat_status; }
    bool getBuzzer() const { return m_buzzer; }
    bool getLowBat() const { return m_low_bat; }
    bool tamper() const { return m_tamper; }
    bool service() const { return m_service; }
    QString logText(Log log) const { return m_logData[log]; }
    bool logUpdated(Log log) const { return m_logUpdated[log]; }

    // What the decoder learns from the board.
    void storeCounter(long counter) { m_counter = counter; }
    void storeBatteryStatus(int status) { m_bat_status = status; }
    void setLowBat(bool low) { m_low_bat = low; }
    void setTamper() { m_tamper = true; }
    void setService(bool due) { m_service = due; }
    void storeLog(Log log, const QString &record);
    void markLogUpdated(Log log) { m_logUpdated[log] = true; }

public slots:
    void setBacklight(int level);
    void setBacklightDelta(int delta);
    void triggerBacklightUpdate();
    void setLampBrightness(int level);
    void setLampBrightnessDelta(int delta);
    void setLampOff();
    void batterySetCalibrationMode();
    void triggerBatteryUpdate();
    void triggerBatteryCapUpdate();
    void triggerOrientation();
    void triggerLog(Log log);
    void triggerLogHum() { triggerLog(kLogHum); }
    void triggerLogTamper() { triggerLog(kLogTamper); }
    void triggerLogShock() { triggerLog(kLogShock); }
    void triggerLogOV() { triggerLog(kLogOV); }
    void triggerLogUV() { triggerLog(kLogUV); }
    void triggerLogOT() { triggerLog(kLogOT); }
    void triggerLogUT() { triggerLog(kLogUT); }
    void triggerLogID() { triggerLog(kLogID); }
    void triggerLogStat() { triggerLog(kLogStat); }
    void enableCamera(bool on);
    void zeroCounter();
    void setCounter(int counts);
    void clearLog();
    void setRTC();
    void setBuzzer(bool on);

    void getCoilerID();
    void setCoilerEQ(int eq);
    void setCoilerType(bool newType);
    void getCamVolt();
    void getCamCurrent();
    void getCamTemp();
    void getCamPressure();
    void getCamOrientation();
    void getCamSerial();
    void getCamFW();
    void getCamPart();
    void getCamHW();
    void getCamBoard();
    void getCamManufactureDate();
    void getCamMaintenanceDate();
    void getCamStatus();
    void setCamState(int state);
    void setSonde(bool on);
    void getSonde();
    void getSondeFrequency();
    void getCamLogID();
    void getCamLogOP();
    void getCamLogUP();
    void getCamLogOT();
    void getCamLogUT();
    void getCamLogOV();
    void getCamLogUV();
    void clearCamLog();
    void getAtexPass();
    void setAtexPass(QString code);
    void sendAtexPass(QString code);

signals:
    void batteryCapacityChanged(int level);
    void batteryVoltageChanged(int millivolts);
    void batteryCurrentChanged(qint16 milliamps);
    void batteryStatusChanged(int status);
    void backlightChanged(int level);
    void lampBrightnessChanged(int level);
    void microVersionReceived(QString version);
    void logOverTempReceived(int code);
    void logUnderTempReceived(int code);
    void logShockReceived(int code);
    void logHumReceived(int code);
    void logOverVoltReceived(int code);
    void logUnderVoltReceived(int code);
    void logTamperReceived(int code);
    void logServiceReceived(int code);
    void orientationChanged(int x, int y, int z);
    void ambientLightChanged(int level);
    void shutdownReceived();
    void sentAtexPass();

private:
    void send(const QString &command);
    void query(CameraController::CameraCommand command);
    void sendStartupBurst();
    void connectCameraRequests();

    std::array<QString, kLogCount> m_logData;
    std::array<bool, kLogCount> m_logUpdated{};
    ISerial *m_serial = nullptr;
    MicroSerialDelegate *m_serial_delegate = nullptr;
    int m_backlight = 0;
    int m_lamp = 0;
    bool m_lamp_on = false;
    long m_counter = 0;
    int m_bat_status = 0;
    bool m_buzzer = false;
    bool m_tamper = false;
    bool m_service = false;
    bool m_low_bat = false;
};
