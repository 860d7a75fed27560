#include "video/screenclock.h"

#include "core/consolesettings.h"

#include <QDateTime>
#include <QLabel>
#include <QTimer>

ScreenClock::ScreenClock(QLabel *time, QLabel *date, QObject *parent)
    : QObject(parent)
    , m_time(time)
    , m_date(date)
    , m_clock(new QTimer(this))
{
    connect(m_clock, &QTimer::timeout, this, &ScreenClock::showTime);
    m_clock->start(kClockRefreshMs);
}

void ScreenClock::showTime()
{
    const QDateTime now = QDateTime::currentDateTime();
    const bool twelveHour = ConsoleSettings().value(QStringLiteral("Clock_mode")).toInt() == 1;
    QString time = now.time().toString(twelveHour ? QStringLiteral("hh:mm AP") : QStringLiteral("hh:mm"));
    // The colon blinks.
    if (now.time().second() % 2 == 0)
        time[2] = QLatin1Char(' ');
    m_time->setText(time);
    m_date->setText(now.date().toString(QStringLiteral("dd/MM/yy")));
}
