#pragma once

#include <QString>

// The line-per-event record of cloud connections and copies, kept for the
// service engineer beside the camera log.
namespace WirelessLog {
QString fileName();
QString stateText(int cloudState);
QString wifiText(int wifiState);
// Appends "when,state,host,user,wifi state,text"; false when the file cannot be written.
bool append(int cloudState, const QString &host, const QString &user, int wifiState);
} // namespace WirelessLog
