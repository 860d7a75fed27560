#pragma once

#include <QObject>

class QLabel;
class QTimer;

// The time and date under the picture, renewed every second, with a blinking colon.
class ScreenClock : public QObject
{
    Q_OBJECT
public:
    static constexpr int kClockRefreshMs = 1000;

    ScreenClock(QLabel *time, QLabel *date, QObject *parent = nullptr);

public slots:
    void showTime();

private:
    QLabel *m_time;
    QLabel *m_date;
    QTimer *m_clock;
};
