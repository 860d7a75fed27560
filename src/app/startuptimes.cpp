#include "app/startuptimes.h"

#include <QDateTime>
#include <QDebug>
#include <QElapsedTimer>
#include <QEvent>
#include <QTimer>
#include <QWidget>

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
