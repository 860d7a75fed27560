#pragma once

#include <QProcess>
#include <QString>
#include <QStringList>

class QObject;

// Starts a program without waiting for it. The process object frees itself once the
// program has ended or failed to start, so callers that want the answer connect to
// finished() and never hold on to the pointer past it. A failed start is logged.
QProcess *startInBackground(const QString &program, const QStringList &arguments, QObject *parent);
