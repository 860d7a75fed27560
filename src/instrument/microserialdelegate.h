#pragma once

#include "instrument/cameracontroller.h"
#include "core/iserialdelegate.h"

#include <QString>
#include <QStringList>

class MalformedLineLog;
class Microcontroller;

// Decodes every line the power board sends: battery, logs, ambient light,
// shutdown, and the replies to camera and coiler requests, which it routes to
// CameraController. Bad lines are logged and dropped.
class MicroSerialDelegate : public ISerialDelegate
{
    Q_OBJECT
public:
    // Indicator codes given to the status screen for a log record.
    enum LogCode { kLogClear = 0, kLogWarning = 1, kLogFault = 2, kLogWrongLength = 4 };

    // Where a camera or coiler reply goes and what it carries.
    struct CameraRoute {
        bool valid = false;
        bool log = false;
        CameraController::CameraCommand command = CameraController::kCoilID;
        QString data;
    };

    static constexpr int kEmptyBatteryLevel = 200;

    MicroSerialDelegate(Microcontroller *micro, QObject *parent = nullptr);

    void didReceiveData(ISerial *serial, const QString &line) override;

    // The keyword the board uses for a camera or coiler value, in requests
    // (followed by "?") and in replies.
    static QString cameraKeyword(CameraController::CameraCommand command);
    static CameraRoute cameraRoute(const QStringList &fields);
    static int batteryLevel(int status, int millivolts);
    static int tamperCode(const QString &record);
    static int shockCode(const QString &record);
    static int serviceCode(const QString &record, qint64 nowSecs);
    // Humidity, over and under voltage, over and under temperature records.
    static int limitCode(const QString &keyword, const QString &record);

private:
    using Handler = void (MicroSerialDelegate::*)(const QStringList &fields);
    struct Message {
        const char *keyword;
        int fields;
        Handler handler;
    };
    static const Message kMessages[];

    void handleCounter(const QStringList &fields);
    void handleVersion(const QStringList &fields);
    void handleBatteryStatus(const QStringList &fields);
    void handleBatteryCurrent(const QStringList &fields);
    void handleBatteryVoltage(const QStringList &fields);
    void handleLoggedOnly(const QStringList &fields);
    void handleShutdown(const QStringList &fields);
    void handleTamperLog(const QStringList &fields);
    void handleShockLog(const QStringList &fields);
    void handleIdLog(const QStringList &fields);
    void handleLimitLog(const QStringList &fields);
    void handleStatLog(const QStringList &fields);
    void handleAmbient(const QStringList &fields);
    void handleOrientation(const QStringList &fields);
    bool routeToCamera(const QString &line, const QStringList &fields);

    Microcontroller *m_micro;
    MalformedLineLog *m_malformed;
};
