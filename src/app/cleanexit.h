#pragma once

// Installs the process's signal handlers when constructed; created first thing in main().
class CleanExit
{
public:
    CleanExit();

    static void exitQt(int sig);
    static void user1(int sig);
    static void user2(int sig);
};

// The crash path: a line in the log, a short backtrace, then the event loop is
// told to leave with the signal number as the exit status.
void manageSegFailure(int sig);
// Puts manageSegFailure on the crash and stop signals.
void installCrashHandlers();
