#pragma once

#include <QObject>

class Microcontroller;
class QDateTime;

// Sets the system clock through the unit's script and tells the program the time
// changed. The power board's own clock is set by Microcontroller::setRTC().
class ClockControl : public QObject
{
    Q_OBJECT
public:
    static constexpr int kScriptTimeoutMs = 30000;

    explicit ClockControl(Microcontroller *micro, QObject *parent = nullptr);

    void setSystemTimeDate(QDateTime &when, int mode);
    int get_clock_mode() const { return clockmode; }

signals:
    void timeDateSet();

private:
    Microcontroller *m_micro;  // kept for the board's clock; the script does the work
    int clockmode = 0;
};
