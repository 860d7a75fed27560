#pragma once

#include <QObject>
#include <functional>

class QWidget;

// Runs a piece of start-up work once the window's first picture is up, from the
// event loop. Work that only starts programs or builds what is not on screen yet
// would otherwise compete with the first picture for the processor. A window that
// is not being shown when the event loop first turns (a test's) gets the work then.
// The work is dropped when its context goes first.
class AfterFirstPaint : public QObject
{
public:
    static void run(QWidget *window, QObject *context, std::function<void()> work);

protected:
    bool eventFilter(QObject *watched, QEvent *event) override;

private:
    AfterFirstPaint(QWidget *window, QObject *context, std::function<void()> work);
    void runOnce();

    QWidget *m_window;
    std::function<void()> m_work;
};
