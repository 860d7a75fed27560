#include "core/messagehandler.h"

#include "core/unitpaths.h"

#include <QFile>
#include <QTextStream>
#include <cstdio>

QString logLine(QtMsgType type, const QDateTime &when, const QString &message, const char *file, int line)
{
    return QStringLiteral("%1, %2, %3, %4, %5")
        .arg(static_cast<int>(type))
        .arg(when.toString(QStringLiteral("dd-MM-yyyy HH:mm:ss")), message, QString::fromLocal8Bit(file))
        .arg(line);
}

QString logFilePath(const QDate &day)
{
    return unitPath(QStringLiteral("/opt/hbi/log/Ductline-%1.log").arg(day.toString(QStringLiteral("ddMMyyyy"))));
}

void appendToLogFile(const QString &line, const QDate &day)
{
    QFile file(logFilePath(day));
    if (!file.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Text))
        return;
    QTextStream stream(&file);
    stream << line << '\n';
}

void MessageHandler(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    const QDateTime now = QDateTime::currentDateTime();
    const QString line = logLine(type, now, message, context.file, context.line);
    if (type != QtDebugMsg)
        appendToLogFile(line, now.date());
    puts(line.toLocal8Bit().constData());
    fflush(stdout);
}
