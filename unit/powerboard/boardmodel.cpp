#include "boardmodel.h"

#include <QDateTime>

namespace {
// Settings the console writes with "KEY value" and reads back with "KEY?".
const QStringList kStoredSettings = {"BLT", "CLT", "CLT:OUT", "BUZ:OUT", "QER", "COILER:EQ", "CAM:STATE", "CAM:SONDE"};
const QStringList kCameraKeys = {"CAM:VOLT",      "CAM:I",          "CAM:TEMP",   "CAM:PRESSURE",          "CAM:ACC:OR",
                                 "CAM:SERIAL",    "CAM:FW",         "CAM:PART",   "CAM:HW",                "CAM:BOARD",
                                 "CAM:DATE:MANUF", "CAM:DATE:MAINTENANCE", "CAM:STATUS", "CAM:STATE", "CAM:SONDE",
                                 "CAM:SONDE:FREQ", "CAM:OVRD"};
const QStringList kCameraLogs = {"CAM:LOG:ID", "CAM:LOG:OP", "CAM:LOG:UP", "CAM:LOG:OT",
                                 "CAM:LOG:UT", "CAM:LOG:OV", "CAM:LOG:UV"};

QString hex(qint64 value, int width)
{
    return QStringLiteral("%1").arg(value, width, 16, QLatin1Char('0')).toUpper();
}
}

BoardModel::BoardModel()
{
    m_values = {
        {"BFG:STAT", "3"},      {"BFG:VOLT", "14200"}, {"BFG:CURR", "-1100"}, {"BFG:CAP", "78"},
        {"BFG:TEMP", "24"},     {"ACC:OR", "0 0 1000"}, {"AMB", "1500"},      {"QER", "0"},
        {"COILER:EQ", "0"},
    };
    resetLogs();
    setBoardType(true);
}

void BoardModel::resetLogs()
{
    m_values["LOG:TMPR"] = QString(24, 'F');
    m_values["LOG:SHK"] = QString(28, 'F');
    for (const char *key : {"LOG:HUM", "LOG:OV", "LOG:UV"})
        m_values[key] = QString(46, 'F');
    for (const char *key : {"LOG:OT", "LOG:UT"})
        m_values[key] = QString(40, 'F');
    m_values["LOG:STAT"] = QString(20, '0');
    // Log format 1.2.3.4, started now.
    m_values["LOG:ID"] = QStringLiteral("0102030004") + hex(QDateTime::currentSecsSinceEpoch(), 8);
}

void BoardModel::resetCameraLogs()
{
    for (const QString &key : kCameraLogs)
        m_values[key] = QString(32, 'F');
}

void BoardModel::setBoardType(bool newBoard)
{
    m_newBoard = newBoard;
    m_values["*ID"] = newBoard ? QStringLiteral("HBI-PB 2.3") : QStringLiteral("HBI-PB 1.9");
    setCoiler(m_coiler);
    setCamera(m_camera);
}

void BoardModel::setCoiler(Coiler coiler)
{
    m_coiler = coiler;
    m_values["COILER:ID"] = coiler == Coiler::kNew ? QStringLiteral("17") : QStringLiteral("3");
    m_values["COILER"] = QStringLiteral("0");
}

void BoardModel::setCamera(Camera camera)
{
    m_camera = camera;
    for (const QString &key : kCameraKeys + kCameraLogs)
        m_values.remove(key);
    // Every camera draws current; only the new type talks back.
    m_values["CAM:I"] = camera == Camera::kNone ? QStringLiteral("0") : QStringLiteral("180");
    if (camera != Camera::kNew || !m_newBoard)
        return;
    m_values.insert({
        {"CAM:VOLT", "24100"},
        {"CAM:TEMP", "31"},
        {"CAM:PRESSURE", "210 215"},
        {"CAM:ACC:OR", "12 -40 998"},
        {"CAM:SERIAL", "00A1B2C3"},
        {"CAM:FW", "2.4.1"},
        {"CAM:PART", "4102"},
        {"CAM:HW", "120"},
        {"CAM:BOARD", "0000000A0000000B0000000C"},
        {"CAM:DATE:MANUF", "13 9 21"},
        {"CAM:DATE:MAINTENANCE", "2 4 24"},
        {"CAM:STATUS", "00"},
        {"CAM:STATE", "1"},
        {"CAM:SONDE", "0"},
        {"CAM:SONDE:FREQ", "33"},
        {"CAM:OVRD", "00"},
    });
    resetCameraLogs();
}

QStringList BoardModel::batteryReport() const
{
    return {"BFG:STAT " + m_values["BFG:STAT"], "BFG:VOLT " + m_values["BFG:VOLT"], "BFG:CURR " + m_values["BFG:CURR"]};
}

QString BoardModel::clockLine(const QStringList &words) const
{
    return QStringLiteral("RTC ") + words.mid(1).join(' ');
}

QStringList BoardModel::answer(const QString &command)
{
    if (command.endsWith('?')) {
        const QString key = command.chopped(1);
        if (!m_values.contains(key))
            return {};
        return {key + ' ' + m_values[key]};
    }
    const QStringList words = command.split(' ');
    const QString &key = words[0];
    if (key == "XXX")
        return {"XXX"};
    if (key == "RTC" && words.size() == 4)
        return {clockLine(words)};
    if (key == "LOG:CLS") {
        resetLogs();
        return {};
    }
    if (key == "CAM:LOG:CLS") {
        if (m_values.contains("CAM:LOG:ID"))
            resetCameraLogs();
        return {};
    }
    if (key == "COILER" && words.size() == 2) {
        // An old coiler cannot be switched to the new protocol.
        if (m_coiler == Coiler::kNew)
            m_values["COILER"] = words[1];
        return {};
    }
    if (key == "CAM:OVRD:SET" && words.size() >= 2 && m_values.contains("CAM:OVRD")) {
        m_passCode = words[1];
        return {};
    }
    if (key == "CAM:OVRD" && words.size() >= 2 && m_values.contains("CAM:OVRD")) {
        // The right code acknowledges the camera's alarm; a wrong one leaves it armed.
        if (words[1] == m_passCode)
            m_values["CAM:OVRD"] = QStringLiteral("02");
        return {};
    }
    if (kStoredSettings.contains(key) && words.size() == 2) {
        // Camera settings only reach a camera that listens.
        if (!key.startsWith("CAM:") || m_values.contains(key))
            m_values[key] = words[1];
        return {};
    }
    return {};
}

bool BoardModel::set(const QString &key, const QString &value)
{
    if (key == "board") {
        setBoardType(value != "old");
        return value == "old" || value == "new";
    }
    if (key == "camera") {
        setCamera(value == "none" ? Camera::kNone : value == "old" ? Camera::kOld : Camera::kNew);
        return value == "none" || value == "old" || value == "new";
    }
    if (key == "coiler") {
        setCoiler(value == "old" ? Coiler::kOld : Coiler::kNew);
        return value == "old" || value == "new";
    }
    if (key == "passcode") {
        m_passCode = value;
        return true;
    }
    // Any keyword of the board: "BFG:VOLT 12000", "CAM:PRESSURE 150 210", "LOG:OT ...".
    if (!key.contains(':') && key != "*ID" && key != "AMB" && key != "QER" && key != "COILER")
        return false;
    m_values[key] = value;
    return true;
}
