#pragma once

#include <QDateTime>
#include <QString>
#include <QtGlobal>

class QMessageLogContext;

// Log lines: "<type>, <dd-MM-yyyy HH:mm:ss>, <text>, <file>, <line>", with the
// type 1 warning, 2 critical, 3 fatal, 4 info. Warnings and above and info go to
// the day's file /opt/hbi/log/Ductline-<ddMMyyyy>.log; debug only to standard output.
void MessageHandler(QtMsgType type, const QMessageLogContext &context, const QString &message);

QString logLine(QtMsgType type, const QDateTime &when, const QString &message, const char *file, int line);
QString logFilePath(const QDate &day);
// Appends one line to the file of the given day, opening and closing it each time,
// so a power cut loses no more than the line being written.
void appendToLogFile(const QString &line, const QDate &day);
