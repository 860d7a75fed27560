#include "instrument/camerastoredlogs.h"

#include "instrument/cameracontroller.h"

#include <QDateTime>

namespace {
constexpr int kReplyDigits = 16;
constexpr int kFieldDigits = 8;
} // namespace

void CameraStoredLogs::store(int command, const QString &data)
{
    if (data.size() != kReplyDigits)
        return;
    bool serialOk = false;
    bool timeOk = false;
    const QString serial = QString::number(data.left(kFieldDigits).toULongLong(&serialOk, 16));
    const qint64 seconds = qint64(data.right(kFieldDigits).toULongLong(&timeOk, 16));
    if (!serialOk || !timeOk)
        return;
    if (command == CameraController::kCamLogID) {
        logID = serial;
        return;
    }
    if (QVector<CameraLog> *log = eventsOf(command))
        *log << CameraLog{QDateTime::fromSecsSinceEpoch(seconds).toString(Qt::TextDate), serial};
}

void CameraStoredLogs::clear()
{
    logID.clear();
    for (QVector<CameraLog> *log : {&logOP, &logUP, &logOT, &logUT, &logOV, &logUV})
        log->clear();
}

QVector<CameraStoredLogs::CameraLog> CameraStoredLogs::events(int command) const
{
    if (const QVector<CameraLog> *log = const_cast<CameraStoredLogs *>(this)->eventsOf(command))
        return *log;
    return {};
}

QVector<CameraStoredLogs::CameraLog> *CameraStoredLogs::eventsOf(int command)
{
    switch (command) {
    case CameraController::kCamLogOP: return &logOP;
    case CameraController::kCamLogUP: return &logUP;
    case CameraController::kCamLogOT: return &logOT;
    case CameraController::kCamLogUT: return &logUT;
    case CameraController::kCamLogOV: return &logOV;
    case CameraController::kCamLogUV: return &logUV;
    default: return nullptr;
    }
}
