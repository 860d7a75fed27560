#pragma once

#include <QString>
#include <cstdint>

// The status tab of the settings screen: what the power board reports about itself.
class IStatus
{
public:
    virtual ~IStatus() = default;
    virtual void setMicroVersion(QString version) = 0;
    virtual void setOverTempLight(int state) = 0;
    virtual void setUnderTempLight(int state) = 0;
    virtual void setShockLight(int state) = 0;
    virtual void setHumidityLight(int state) = 0;
    virtual void setOverVoltLight(int state) = 0;
    virtual void setUnderVoltLight(int state) = 0;
    virtual void setTamperLight(int state) = 0;
    virtual void setServiceLight(int state) = 0;
    virtual void setFault(bool fault) = 0;
    virtual void setFatalFault(bool fault) = 0;
    virtual void setAdviceText() = 0;
    virtual void clearFaults() = 0;
    virtual void setBatteryVoltage(int millivolts) = 0;
    virtual void setBatteryCurrent(int16_t milliamps) = 0;
};
