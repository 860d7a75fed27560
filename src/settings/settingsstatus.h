#pragma once

#include "settings/istatus.h"

#include <QDate>
#include <QWidget>
#include <array>

class QLabel;
class CameraController;

// The status tab of the settings screen: what the power board says about itself
// and its event logs, one line each.
class SettingsStatus : public QWidget, public IStatus
{
    Q_OBJECT
public:
    enum Light { kOverTemp, kUnderTemp, kShock, kHumidity, kOverVolt, kUnderVolt, kTamper, kService, kLightCount };

    explicit SettingsStatus(QWidget *parent = nullptr);

    void setMicroVersion(QString version) override;
    void setOverTempLight(int state) override { setLight(kOverTemp, state); }
    void setUnderTempLight(int state) override { setLight(kUnderTemp, state); }
    void setShockLight(int state) override { setLight(kShock, state); }
    void setHumidityLight(int state) override { setLight(kHumidity, state); }
    void setOverVoltLight(int state) override { setLight(kOverVolt, state); }
    void setUnderVoltLight(int state) override { setLight(kUnderVolt, state); }
    void setTamperLight(int state) override { setLight(kTamper, state); }
    void setServiceLight(int state) override { setLight(kService, state); }
    void setFault(bool fault) override;
    void setFatalFault(bool fault) override;
    void setAdviceText() override;
    void clearFaults() override;
    void setBatteryVoltage(int millivolts) override;
    void setBatteryCurrent(int16_t milliamps) override;

    int light(Light light) const { return m_lights[light]; }
    QString lightText(Light light) const;
    QString versionText() const;
    QString batteryText() const;
    QString adviceText() const;
    // Camera presence, serial number, firmware and service date, one line.
    QString cameraText() const;

    // Shows what the camera controller learns of the camera.
    void followCamera(CameraController *camera);

public slots:
    void setCameraState(int state);
    void setCameraSerial(const QString &serial);
    void setCameraFirmware(const QString &firmware);
    void setCameraMaintenance(const QDate &date, bool overdue);

private:
    void setLight(Light light, int state);
    QString lightName(Light light) const;
    static QString stateName(int state);

    std::array<int, kLightCount> m_lights{};
    std::array<QLabel *, kLightCount> m_lightLabels{};
    QLabel *m_version = nullptr;
    QLabel *m_voltage = nullptr;
    QLabel *m_current = nullptr;
    QLabel *m_advice = nullptr;
    QLabel *m_camera = nullptr;
    QLabel *m_cameraSerial = nullptr;
    QLabel *m_cameraFirmware = nullptr;
    QLabel *m_cameraService = nullptr;
    bool m_fault = false;
    bool m_fatal = false;
};
