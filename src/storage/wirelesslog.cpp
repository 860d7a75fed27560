#include "storage/wirelesslog.h"

#include "core/unitpaths.h"

#include <QDateTime>
#include <QDebug>
#include <QFile>

namespace {
const char *const kStateTexts[] = {
    "Attempting Cloud Connection", "Cloud Connection Success", "Cloud Connection Failure",
    "Attempting Cloud Copy",       "Requested Cloud Copy Cancel", "Cloud Copy Success",
    "Cloud Copy Failure"};
const char *const kWifiTexts[] = {"No Wifi Dongle", "No Wifi Connection", "Low Wifi Signal",
                                  "Medium Wifi Signal", "Full Wifi Signal"};

template <int N>
QString textAt(const char *const (&texts)[N], int index)
{
    return index >= 0 && index < N ? QString::fromLatin1(texts[index]) : QString();
}
} // namespace

QString WirelessLog::fileName()
{
    return unitPath(QStringLiteral("/opt/hbi/hwlogs/wireless.log"));
}

QString WirelessLog::stateText(int cloudState)
{
    return textAt(kStateTexts, cloudState);
}

QString WirelessLog::wifiText(int wifiState)
{
    return textAt(kWifiTexts, wifiState);
}

bool WirelessLog::append(int cloudState, const QString &host, const QString &user, int wifiState)
{
    QFile file(fileName());
    const QString line = QStringLiteral("%1,%2,%3,%4,%5,%6\n")
                             .arg(QDateTime::currentDateTime().toString(Qt::TextDate))
                             .arg(cloudState)
                             .arg(host, user)
                             .arg(wifiState)
                             .arg(stateText(cloudState) + QStringLiteral(" - ") + wifiText(wifiState));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Append) || file.write(line.toUtf8()) < 0) {
        qWarning() << "Error could not write to wireless log file!";
        return false;
    }
    return true;
}
