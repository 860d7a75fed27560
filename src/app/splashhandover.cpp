#include "app/splashhandover.h"

#include <QEvent>
#include <QSplashScreen>
#include <QWidget>

SplashHandover::SplashHandover(QSplashScreen *splash, QWidget *window)
    : QObject(window), m_splash(splash), m_window(window)
{
    window->installEventFilter(this);
}

bool SplashHandover::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == m_window && event->type() == QEvent::Paint) {
        m_window->removeEventFilter(this);
        if (m_splash)
            m_splash->finish(m_window);
        deleteLater();
    }
    return false;
}
