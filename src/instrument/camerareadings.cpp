#include "instrument/camerareadings.h"

#include "instrument/cameracontroller.h"

#include <QStringList>

namespace {
const char kDateFormat[] = "dd,MM,yyyy";
// The board ID comes as three 32-bit numbers of 8 hexadecimal digits each.
constexpr int kBoardGroups = 3;
constexpr int kBoardGroupDigits = 8;

int number(const QString &data)
{
    return data.trimmed().toInt();
}

QDate date(const QString &data)
{
    return QDate::fromString(data.trimmed(), QLatin1String(kDateFormat));
}
} // namespace

bool CameraReadings::takeInformation(int command, const QString &data)
{
    switch (command) {
    case CameraController::kCamSerial:
        return takeSerial(data);
    case CameraController::kCamFW:
        camFW = data.trimmed();
        camFWReceived = true;
        return true;
    case CameraController::kCamPart:
        camPart = number(data);
        camPartReceived = true;
        return true;
    case CameraController::kCamHW:
        camHW = number(data);
        camHWReceived = true;
        return true;
    case CameraController::kCamBoard:
        return takeBoard(data);
    case CameraController::kCamManuf:
        camManuf = date(data);
        camManufReceived = true;
        return true;
    case CameraController::kCamMaintenance:
        camMaintenance = date(data);
        camMaintenanceReceived = true;
        return true;
    case CameraController::kCamSondeFrequency:
        camSondeFrequency = number(data);
        camSondeFrequencyReceived = true;
        return true;
    default:
        return false;
    }
}

bool CameraReadings::takeSerial(const QString &data)
{
    bool ok = false;
    const qulonglong serial = data.trimmed().toULongLong(&ok, 16);
    if (!ok)
        return false;
    camSerial = QString::number(serial);
    camSerialReceived = true;
    return true;
}

bool CameraReadings::takeBoard(const QString &data)
{
    const QString digits = data.trimmed();
    bool ok = digits.size() == kBoardGroups * kBoardGroupDigits;
    QStringList parts;
    for (int i = 0; ok && i < kBoardGroups; ++i)
        parts << QString::number(digits.mid(i * kBoardGroupDigits, kBoardGroupDigits).toULongLong(&ok, 16));
    if (!ok)
        return false;
    camBoard = parts.join(QLatin1Char(':'));
    camBoardReceived = true;
    return true;
}

void CameraReadings::takeStatus(int command, const QString &data)
{
    const QStringList values = data.split(QLatin1Char(','));
    switch (command) {
    case CameraController::kCamCurrent:
        camCurrent = number(data);
        camCurrentReceived = true;
        break;
    case CameraController::kCamVolt:
        camVolt = number(data);
        camVoltReceived = true;
        break;
    case CameraController::kCamTemp:
        camTemp = number(data);
        camTempReceived = true;
        break;
    case CameraController::kCamPressure:
        camPressure1 = values.value(0).trimmed().toInt();
        camPressure2 = values.value(1).trimmed().toInt();
        camPressureReceived = true;
        break;
    case CameraController::kCamOrientation:
        for (int axis = 0; axis < 3; ++axis)
            camOrientation[axis] = values.value(axis).trimmed().toInt();
        camOrientationReceived = true;
        break;
    case CameraController::kCamStatus:
        camStatus = data.trimmed();
        camStatusReceived = true;
        break;
    default:
        break;
    }
}
