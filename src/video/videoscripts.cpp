#include "video/videoscripts.h"

#include "core/unitpaths.h"

#include <QCoreApplication>
#include <QDebug>
#include <QFileInfo>
#include <QProcess>
#include <QTimer>

VideoScripts::VideoScripts(QObject *parent)
    : QObject(parent)
    , m_timeLimit(new QTimer(this))
{
    m_timeLimit->setSingleShot(true);
    m_timeLimit->setInterval(kScriptTimeLimitMs);
    connect(m_timeLimit, &QTimer::timeout, this, &VideoScripts::onTimeLimit);
    if (QCoreApplication::instance())
        connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, this, &VideoScripts::finishAll);
}

VideoScripts::~VideoScripts()
{
    finishAll();
}

void VideoScripts::finishAll()
{
    while (m_running) {
        if (!m_running->waitForFinished(kScriptTimeLimitMs))
            onTimeLimit();
        // finished() is delivered here, which starts the next one.
    }
}

void VideoScripts::runScript(const QString &name, const QStringList &args)
{
    enqueue({name, QStringLiteral("/bin/sh"), QStringList{unitScriptPath(name)} + args,
             (QStringList{name} + args).join(QLatin1Char(' '))});
}

void VideoScripts::runScriptAsRoot(const QString &name, const QStringList &args)
{
    enqueue({name, QStringLiteral("sudo"), QStringList{unitScriptPath(name)} + args,
             (QStringList{QStringLiteral("sudo"), name} + args).join(QLatin1Char(' '))});
}

void VideoScripts::runProgram(const QString &program, const QStringList &args)
{
    enqueue({program, program, args, (QStringList{program} + args).join(QLatin1Char(' '))});
}

void VideoScripts::enqueue(const Job &job)
{
    m_waiting.enqueue(job);
    if (!m_running)
        startNext();
}

void VideoScripts::startNext()
{
    if (m_waiting.isEmpty())
        return;
    const Job job = m_waiting.dequeue();
    m_runningDescription = job.description;
    m_runningScript = job.script;
    m_running = new QProcess(this);
    // The scripts log to the unit's own log; what they print is read only to name
    // the cause of a failure.
    m_running->setProcessChannelMode(QProcess::MergedChannels);
    connect(m_running, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this,
            [this](int code, QProcess::ExitStatus status) { onFinished(status == QProcess::NormalExit ? code : -1); });
    connect(m_running, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            onFinished(-1);
    });
    qInfo().noquote() << "Running" << job.description;
    emit started(job.description);
    m_timeLimit->start();
    m_running->start(job.program, job.arguments);
}

void VideoScripts::onFinished(int exitCode)
{
    if (!m_running)
        return;
    m_timeLimit->stop();
    if (exitCode != 0)
        reportFailure(exitCode, lastPrintedLine());
    const QString description = m_runningDescription;
    m_running->disconnect(this);
    m_running->deleteLater();
    m_running = nullptr;
    emit finished(description, exitCode);
    startNext();
}

void VideoScripts::onTimeLimit()
{
    if (!m_running)
        return;
    m_running->disconnect(this);
    reportFailure(-1, QStringLiteral("did not end within %1 ms; killed").arg(kScriptTimeLimitMs));
    m_running->kill();
    m_running->waitForFinished(1000);
    m_running->deleteLater();
    const QString description = m_runningDescription;
    m_running = nullptr;
    emit finished(description, -1);
    startNext();
}

QString VideoScripts::lastPrintedLine() const
{
    const QStringList lines = QString::fromLocal8Bit(m_running->readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (auto line = lines.crbegin(); line != lines.crend(); ++line)
        if (!line->trimmed().isEmpty())
            return line->trimmed();
    return QString();
}

void VideoScripts::reportFailure(int exitCode, const QString &cause)
{
    qWarning().noquote() << m_runningDescription << "ended with" << exitCode
                         << (cause.isEmpty() ? QString() : QStringLiteral(": ") + cause);
    emit failed(m_runningScript, exitCode, cause);
}
