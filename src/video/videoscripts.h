#pragma once

#include <QHash>
#include <QObject>
#include <QQueue>
#include <QStringList>

class QProcess;
class QTimer;

// Starts the unit's recording, stream and picture scripts without ever blocking
// the screen. The recording and stream scripts start the moment they are asked
// for and nobody waits on them: a real record script runs for as long as the
// recording does, so anything queued behind it would wait the whole recording.
// Where the order of two requests matters to the recorder (a resume before the
// stop behind it) the unit's scripts keep it themselves. Only the picture values
// run one after another, so the last values asked for are the ones that stay.
// A script that ends with a fault is logged once with what it printed last, and
// announced by failed().
class VideoScripts : public QObject
{
    Q_OBJECT
public:
    // A picture script that has not ended by then is hung; it is killed so the
    // values behind it still reach the device.
    static constexpr int kPictureScriptLimitMs = 30000;

    explicit VideoScripts(QObject *parent = nullptr);
    // Scripts still running are left to run: a recording outlives the screen.
    ~VideoScripts() override;

    // Each returns the number of the run, as failed() names it.
    // /bin/sh <script> <args>, started at once.
    int runScript(const QString &name, const QStringList &args = {});
    // sudo <script> <args>, started at once: the record script needs the capture
    // device and the shared memory as root.
    int runScriptAsRoot(const QString &name, const QStringList &args);
    // A system program found on PATH, started at once.
    int runProgram(const QString &program, const QStringList &args);
    // /bin/sh <script> <args>, after the picture scripts asked for before it.
    void runScriptInTurn(const QString &name, const QStringList &args);

    // No script started here is still running.
    bool isIdle() const { return m_running.isEmpty() && m_inTurn.isEmpty(); }

signals:
    void started(QString command);
    void finished(QString command, int exitCode);
    // A script that ended with a fault, with the last line it printed as the cause
    // (empty when it printed nothing). Logged here once; receivers need not log it.
    void failed(int run, QString script, int exitCode, QString cause);

private:
    struct Job {
        QString script;
        QString program;
        QStringList arguments;
        QString description;
        int run = 0;
        // The end of what it printed so far.
        QString printedTail;
    };

    QProcess *start(Job &job);
    void startNextInTurn();
    void onFinished(QProcess *process, int exitCode);
    void onPictureScriptHung();
    static Job makeJob(const QString &script, const QString &program, const QStringList &arguments,
                       const QString &description);

    QHash<QProcess *, Job> m_running;
    QQueue<Job> m_inTurn;
    QProcess *m_inTurnRunning = nullptr;
    QTimer *m_inTurnLimit;
    int m_lastRun = 0;
};
