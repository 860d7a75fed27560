#pragma once

class ClockControl;

class IClock
{
public:
    virtual ~IClock() = default;
    virtual void setControl(ClockControl *clock) = 0;
};
