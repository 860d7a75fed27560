#include "instrument/microserialdelegate.h"

#include "core/malformedlinelog.h"
#include "instrument/microcontroller.h"

#include <QDateTime>
#include <QDebug>
#include <QSettings>

namespace {
constexpr int kBatteryStatusOnBattery = 3;
// Event counts at or above this make a warning a fault.
constexpr int kFaultCount = 11;
constexpr qint64 kServiceOverdueSecs = 31536000;  // 365 days
constexpr qint64 kServiceDueSoonSecs = 30240000;  // 350 days
constexpr int kLogIdLength = 18;
constexpr int kLogStatLength = 20;
constexpr int kAmbientFallbackBacklight = 127;

const QString kTamperClear = QString(24, QLatin1Char('F'));
constexpr int kShockCountPos = 24;

// A record of three sampled values and an event count, in fixed hexadecimal columns.
struct LimitRecord {
    const char *keyword;
    const char *name;  // as it appears in the wrong-length log line
    Microcontroller::Log log;
    void (Microcontroller::*signal)(int);
    int length;
    int valueWidth;
    int valuePos[3];
    int countPos;
    bool (*withinLimits)(int value);
};

const LimitRecord kLimitRecords[] = {
    {"LOG:HUM", "LOG HUM", Microcontroller::kLogHum, &Microcontroller::logHumReceived, 46, 4, {0, 14, 28}, 42,
     [](int v) { return v < 0xF33; }},
    {"LOG:OV", "LOG OV", Microcontroller::kLogOV, &Microcontroller::logOverVoltReceived, 46, 4, {0, 14, 28}, 42,
     [](int v) { return v < 0x41A1; }},
    {"LOG:UV", "LOG UV", Microcontroller::kLogUV, &Microcontroller::logUnderVoltReceived, 46, 4, {0, 14, 28}, 42,
     [](int v) { return v >= 12000; }},
    {"LOG:OT", "LOG OT", Microcontroller::kLogOT, &Microcontroller::logOverTempReceived, 40, 2, {0, 10, 20}, 36,
     [](int v) { return v < 0x33; }},
    // Values are read unsigned, so a record never falls below the limit; and its
    // wrong-length line has always named the over-temperature log. Both kept.
    {"LOG:UT", "LOG OT", Microcontroller::kLogUT, &Microcontroller::logUnderTempReceived, 40, 2, {0, 10, 20}, 36,
     [](int v) { return v >= -5; }},
};

const LimitRecord *limitRecord(const QString &keyword)
{
    for (const LimitRecord &record : kLimitRecords) {
        if (keyword == QLatin1String(record.keyword))
            return &record;
    }
    return nullptr;
}

int hexAt(const QString &record, int pos, int width)
{
    return record.midRef(pos, width).toInt(nullptr, 16);
}

int countCode(int count)
{
    return count < kFaultCount ? MicroSerialDelegate::kLogWarning : MicroSerialDelegate::kLogFault;
}

enum class DataFormat { kPlain, kPair, kTriple, kDate };

struct CameraWord {
    const char *keyword;
    CameraController::CameraCommand command;
    int fields;
    DataFormat format;
    bool log;
};

const CameraWord kCameraWords[] = {
    {"COILER", CameraController::kCoilType, 2, DataFormat::kPlain, false},
    {"COILER:ID", CameraController::kCoilID, 2, DataFormat::kPlain, false},
    {"CAM:STATE", CameraController::kCamState, 2, DataFormat::kPlain, false},
    {"COILER:EQ", CameraController::kCoilEQ, 2, DataFormat::kPlain, false},
    {"CAM:VOLT", CameraController::kCamVolt, 2, DataFormat::kPlain, false},
    {"CAM:I", CameraController::kCamCurrent, 2, DataFormat::kPlain, false},
    {"CAM:TEMP", CameraController::kCamTemp, 2, DataFormat::kPlain, false},
    {"CAM:PRESSURE", CameraController::kCamPressure, 3, DataFormat::kPair, false},
    {"CAM:ACC:OR", CameraController::kCamOrientation, 4, DataFormat::kTriple, false},
    {"CAM:SERIAL", CameraController::kCamSerial, 2, DataFormat::kPlain, false},
    {"CAM:FW", CameraController::kCamFW, 2, DataFormat::kPlain, false},
    {"CAM:PART", CameraController::kCamPart, 2, DataFormat::kPlain, false},
    {"CAM:HW", CameraController::kCamHW, 2, DataFormat::kPlain, false},
    {"CAM:DATE:MANUF", CameraController::kCamManuf, 4, DataFormat::kDate, false},
    {"CAM:DATE:MAINTENANCE", CameraController::kCamMaintenance, 4, DataFormat::kDate, false},
    {"CAM:STATUS", CameraController::kCamStatus, 2, DataFormat::kPlain, false},
    {"CAM:BOARD", CameraController::kCamBoard, 2, DataFormat::kPlain, false},
    {"CAM:SONDE", CameraController::kCamSondeStatus, 2, DataFormat::kPlain, false},
    {"CAM:SONDE:FREQ", CameraController::kCamSondeFrequency, 2, DataFormat::kPlain, false},
    {"CAM:OVRD", CameraController::kCamPassStatus, 2, DataFormat::kPlain, false},
    {"CAM:LOG:ID", CameraController::kCamLogID, 2, DataFormat::kPlain, true},
    {"CAM:LOG:OP", CameraController::kCamLogOP, 2, DataFormat::kPlain, true},
    {"CAM:LOG:UP", CameraController::kCamLogUP, 2, DataFormat::kPlain, true},
    {"CAM:LOG:OT", CameraController::kCamLogOT, 2, DataFormat::kPlain, true},
    {"CAM:LOG:UT", CameraController::kCamLogUT, 2, DataFormat::kPlain, true},
    {"CAM:LOG:OV", CameraController::kCamLogOV, 2, DataFormat::kPlain, true},
    {"CAM:LOG:UV", CameraController::kCamLogUV, 2, DataFormat::kPlain, true},
};

QString twoDigits(const QString &field)
{
    return QStringLiteral("%1").arg(field.toInt(), 2, 10, QLatin1Char('0'));
}

QString cameraData(DataFormat format, const QStringList &fields)
{
    switch (format) {
    case DataFormat::kPair:
        return QStringLiteral("%1,%2").arg(fields[1], fields[2]);
    case DataFormat::kTriple:
        return QStringLiteral("%1,%2,%3").arg(fields[1], fields[2], fields[3]);
    case DataFormat::kDate:
        return QStringLiteral("%1,%2,20%3").arg(twoDigits(fields[1]), twoDigits(fields[2]), twoDigits(fields[3]));
    case DataFormat::kPlain:
        break;
    }
    return fields[1];
}
}

