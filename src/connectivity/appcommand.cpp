#include "connectivity/appcommand.h"

#include <QHash>

namespace {
const QString kTransfer = QStringLiteral("Transfer");
const QString kFileError = QStringLiteral("FileError");
// A receive names its size, type and destination after the word.
constexpr int kTransferReceiveWords = 4;
} // namespace

AppCommand AppCommand::parse(const QString &line)
{
    AppCommand command;
    command.m_words = line.split(QLatin1Char(' '), Qt::SkipEmptyParts);
    if (command.m_words.size() == 1)
        command.m_kind = oneWordKind(command.m_words.first());
    else if (command.m_words.size() > 1)
        command.m_kind = multiWordKind(command.m_words);
    return command;
}

AppCommand::Kind AppCommand::oneWordKind(const QString &word)
{
    static const QHash<QString, Kind> table = {
        {QStringLiteral("LampUp"), kLampUp},
        {QStringLiteral("LampDown"), kLampDown},
        {QStringLiteral("Record"), kRecord},
        {QStringLiteral("Stop"), kStop},
        {QStringLiteral("CoilerSet"), kCoilerSet},
        {QStringLiteral("StartStream"), kStartStream},
        {QStringLiteral("StopStream"), kStopStream},
        {QStringLiteral("GetProjects"), kGetProjects},
        {QStringLiteral("GetReport"), kGetReport},
        {QStringLiteral("GetXML"), kGetXML},
        {QStringLiteral("*IDN?"), kIdentify},
    };
    return table.value(word, kUnknown);
}

AppCommand::Kind AppCommand::multiWordKind(const QStringList &words)
{
    const QString &first = words.first();
    if (first == QLatin1String("Port"))
        return kPort;
    if (first == QLatin1String("IP"))
        return kIP;
    if (first == kTransfer) {
        if (words.size() >= kTransferReceiveWords)
            return kTransferReceive;
        return words.at(1) == QLatin1String("true") ? kTransferSend : kTransferOther;
    }
    if (first == kFileError) {
        if (words.at(1) == QLatin1String("0"))
            return kFileErrorSuccess;
        if (words.at(1) == QLatin1String("1"))
            return kFileErrorFailure;
        return kFileErrorOther;
    }
    if (first == QLatin1String("SetProject"))
        return kSetProject;
    if (first == QLatin1String("OstraApp"))
        return kOstraApp;
    return kUnknown;
}

QByteArray AppCommand::reply(const QString &word)
{
    static const QStringList echoed = {
        QStringLiteral("LampUp"),      QStringLiteral("LampDown"),   QStringLiteral("Record"),
        QStringLiteral("Stop"),        QStringLiteral("CoilerSet"),  QStringLiteral("Port"),
        QStringLiteral("StartStream"), QStringLiteral("StopStream"), QStringLiteral("Transfer true"),
        QStringLiteral("FileError 0"), QStringLiteral("FileError 1"), QStringLiteral("IP"),
    };
    if (echoed.contains(word))
        return word.toLatin1() + '\r';
    if (word == QLatin1String("ERROR"))
        return QByteArrayLiteral("ERROR: unknown command\r");
    return QByteArray();
}
