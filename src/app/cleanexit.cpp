#include "app/cleanexit.h"

#include "core/messagehandler.h"

#include <QCoreApplication>
#include <QDate>
#include <QDebug>
#include <QFile>
#include <QTextStream>
#include <csignal>
#include <cstdio>
#include <execinfo.h>

CleanExit::CleanExit()
{
    signal(SIGINT, CleanExit::exitQt);
    signal(SIGTERM, CleanExit::exitQt);
    signal(SIGKILL, CleanExit::exitQt);
    signal(SIGUSR1, CleanExit::user1);
    signal(SIGUSR2, CleanExit::user2);
}

void CleanExit::exitQt(int sig)
{
    QCoreApplication::exit(sig);
}

void CleanExit::user1(int)
{
    qDebug() << "Got user1 signal";
}

void CleanExit::user2(int)
{
    qDebug() << "Got user2 signal";
}

void installCrashHandlers()
{
    // SIGINT and SIGTERM take the crash path on purpose, so that an interrupted
    // or terminated console leaves its mark in the log. SIGSTOP cannot be caught;
    // the call stays harmless.
    for (int sig : {SIGSEGV, SIGSTOP, SIGINT, SIGILL, SIGABRT, SIGFPE, SIGTERM})
        signal(sig, manageSegFailure);
}

void manageSegFailure(int sig)
{
    const QString path = logFilePath(QDate::currentDate());
    QFile log(path);
    if (log.open(QIODevice::WriteOnly | QIODevice::Append | QIODevice::Text)) {
        QTextStream stream(&log);
        stream << "Ductline application crash, signal " << sig << '\n';
    }
    signal(sig, SIG_DFL);

    void *frames[10];
    const int depth = backtrace(frames, 10);
    backtrace_symbols_fd(frames, depth, 1);
    if (FILE *raw = fopen(path.toLocal8Bit().constData(), "a")) {
        backtrace_symbols_fd(frames, depth, fileno(raw));
        fclose(raw);
    }
    log.close();
    QCoreApplication::exit(sig);
}