const MicroSerialDelegate::Message MicroSerialDelegate::kMessages[] = {
    {"QER", 2, &MicroSerialDelegate::handleCounter},
    {"*ID", 3, &MicroSerialDelegate::handleVersion},
    {"BFG:STAT", 2, &MicroSerialDelegate::handleBatteryStatus},
    {"BFG:CAP", 2, &MicroSerialDelegate::handleLoggedOnly},
    {"BFG:CURR", 2, &MicroSerialDelegate::handleBatteryCurrent},
    {"BFG:VOLT", 2, &MicroSerialDelegate::handleBatteryVoltage},
    {"BFG:TEMP", 2, &MicroSerialDelegate::handleLoggedOnly},
    {"SHD", 2, &MicroSerialDelegate::handleShutdown},
    {"LOG:TMPR", 2, &MicroSerialDelegate::handleTamperLog},
    {"LOG:SHK", 2, &MicroSerialDelegate::handleShockLog},
    {"RTC", 4, &MicroSerialDelegate::handleLoggedOnly},
    {"LOG:ID", 2, &MicroSerialDelegate::handleIdLog},
    {"LOG:HUM", 2, &MicroSerialDelegate::handleLimitLog},
    {"LOG:OV", 2, &MicroSerialDelegate::handleLimitLog},
    {"LOG:UV", 2, &MicroSerialDelegate::handleLimitLog},
    {"LOG:OT", 2, &MicroSerialDelegate::handleLimitLog},
    {"LOG:UT", 2, &MicroSerialDelegate::handleLimitLog},
    {"LOG:STAT", 2, &MicroSerialDelegate::handleStatLog},
    {"AMB", 2, &MicroSerialDelegate::handleAmbient},
    {"ACC:OR", 4, &MicroSerialDelegate::handleOrientation},
};

MicroSerialDelegate::MicroSerialDelegate(Microcontroller *micro, QObject *parent)
    : ISerialDelegate(parent)
    , m_micro(micro)
    , m_malformed(new MalformedLineLog(QStringLiteral("Power board"), this))
{
}

