#pragma once

#include <QObject>
#include <QPointer>

class QSplashScreen;
class QWidget;

// Takes the splash picture down when the main window first paints.
// QSplashScreen::finish() called straight after show() waits for the window to be
// exposed by turning the event loop with 10 ms sleeps in between, which held the
// start of the real event loop back by as long as the display took to map the
// window; called at the first paint it returns at once, and the splash stays up
// exactly as long. A window that is never painted gets the splash taken down
// after the second finish() would have waited.
class SplashHandover : public QObject
{
public:
    // Watches the window, which owns the watcher.
    SplashHandover(QSplashScreen *splash, QWidget *window);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    void handOver();

    QPointer<QSplashScreen> m_splash;
    QWidget *m_window;
};
