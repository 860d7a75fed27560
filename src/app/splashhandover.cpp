#include "app/splashhandover.h"

#include <QEvent>
#include <QSplashScreen>
#include <QTimer>
#include <QWidget>

namespace {
// As long as finish() would have waited for a window the display never exposes.
constexpr int kLongestWaitMs = 1000;
}

SplashHandover::SplashHandover(QSplashScreen *splash, QWidget *window)
    : QObject(window), m_splash(splash), m_window(window)
{
    window->installEventFilter(this);
    QTimer::singleShot(kLongestWaitMs, this, &SplashHandover::handOver);
}

bool SplashHandover::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_window && event->type() == QEvent::Paint)
        handOver();
    return false;
}

void SplashHandover::handOver()
{
    m_window->removeEventFilter(this);
    if (m_splash && m_splash->isVisible())
        m_splash->finish(m_window);
    deleteLater();
}
