#include "core/boundedscript.h"

#include <QDebug>
#include <QProcess>

namespace BoundedScript {

bool run(const QString &script, const QStringList &arguments, QByteArray *printed, int limitMs)
{
    auto *process = new QProcess;
    process->start(QStringLiteral("/bin/sh"), QStringList{script} + arguments);
    if (!process->waitForStarted(limitMs)) {
        qWarning().noquote() << script << "could not be started:" << process->errorString();
        delete process;
        return false;
    }
    if (!process->waitForFinished(limitMs)) {
        qWarning().noquote() << script << "gave no answer within" << limitMs << "ms for" << arguments.join(' ')
                             << "- taken as failed";
        // A process stuck on a dead device may outlive the kill: it is freed once it
        // ends, never waited for here.
        QObject::connect(process, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), process,
                         &QObject::deleteLater);
        process->kill();
        return false;
    }
    if (printed)
        *printed = process->readAllStandardOutput();
    delete process;
    return true;
}

} // namespace BoundedScript
