#include "core/backgroundprocess.h"

#include <QDebug>

QProcess *startInBackground(const QString &program, const QStringList &arguments, QObject *parent)
{
    auto *process = new QProcess(parent);
    QObject::connect(process, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), process,
                     &QObject::deleteLater);
    QObject::connect(process, &QProcess::errorOccurred, process, [process, program](QProcess::ProcessError error) {
        if (error != QProcess::FailedToStart)
            return;
        qWarning().noquote() << program << "could not be started:" << process->errorString();
        process->deleteLater();
    });
    process->start(program, arguments);
    return process;
}
