#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

// Runs a shell script whose answer the caller needs before it can go on. A script
// that reads a failing stick can hang in the kernel for minutes: one that has not
// answered within the limit is logged, left to end on its own and counted as
// failed, so the screen is never held longer than that.
namespace BoundedScript {
constexpr int kAnswerMs = 3000;
// True when `script` ran to its end in time; what it printed goes to `printed`.
bool run(const QString &script, const QStringList &arguments, QByteArray *printed, int limitMs = kAnswerMs);
} // namespace BoundedScript
