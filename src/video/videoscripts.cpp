#include "video/videoscripts.h"

#include "core/unitpaths.h"

#include <QDebug>
#include <QProcess>
#include <QTimer>

namespace {
// What a long-running script prints is read as it comes and only its end kept,
// so a chatty recorder costs no memory over hours.
constexpr int kPrintedTailLimit = 4096;

QString lastLineOf(const QString &printed)
{
    const QStringList lines = printed.split(QLatin1Char('\n'), Qt::SkipEmptyParts);
    for (auto line = lines.crbegin(); line != lines.crend(); ++line)
        if (!line->trimmed().isEmpty())
            return line->trimmed();
    return QString();
}
} // namespace

VideoScripts::VideoScripts(QObject *parent)
    : QObject(parent)
    , m_inTurnLimit(new QTimer(this))
{
    m_inTurnLimit->setSingleShot(true);
    m_inTurnLimit->setInterval(kPictureScriptLimitMs);
    connect(m_inTurnLimit, &QTimer::timeout, this, &VideoScripts::onPictureScriptHung);
}

VideoScripts::~VideoScripts()
{
    // Deleting a running QProcess kills it; a recording or a stop under way must
    // finish on its own, so each is let go and frees itself when it ends.
    for (auto running = m_running.cbegin(); running != m_running.cend(); ++running) {
        QProcess *process = running.key();
        process->disconnect(this);
        process->setParent(nullptr);
        connect(process, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), process,
                &QObject::deleteLater);
    }
}

VideoScripts::Job VideoScripts::makeJob(const QString &script, const QString &program, const QStringList &arguments,
                                        const QString &description)
{
    Job job;
    job.script = script;
    job.program = program;
    job.arguments = arguments;
    job.description = description;
    return job;
}

int VideoScripts::runScript(const QString &name, const QStringList &args)
{
    Job job = makeJob(name, QStringLiteral("/bin/sh"), QStringList{unitScriptPath(name)} + args,
                      (QStringList{name} + args).join(QLatin1Char(' ')));
    start(job);
    return job.run;
}

int VideoScripts::runScriptAsRoot(const QString &name, const QStringList &args)
{
    Job job = makeJob(name, QStringLiteral("sudo"), QStringList{unitScriptPath(name)} + args,
                      (QStringList{QStringLiteral("sudo"), name} + args).join(QLatin1Char(' ')));
    start(job);
    return job.run;
}

int VideoScripts::runProgram(const QString &program, const QStringList &args)
{
    Job job = makeJob(program, program, args, (QStringList{program} + args).join(QLatin1Char(' ')));
    start(job);
    return job.run;
}

void VideoScripts::runScriptInTurn(const QString &name, const QStringList &args)
{
    m_inTurn.enqueue(makeJob(name, QStringLiteral("/bin/sh"), QStringList{unitScriptPath(name)} + args,
                             (QStringList{name} + args).join(QLatin1Char(' '))));
    startNextInTurn();
}

void VideoScripts::startNextInTurn()
{
    if (m_inTurnRunning || m_inTurn.isEmpty())
        return;
    Job job = m_inTurn.dequeue();
    m_inTurnRunning = start(job);
    m_inTurnLimit->start();
}

QProcess *VideoScripts::start(Job &job)
{
    job.run = ++m_lastRun;
    auto *process = new QProcess(this);
    // The scripts log to the unit's own log; what they print is read only to name
    // the cause of a failure.
    process->setProcessChannelMode(QProcess::MergedChannels);
    m_running.insert(process, job);
    connect(process, &QProcess::readyRead, this, [this, process] {
        QString &tail = m_running[process].printedTail;
        tail = (tail + QString::fromLocal8Bit(process->readAll())).right(kPrintedTailLimit);
    });
    connect(process, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this,
            [this, process](int code, QProcess::ExitStatus status) {
                onFinished(process, status == QProcess::NormalExit ? code : -1);
            });
    connect(process, &QProcess::errorOccurred, this, [this, process](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            onFinished(process, -1);
    });
    qInfo().noquote() << "Running" << job.description;
    emit started(job.description);
    process->start(job.program, job.arguments);
    return process;
}

void VideoScripts::onFinished(QProcess *process, int exitCode)
{
    if (!m_running.contains(process))
        return;
    const Job job = m_running.take(process);
    process->disconnect(this);
    if (exitCode != 0) {
        const QString cause = lastLineOf(job.printedTail + QString::fromLocal8Bit(process->readAll()));
        qWarning().noquote() << job.description << "ended with" << exitCode
                             << (cause.isEmpty() ? QString() : QStringLiteral(": ") + cause);
        emit failed(job.run, job.script, exitCode, cause);
    }
    process->deleteLater();
    emit finished(job.description, exitCode);
    if (process == m_inTurnRunning) {
        m_inTurnLimit->stop();
        m_inTurnRunning = nullptr;
        startNextInTurn();
    }
}

void VideoScripts::onPictureScriptHung()
{
    if (!m_inTurnRunning)
        return;
    QProcess *hung = m_inTurnRunning;
    hung->kill();
    m_running[hung].printedTail = QStringLiteral("did not end within %1 ms; killed").arg(kPictureScriptLimitMs);
    hung->readAll();
    onFinished(hung, -1);
}
