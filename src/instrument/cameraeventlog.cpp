#include "instrument/cameraeventlog.h"

#include <QByteArrayList>
#include <QDateTime>
#include <QDebug>
#include <QFile>
#include <QStringList>

namespace {
const char *const kFaultKinds[] = {"Pressure", "Temperature", "Voltage"};
const char *const kFaultLevels[] = {"Low Alarm", "Low Warning", "High Warning", "High Alarm"};
const char *const kWarningsShown[] = {"Under Pressure",    "Over Pressure", "Under Temperature",
                                      "Over Temperature", "Under Voltage", "Over Voltage"};
const char *const kUserActions[] = {"No input", "Pin Code input"};

enum Group { kFaultPressure = 0, kFaultTemperature = 1, kFaultVoltage = 2, kWarningShown = 3, kUserAction = 4 };
} // namespace

CameraEventLog::CameraEventLog(const QString &fileName)
    : m_fileName(fileName)
{
}

void CameraEventLog::touch() const
{
    QFile file(m_fileName);
    if (!file.open(QIODevice::ReadWrite)) {
        qWarning() << "Could not open camera log file" << m_fileName;
        return;
    }
    file.close();
    file.setPermissions(QFileDevice::ReadUser | QFileDevice::WriteUser | QFileDevice::ExeUser | QFileDevice::ReadGroup
                        | QFileDevice::WriteGroup | QFileDevice::ExeGroup | QFileDevice::ReadOther
                        | QFileDevice::WriteOther | QFileDevice::ExeOther);
}

void CameraEventLog::appendStatus(const QString &status, const QString &serial) const
{
    bool ok = false;
    const uint bits = status.toUInt(&ok, 16) & 0xFFFFFF;
    if (!ok)
        return;
    static const struct {
        uint bit;
        int group;
        int code;
    } kStatusBits[] = {
        {0x20000, 0, 0},  {0x10000, 0, 1},  {0x40000, 0, 2},  {0x80000, 0, 3},
        {0x200000, 1, 0}, {0x100000, 1, 1}, {0x400000, 1, 2}, {0x800000, 1, 3},
        {0x200, 2, 0},    {0x100, 2, 1},    {0x400, 2, 2},    {0x800, 2, 3},
    };
    for (const auto &entry : kStatusBits) {
        if (bits & entry.bit)
            append(entry.group, entry.code, serial);
    }
}

QString CameraEventLog::eventText(int group, int code)
{
    switch (group) {
    case kFaultPressure:
    case kFaultTemperature:
    case kFaultVoltage:
        if (code >= 0 && code < 4)
            return QStringLiteral("%1 Fault - %2").arg(QLatin1String(kFaultKinds[group]), QLatin1String(kFaultLevels[code]));
        break;
    case kWarningShown: {
        // Low four bits: which warning; the next four: whether the camera is ATEX.
        const int warning = code & 0x0F;
        const int atex = (code >> 4) & 0x0F;
        if (warning < 6 && atex < 2)
            return QStringLiteral("Warning Shown - %1 - %2")
                .arg(QLatin1String(kWarningsShown[warning]), atex ? QStringLiteral("ATEX") : QStringLiteral("Non-ATEX"));
        break;
    }
    case kUserAction:
        if (code == 0 || code == 1)
            return QStringLiteral("User Action to Clear Warning - %1").arg(QLatin1String(kUserActions[code]));
        break;
    default:
        break;
    }
    return QStringLiteral("Unknown event");
}

bool CameraEventLog::trim() const
{
    QFile file(m_fileName);
    if (!file.open(QIODevice::ReadOnly)) {
        // Kept as the unit has always logged it: service greps for this line.
        qWarning() << "Error could not read cloud index file!";
        return false;
    }
    QByteArrayList lines = file.readAll().split('\n');
    file.close();
    if (!lines.isEmpty() && lines.last().isEmpty())
        lines.removeLast();
    const QFileDevice::Permissions permissions = file.permissions();
    file.remove();
    if (!file.open(QIODevice::WriteOnly)) {
        // Kept as the unit has always logged it: service greps for this line.
        qWarning() << "Error could not write to wireless log file!";
        return false;
    }
    file.setPermissions(permissions);
    for (int i = lines.size() / 2; i < lines.size(); ++i)
        file.write(lines.at(i) + '\n');
    return true;
}

void CameraEventLog::append(int group, int code, const QString &serial) const
{
    const QString line = QStringLiteral("%1,%2,%3,%4,%5\n")
                             .arg(QDateTime::currentDateTime().toString(Qt::TextDate))
                             .arg(group)
                             .arg(code)
                             .arg(serial, eventText(group, code));
    if (QFile(m_fileName).size() > kTrimBytes)
        trim();
    QFile file(m_fileName);
    if (!file.open(QIODevice::Append) || file.write(line.toLatin1()) == -1)
        qWarning() << "Error could not write to camera log file!";
}
