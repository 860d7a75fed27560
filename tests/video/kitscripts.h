#pragma once

#include "support/testunit.h"

#include <QProcess>
#include <QStringList>

// Runs one of the unit's scripts the way the console does (/bin/sh <script> args)
// and returns its exit code, or -1 if it did not finish in time.
inline int runKitScript(const TestUnit &unit, const QString &name, const QStringList &args = {},
                        QByteArray *output = nullptr, int timeoutMs = 15000)
{
    QProcess script;
    script.start(QStringLiteral("/bin/sh"), QStringList{unit.path(QStringLiteral("/opt/hbi/bin/") + name)} + args);
    if (!script.waitForFinished(timeoutMs)) {
        script.kill();
        script.waitForFinished();
        return -1;
    }
    if (output)
        *output = script.readAllStandardOutput();
    return script.exitStatus() == QProcess::NormalExit ? script.exitCode() : -1;
}

// Lines of the kit log written by one program ("<date> <time> <program>[<pid>]: <text>").
inline QStringList kitLogOf(const TestUnit &unit, const QString &program)
{
    QStringList lines;
    const QString tag = QLatin1Char(' ') + program + QLatin1Char('[');
    for (const QString &line : unit.kitLog())
        if (line.contains(tag))
            lines << line.mid(line.indexOf(QStringLiteral("]: ")) + 3);
    return lines;
}
