#include "settings/settingsstatus.h"

#include "instrument/cameracontroller.h"

#include <QFormLayout>
#include <QLabel>

SettingsStatus::SettingsStatus(QWidget *parent)
    : QWidget(parent)
{
    auto *form = new QFormLayout(this);
    m_version = new QLabel(tr("unknown"), this);
    m_voltage = new QLabel(QStringLiteral("-"), this);
    m_current = new QLabel(QStringLiteral("-"), this);
    form->addRow(tr("Power board"), m_version);
    form->addRow(tr("Battery voltage"), m_voltage);
    form->addRow(tr("Battery current"), m_current);
    m_camera = new QLabel(this);
    m_cameraSerial = new QLabel(QStringLiteral("-"), this);
    m_cameraFirmware = new QLabel(QStringLiteral("-"), this);
    m_cameraService = new QLabel(QStringLiteral("-"), this);
    form->addRow(tr("Camera"), m_camera);
    form->addRow(tr("Camera serial number"), m_cameraSerial);
    form->addRow(tr("Camera firmware"), m_cameraFirmware);
    form->addRow(tr("Camera last service"), m_cameraService);
    setCameraState(CameraController::kOldCamMissing);
    for (int light = 0; light < kLightCount; ++light) {
        m_lightLabels[light] = new QLabel(stateName(0), this);
        form->addRow(lightName(Light(light)), m_lightLabels[light]);
    }
    m_advice = new QLabel(this);
    m_advice->setWordWrap(true);
    form->addRow(m_advice);
}

QString SettingsStatus::lightName(Light light) const
{
    switch (light) {
    case kOverTemp:
        return tr("Over temperature");
    case kUnderTemp:
        return tr("Under temperature");
    case kShock:
        return tr("Shock");
    case kHumidity:
        return tr("Humidity");
    case kOverVolt:
        return tr("Over voltage");
    case kUnderVolt:
        return tr("Under voltage");
    case kTamper:
        return tr("Tamper");
    case kService:
        return tr("Service");
    case kLightCount:
        break;
    }
    return QString();
}

QString SettingsStatus::stateName(int state)
{
    switch (state) {
    case 0:
        return tr("OK");
    case 1:
        return tr("Warning");
    case 2:
        return tr("Fault");
    default:
        return tr("Log error");
    }
}

void SettingsStatus::setLight(Light light, int state)
{
    m_lights[light] = state;
    m_lightLabels[light]->setText(stateName(state));
    setAdviceText();
}

QString SettingsStatus::lightText(Light light) const
{
    return m_lightLabels[light]->text();
}

void SettingsStatus::setMicroVersion(QString version)
{
    m_version->setText(version);
}

QString SettingsStatus::versionText() const
{
    return m_version->text();
}

void SettingsStatus::setBatteryVoltage(int millivolts)
{
    m_voltage->setText(QStringLiteral("%1 V").arg(millivolts / 1000.0, 0, 'f', 2));
}

void SettingsStatus::setBatteryCurrent(int16_t milliamps)
{
    m_current->setText(QStringLiteral("%1 mA").arg(milliamps));
}

QString SettingsStatus::batteryText() const
{
    return m_voltage->text() + QLatin1Char(' ') + m_current->text();
}

void SettingsStatus::setFault(bool fault)
{
    m_fault = fault;
    setAdviceText();
}

void SettingsStatus::setFatalFault(bool fault)
{
    m_fatal = fault;
    setAdviceText();
}

void SettingsStatus::setAdviceText()
{
    QStringList raised;
    for (int light = 0; light < kLightCount; ++light) {
        if (m_lights[light] != 0)
            raised << lightName(Light(light));
    }
    QString advice;
    if (m_fatal)
        advice = tr("The unit has a fault: contact service before use.");
    else if (m_fault || !raised.isEmpty())
        advice = tr("Check with service: %1").arg(raised.join(QStringLiteral(", ")));
    m_advice->setText(advice);
}

QString SettingsStatus::adviceText() const
{
    return m_advice->text();
}

void SettingsStatus::clearFaults()
{
    m_fault = false;
    m_fatal = false;
    for (int light = 0; light < kLightCount; ++light) {
        m_lights[light] = 0;
        m_lightLabels[light]->setText(stateName(0));
    }
    setAdviceText();
}

void SettingsStatus::followCamera(CameraController *camera)
{
    connect(camera, &CameraController::newState, this, &SettingsStatus::setCameraState);
    connect(camera, &CameraController::newSerial, this, &SettingsStatus::setCameraSerial);
    connect(camera, &CameraController::newFW, this, &SettingsStatus::setCameraFirmware);
    connect(camera, &CameraController::newMaintenance, this, &SettingsStatus::setCameraMaintenance);
}

void SettingsStatus::setCameraState(int state)
{
    switch (state) {
    case CameraController::kOldCamPresent:
        m_camera->setText(tr("Connected"));
        break;
    case CameraController::kNewCamPresent:
        m_camera->setText(tr("Connected, reporting"));
        break;
    default:
        m_camera->setText(tr("Not connected"));
        // What a camera that has gone reported no longer holds.
        m_cameraSerial->setText(QStringLiteral("-"));
        m_cameraFirmware->setText(QStringLiteral("-"));
        m_cameraService->setText(QStringLiteral("-"));
        break;
    }
}

void SettingsStatus::setCameraSerial(const QString &serial)
{
    m_cameraSerial->setText(serial);
}

void SettingsStatus::setCameraFirmware(const QString &firmware)
{
    m_cameraFirmware->setText(firmware);
}

void SettingsStatus::setCameraMaintenance(const QDate &date, bool overdue)
{
    const QString when = date.toString(QStringLiteral("dd/MM/yyyy"));
    m_cameraService->setText(overdue ? tr("%1, service due").arg(when) : when);
}

QString SettingsStatus::cameraText() const
{
    return QStringLiteral("%1; %2; %3; %4")
        .arg(m_camera->text(), m_cameraSerial->text(), m_cameraFirmware->text(), m_cameraService->text());
}
