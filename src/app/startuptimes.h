#pragma once

#include <QObject>

class QWidget;

// Logs how long after launch the event loop first turned and the main window
// first painted. The launch time is the process's own start in main(), or, when
// a benchmark hands it over in DUCTLINE_LAUNCHED_AT (microseconds since the
// epoch, taken just before exec), the moment the launcher started it, so that
// loading the program's libraries counts too.
class StartupTimes : public QObject
{
public:
    // First thing in main(): the start when no launch time is handed over.
    static void markStart();
    // A step of start-up, how long after launch it was reached and the main thread's
    // processor time so far (which a loaded machine does not stretch), for profiling.
    static void mark(const char *step);
    // Watches the window, which owns the watcher.
    explicit StartupTimes(QWidget *window);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    static double msSinceLaunch();
};
