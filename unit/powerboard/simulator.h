#pragma once

#include "boardmodel.h"

#include <QFile>
#include <QHash>
#include <QObject>
#include <QStringList>

class QSocketNotifier;
class QTimer;

// Runs a BoardModel behind a pseudo-terminal: reads the console's commands,
// answers them (on time, late, never, or wrongly, as told), sends battery
// reports on its own, and takes changes from a scenario file and a command FIFO.
class Simulator : public QObject
{
    Q_OBJECT
public:
    struct Options {
        QString link;
        QString control;
        QString scenario;
        QString log;
        int reportMs = 5000;
        int ambientMs = 0;
        bool lfOnly = false;
    };

    Simulator(const Options &options, BoardModel *board, QObject *parent = nullptr);
    ~Simulator() override;

    bool start();

private:
    struct Fault {
        enum Kind { kLate, kLose, kWrong } kind = kLate;
        int delayMs = 0;
        int remaining = -1;  // replies still to lose, -1 for all
        QString other;
    };

    void readConsole();
    void readControl();
    void handleCommand(const QString &command);
    void deliver(const QString &asked, const QStringList &lines);
    void sendLine(const QString &line);
    // One line of the command language shared by the scenario and the FIFO.
    bool control(const QString &line);
    void runScenarioStep();
    void drainBattery();
    void log(const QString &text);

    Options m_options;
    BoardModel *m_board;
    int m_master = -1;
    int m_slave = -1;
    int m_controlFd = -1;
    QSocketNotifier *m_consoleNotifier = nullptr;
    QSocketNotifier *m_controlNotifier = nullptr;
    QByteArray m_consoleBuffer;
    QByteArray m_controlBuffer;
    QHash<QString, Fault> m_faults;
    QStringList m_scenario;
    QTimer *m_scenarioTimer = nullptr;
    QTimer *m_reportTimer = nullptr;
    QTimer *m_ambientTimer = nullptr;
    QTimer *m_drainTimer = nullptr;
    int m_drainMv = 0;
    QFile m_log;
};
