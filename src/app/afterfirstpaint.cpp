#include "app/afterfirstpaint.h"

#include <QEvent>
#include <QTimer>
#include <QWidget>

void AfterFirstPaint::run(QWidget *window, QObject *context, std::function<void()> work)
{
    new AfterFirstPaint(window, context, std::move(work));
}

AfterFirstPaint::AfterFirstPaint(QWidget *window, QObject *context, std::function<void()> work)
    : QObject(window), m_window(window), m_work(std::move(work))
{
    window->installEventFilter(this);
    connect(context, &QObject::destroyed, this, [this] { m_work = nullptr; });
    QTimer::singleShot(0, this, [this] {
        if (!m_window->isVisible())
            runOnce();
    });
}

bool AfterFirstPaint::eventFilter(QObject *watched, QEvent *event)
{
    // Queued, so the picture is finished before the work starts.
    if (watched == m_window && event->type() == QEvent::Paint)
        QTimer::singleShot(0, this, &AfterFirstPaint::runOnce);
    return false;
}

void AfterFirstPaint::runOnce()
{
    if (!m_work)
        return;
    m_window->removeEventFilter(this);
    const std::function<void()> work = std::move(m_work);
    m_work = nullptr;
    deleteLater();
    work();
}