void MicroSerialDelegate::didReceiveData(ISerial *, const QString &line)
{
    const QStringList fields = line.split(QLatin1Char(' '));
    for (const Message &message : kMessages) {
        if (fields.size() == message.fields && fields[0] == QLatin1String(message.keyword)) {
            (this->*message.handler)(fields);
            return;
        }
    }
    if (line.contains(QLatin1String("CAM")) || line.contains(QLatin1String("COILER"))) {
        // Replies nobody waits for any more are dropped without a word.
        routeToCamera(line, fields);
        return;
    }
    if (m_malformed->admit(line))
        qInfo() << "Did not handle: " << line;
}

QString MicroSerialDelegate::cameraKeyword(CameraController::CameraCommand command)
{
    for (const CameraWord &word : kCameraWords) {
        if (word.command == command)
            return QString::fromLatin1(word.keyword);
    }
    return QString();
}

MicroSerialDelegate::CameraRoute MicroSerialDelegate::cameraRoute(const QStringList &fields)
{
    CameraRoute route;
    if (fields.isEmpty())
        return route;
    for (const CameraWord &word : kCameraWords) {
        if (fields.size() == word.fields && fields[0] == QLatin1String(word.keyword)) {
            route.valid = true;
            route.log = word.log;
            route.command = word.command;
            route.data = cameraData(word.format, fields);
            break;
        }
    }
    return route;
}

bool MicroSerialDelegate::routeToCamera(const QString &line, const QStringList &fields)
{
    const CameraRoute route = cameraRoute(fields);
    if (!route.valid) {
        qDebug() << "Dropped camera line" << line;
        return false;
    }
    CameraController *camera = CameraController::instance();
    if (route.log)
        camera->ProcessCameraLogs(route.command, route.data);
    else
        camera->ReceiveData(route.command, route.data);
    return true;
}

int MicroSerialDelegate::batteryLevel(int status, int millivolts)
{
    struct Step {
        int below;
        int level;
    };
    // On battery the bands are lower, and the lowest is the empty picture.
    static const Step onBattery[] = {{12750, kEmptyBatteryLevel}, {13500, 19}, {13960, 39}, {14550, 59}, {15200, 79}};
    static const Step onMains[] = {{14500, 19}, {15350, 39}, {15830, 59}, {16350, 79}};
    const bool battery = status == kBatteryStatusOnBattery;
    const Step *begin = battery ? std::begin(onBattery) : std::begin(onMains);
    const Step *end = battery ? std::end(onBattery) : std::end(onMains);
    for (const Step *step = begin; step != end; ++step) {
        if (millivolts < step->below)
            return step->level;
    }
    return 99;
}

int MicroSerialDelegate::tamperCode(const QString &record)
{
    return record == kTamperClear ? kLogClear : kLogFault;
}

int MicroSerialDelegate::shockCode(const QString &record)
{
    const int count = hexAt(record, kShockCountPos, 4);
    return count == 0xFFFF ? kLogClear : countCode(count);
}

int MicroSerialDelegate::serviceCode(const QString &record, qint64 nowSecs)
{
    if (record.size() != kLogIdLength)
        return kLogWrongLength;
    const qint64 start = record.midRef(10, 8).toUInt(nullptr, 16);
    const qint64 age = nowSecs - start;
    if (age > kServiceOverdueSecs)
        return kLogFault;
    if (age > kServiceDueSoonSecs)
        return kLogWarning;
    return kLogClear;
}

int MicroSerialDelegate::limitCode(const QString &keyword, const QString &record)
{
    const LimitRecord *kind = limitRecord(keyword);
    if (!kind)
        return kLogClear;
    if (record.size() != kind->length)
        return kLogWrongLength;
    if (record == QString(kind->length, QLatin1Char('F')))
        return kLogClear;
    bool within = true;
    for (int pos : kind->valuePos)
        within = within && kind->withinLimits(hexAt(record, pos, kind->valueWidth));
    return within ? kLogClear : countCode(hexAt(record, kind->countPos, 4));
}

void MicroSerialDelegate::handleCounter(const QStringList &fields)
{
    m_micro->storeCounter(fields[1].toLong());
}

void MicroSerialDelegate::handleVersion(const QStringList &fields)
{
    emit m_micro->microVersionReceived(fields[2]);
}

