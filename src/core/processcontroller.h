#pragma once

#include <QObject>
#include <QProcess>
#include <QString>
#include <QStringList>

class QTimer;

template <typename T>
class Singleton;

// Runs external commands one at a time, in the order they were added, each with
// a time limit, and hands back what they printed.
class ProcessController : public QObject
{
    Q_OBJECT
public:
    static constexpr int num_processes = 10;

    static ProcessController *instance(QObject *parent = nullptr);
    ~ProcessController() override;

    bool isRunning() const { return running; }

public slots:
    void addProcess(QString cmd, QStringList args, int timeout);

signals:
    void start(QString cmd, QStringList args, int timeout);
    void output(QString cmd, QString stdout);
    void outputWithArgs(QString cmd, QString stdout, QStringList args);

private slots:
    void startProcess();
    void readStandardOutput();
    void timeout();
    void processFinished(int code, QProcess::ExitStatus status);
    void endProcess(int code);

private:
    struct fifo {
        QString command;
        QStringList arguments;
        int timeout = 0;
        bool isFree() const { return command.isEmpty(); }
    };

    friend class Singleton<ProcessController>;
    explicit ProcessController(QObject *parent);
    static int nextIndex(int index) { return (index + 1) % num_processes; }

    QProcess *m_process = nullptr;
    QString stdoutText;
    volatile bool running = false;
    bool dotimeout = false;
    fifo processes[num_processes];
    int running_process = 0;
    int last_added = 0;
    QTimer *timer = nullptr;
};
