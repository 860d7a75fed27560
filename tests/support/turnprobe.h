#pragma once

#include <QMetaObject>
#include <QObject>
#include <QTimer>

#include <functional>

// Watches the event loop while something floods it: a posted call that posts
// itself again runs once per turn of the loop, and a zero timer beside it shows
// that timers still get their turn. progress() tells how much work was done so
// far; the probe keeps the most done between two of its own turns.
class TurnProbe : public QObject
{
public:
    explicit TurnProbe(std::function<int()> progress) : m_progress(std::move(progress))
    {
        m_timer.setInterval(0);
        QObject::connect(&m_timer, &QTimer::timeout, this, [this] { ++m_timerTicks; });
    }

    void start()
    {
        m_running = true;
        m_seen = m_progress();
        m_timer.start();
        post();
    }
    void stop()
    {
        m_running = false;
        m_timer.stop();
    }

    int mostPerTurn() const { return m_mostPerTurn; }
    int turns() const { return m_turns; }
    int timerTicks() const { return m_timerTicks; }

private:
    void post()
    {
        QMetaObject::invokeMethod(this, [this] { turn(); }, Qt::QueuedConnection);
    }
    void turn()
    {
        if (!m_running)
            return;
        const int now = m_progress();
        m_mostPerTurn = qMax(m_mostPerTurn, now - m_seen);
        m_seen = now;
        ++m_turns;
        post();
    }

    std::function<int()> m_progress;
    QTimer m_timer;
    bool m_running = false;
    int m_seen = 0;
    int m_mostPerTurn = 0;
    int m_turns = 0;
    int m_timerTicks = 0;
};