void MicroSerialDelegate::handleBatteryStatus(const QStringList &fields)
{
    const int status = fields[1].toInt();
    m_micro->storeBatteryStatus(status);
    if (status != kBatteryStatusOnBattery && m_micro->getBuzzer())
        m_micro->setBuzzer(false);
    emit m_micro->batteryStatusChanged(status);
}

void MicroSerialDelegate::handleBatteryCurrent(const QStringList &fields)
{
    emit m_micro->batteryCurrentChanged(static_cast<qint16>(fields[1].toInt() & 0xFFFF));
}

void MicroSerialDelegate::handleBatteryVoltage(const QStringList &fields)
{
    const int millivolts = fields[1].toInt();
    emit m_micro->batteryVoltageChanged(millivolts);
    const int level = batteryLevel(m_micro->getBatteryStatus(), millivolts);
    const bool empty = level == kEmptyBatteryLevel;
    m_micro->setLowBat(empty);
    // Sent at every report, so the board hears "off" again and again while all is well.
    m_micro->setBuzzer(empty);
    emit m_micro->batteryCapacityChanged(level);
}

void MicroSerialDelegate::handleLoggedOnly(const QStringList &fields)
{
    qInfo() << "Power board:" << fields.join(QLatin1Char(' '));
}

void MicroSerialDelegate::handleShutdown(const QStringList &)
{
    emit m_micro->shutdownReceived();
}

void MicroSerialDelegate::handleTamperLog(const QStringList &fields)
{
    m_micro->storeLog(Microcontroller::kLogTamper, fields[1]);
    const int code = tamperCode(fields[1]);
    if (code != kLogClear)
        m_micro->setTamper();
    emit m_micro->logTamperReceived(code);
}

void MicroSerialDelegate::handleShockLog(const QStringList &fields)
{
    m_micro->storeLog(Microcontroller::kLogShock, fields[1]);
    emit m_micro->logShockReceived(shockCode(fields[1]));
}

void MicroSerialDelegate::handleIdLog(const QStringList &fields)
{
    const QString &record = fields[1];
    const int code = serviceCode(record, QDateTime::currentSecsSinceEpoch());
    if (code == kLogWrongLength) {
        qInfo() << "LOG ID: wrong length = " << record.size();
    } else {
        m_micro->storeLog(Microcontroller::kLogID, record);
        qInfo().noquote() << QStringLiteral("Power board log version %1.%2.%3.%4")
                                 .arg(hexAt(record, 0, 2))
                                 .arg(hexAt(record, 2, 2))
                                 .arg(hexAt(record, 4, 2))
                                 .arg(hexAt(record, 6, 4));
        if (code == kLogFault)
            m_micro->setService(true);
        else if (code == kLogClear)
            m_micro->setService(false);
    }
    emit m_micro->logServiceReceived(code);
}

void MicroSerialDelegate::handleLimitLog(const QStringList &fields)
{
    const LimitRecord *kind = limitRecord(fields[0]);
    const QString &record = fields[1];
    const int code = limitCode(fields[0], record);
    if (code == kLogWrongLength)
        qInfo().noquote() << QLatin1String(kind->name) + QStringLiteral(": wrong length = ") << record.size();
    else
        m_micro->storeLog(kind->log, record);
    emit(m_micro->*kind->signal)(code);
}

void MicroSerialDelegate::handleStatLog(const QStringList &fields)
{
    if (fields[1].size() == kLogStatLength)
        m_micro->storeLog(Microcontroller::kLogStat, fields[1]);
    else
        qInfo() << "LOG STAT: wrong length = " << fields[1].size();
    m_micro->markLogUpdated(Microcontroller::kLogStat);
}

void MicroSerialDelegate::handleAmbient(const QStringList &)
{
    // The reported light level is not used: each report puts back the operator's
    // own backlight level, which also ends a tilt blanking early.
    const int percent = QSettings(QStringLiteral("Corvane"), QStringLiteral("Ductline"))
                            .value(QStringLiteral("Backlight/Level")).toInt();
    if (percent >= 1 && percent <= 100)
        m_micro->setBacklight(int(percent / 100.0 * 255.0));
    else
        m_micro->setBacklight(kAmbientFallbackBacklight);
}

void MicroSerialDelegate::handleOrientation(const QStringList &fields)
{
    qDebug() << "Power board orientation" << fields[1].toInt() << fields[2].toInt() << fields[3].toInt();
}
