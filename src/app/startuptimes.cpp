#include "app/startuptimes.h"

#include <QDateTime>
#include <QDebug>
#include <QElapsedTimer>
#include <QEvent>
#include <QTimer>
#include <QWidget>
#include <ctime>

namespace {
QElapsedTimer &sinceMain()
{
    static QElapsedTimer timer;
    return timer;
}
}

void StartupTimes::markStart()
{
    sinceMain().start();
}

void StartupTimes::mark(const char *step)
{
    timespec cpu{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &cpu);
    const double cpuMs = cpu.tv_sec * 1000.0 + cpu.tv_nsec / 1e6;
    qDebug().noquote() << QStringLiteral("Start-up: %1 %2 ms after start, main thread %3 ms of processor")
                              .arg(QLatin1String(step))
                              .arg(msSinceLaunch(), 0, 'f', 1)
                              .arg(cpuMs, 0, 'f', 1);
}

StartupTimes::StartupTimes(QWidget *window) : QObject(window)
{
    window->installEventFilter(this);
    QTimer::singleShot(0, this, [] {
        qInfo().noquote() << QStringLiteral("Event loop running %1 ms after start").arg(msSinceLaunch(), 0, 'f', 1);
    });
}

bool StartupTimes::eventFilter(QObject *watched, QEvent *event)
{
    if (event->type() == QEvent::Paint) {
        watched->removeEventFilter(this);
        qInfo().noquote() << QStringLiteral("Main window painted %1 ms after start").arg(msSinceLaunch(), 0, 'f', 1);
    }
    return false;
}

double StartupTimes::msSinceLaunch()
{
    bool handedOver = false;
    const qint64 launchedUs = qEnvironmentVariable("DUCTLINE_LAUNCHED_AT").toLongLong(&handedOver);
    if (handedOver)
        return (QDateTime::currentMSecsSinceEpoch() * 1000.0 - launchedUs) / 1000.0;
    return sinceMain().nsecsElapsed() / 1e6;
}
