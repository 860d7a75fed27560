#pragma once

#include <QString>
#include <QVector>

// The logs a camera keeps itself and hands over, one "CAM:LOG" reply an event,
// when the service console asks: over and under pressure, temperature and voltage,
// and the serial number they belong to.
class CameraStoredLogs
{
public:
    struct CameraLog {
        QString date_time;
        QString serial_number;
    };

    // One reply (a CameraController::CameraCommand of the CAM:LOG family): 16
    // hexadecimal digits, the serial number then seconds since 1970. Anything
    // else is ignored.
    void store(int command, const QString &data);
    void clear();

    QString serial() const { return logID; }
    QVector<CameraLog> events(int command) const;

private:
    QVector<CameraLog> *eventsOf(int command);

    QString logID;
    QVector<CameraLog> logOP, logUP, logOT, logUT, logOV, logUV;
};
