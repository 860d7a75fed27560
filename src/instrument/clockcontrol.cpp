#include "instrument/clockcontrol.h"

#include "core/unitpaths.h"

#include <QDateTime>
#include <QDebug>
#include <QProcess>

ClockControl::ClockControl(Microcontroller *micro, QObject *parent)
    : QObject(parent)
    , m_micro(micro)
{
}

void ClockControl::setSystemTimeDate(QDateTime &when, int mode)
{
    clockmode = mode;
    const QString time = when.toString(tr("yyyy/MM/dd hh:mm:ss"));
    // The date and the time go to the script as two words.
    const QString command = QStringLiteral("/bin/sh %1 %2")
                                .arg(unitPath(QStringLiteral("/opt/hbi/bin/setDateTime.sh")), time);
    QStringList words = QProcess::splitCommand(command);
    const QString program = words.takeFirst();
    QProcess process;
    process.start(program, words, QIODevice::ReadWrite);
    // The script's exit status is not looked at: a run that ends counts as done.
    if (!process.waitForFinished(kScriptTimeoutMs)) {
        qWarning() << "Could not run: " << command;
        process.kill();
        process.waitForFinished();
        return;
    }
    qInfo() << "Set system time to " << time;
    emit timeDateSet();
}
