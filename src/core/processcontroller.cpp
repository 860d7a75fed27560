#include "core/processcontroller.h"

#include "core/singleton.h"

#include <QDebug>
#include <QProcess>
#include <QTimer>

ProcessController *ProcessController::instance(QObject *parent)
{
    static ProcessController *theInstance = nullptr;
    return Singleton<ProcessController>::instance(theInstance, parent);
}

ProcessController::ProcessController(QObject *parent) : QObject(parent)
{
    connect(this, &ProcessController::start, this, &ProcessController::startProcess,
            static_cast<Qt::ConnectionType>(Qt::DirectConnection | Qt::UniqueConnection));
}

ProcessController::~ProcessController()
{
    if (timer)
        timer->stop();
    if (m_process) {
        disconnect(m_process, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this,
                   &ProcessController::processFinished);
        if (m_process->state() != QProcess::NotRunning)
            m_process->waitForFinished(-1);
    }
}

void ProcessController::addProcess(QString cmd, QStringList args, int timeoutMs)
{
    // A full ring overwrites its oldest waiting entry without a word: callers
    // never queue more than a handful, and a stale Wi-Fi scan is worth losing.
    last_added = nextIndex(last_added);
    processes[last_added] = fifo{cmd, args, timeoutMs};
    if (!running) {
        running_process = last_added;
        emit start(cmd, args, timeoutMs);
    }
}

void ProcessController::startProcess()
{
    const fifo &entry = processes[running_process];
    if (entry.isFree()) {
        running = false;
        return;
    }
    running = true;
    stdoutText.clear();
    if (m_process)
        m_process->deleteLater();
    m_process = new QProcess(this);
    connect(m_process, &QProcess::readyReadStandardOutput, this, &ProcessController::readStandardOutput);
    connect(m_process, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this,
                   &ProcessController::processFinished);
    if (timer)
        timer->deleteLater();
    timer = new QTimer(this);
    timer->setSingleShot(true);
    connect(timer, &QTimer::timeout, this, &ProcessController::timeout);
    timer->start(entry.timeout);
    dotimeout = true;
    m_process->start(entry.command, entry.arguments, QIODevice::ReadWrite);
}

void ProcessController::readStandardOutput()
{
    if (m_process)
        stdoutText += QString::fromLocal8Bit(m_process->readAllStandardOutput());
}

void ProcessController::timeout()
{
    if (m_process) {
        disconnect(m_process, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this,
                   &ProcessController::processFinished);
        m_process->kill();
        m_process->close();
        m_process->waitForFinished(-1);
        m_process->deleteLater();
        m_process = nullptr;
    }
    qInfo() << "process timeout";
    dotimeout = false;
    endProcess(333);
}

void ProcessController::processFinished(int code, QProcess::ExitStatus status)
{
    Q_UNUSED(status)
    endProcess(code);
}

void ProcessController::endProcess(int code)
{
    Q_UNUSED(code)
    if (timer && !timer->isActive() && dotimeout) {
        qInfo() << "stopped endprocess";
        return;
    }
    if (timer)
        timer->stop();
    if (m_process) {
        readStandardOutput();
        m_process->deleteLater();
        m_process = nullptr;
    }
    const fifo finished = processes[running_process];
    processes[running_process] = fifo{};
    const QString text = stdoutText.trimmed();
    emit output(finished.command, text);
    emit outputWithArgs(finished.command, text, finished.arguments);

    const int next = nextIndex(running_process);
    if (processes[next].isFree()) {
        running = false;
        return;
    }
    running_process = next;
    qDebug() << "start next process";
    emit start(processes[next].command, processes[next].arguments, processes[next].timeout);
}
