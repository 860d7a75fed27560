#pragma once

#include <QObject>
#include <QQueue>
#include <QStringList>

class QProcess;
class QTimer;

// Runs the unit's recording, stream and picture scripts one after another, in
// the order the screen asked for them, without ever blocking the screen. The
// order matters: a resume that overtook the stop behind it would leave the
// recorder paused, and the last picture values asked for must be the ones that
// stay. Nobody waits for a result; a failure is logged once with what the script
// printed last, and announced by failed().
class VideoScripts : public QObject
{
    Q_OBJECT
public:
    // A script that has not ended by then is hung; it is killed so the ones
    // behind it still run.
    static constexpr int kScriptTimeLimitMs = 30000;

    explicit VideoScripts(QObject *parent = nullptr);
    ~VideoScripts() override;

    // /bin/sh <script> <args>
    void runScript(const QString &name, const QStringList &args = {});
    // sudo <script> <args>: the record script needs the capture device and the
    // shared memory as root.
    void runScriptAsRoot(const QString &name, const QStringList &args);
    // A system program found on PATH.
    void runProgram(const QString &program, const QStringList &args);

    bool isIdle() const { return !m_running && m_waiting.isEmpty(); }
    // Runs what is still queued to its end, blocking, so a stop asked for just
    // before the console closes still finishes the file.
    void finishAll();

signals:
    void started(QString command);
    void finished(QString command, int exitCode);
    // A script that ended with a fault, with the last line it printed as the cause
    // (empty when it printed nothing). Logged here once; receivers need not log it.
    void failed(QString script, int exitCode, QString cause);

private:
    struct Job {
        QString script;
        QString program;
        QStringList arguments;
        QString description;
    };

    void enqueue(const Job &job);
    void startNext();
    void onFinished(int exitCode);
    void onTimeLimit();
    void reportFailure(int exitCode, const QString &cause);
    QString lastPrintedLine() const;

    QQueue<Job> m_waiting;
    QProcess *m_running = nullptr;
    QString m_runningDescription;
    QString m_runningScript;
    QTimer *m_timeLimit;
};
