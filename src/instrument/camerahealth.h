#pragma once

#include "instrument/camerareadings.h"

#include <QString>

// How a new camera is doing, read from its latest status replies against the
// limits of its camera table: the state flags the screens show and the warning
// the operator is owed. Pressure alarms only count while the camera's override
// state is armed, and then they stand until it leaves that state.
class CameraHealth
{
public:
    // The pressure and temperature limits hold for every camera; the rest comes
    // from the camera table's row for the camera's hardware.
    struct Limits {
        int underPressureThreshold = 170;
        int overPressureThreshold = 263;
        int overTempThreshold = 60;
        bool atexCompliant = false;
        int disconnectThreshold = 0;
        int lowerFaultThreshold = 0;
        int upperFaultThreshold = 0;
    };

    // `flags` are the camera's flags so far; `override` its override state.
    CameraHealth(const CameraReadings &cam, bool sondeStatus, const QString &override, const Limits &limits,
                 int flags);

    int flags() const { return m_flags; }
    // A CameraController::WarningStates; later checks overwrite earlier ones.
    int warning() const { return m_warning; }

private:
    void checkTemperature();
    void checkPressure(int pressure, int underFlag, int overFlag);
    void checkAtex();
    void checkCurrent();
    void setFlag(int flag, bool on);

    const CameraReadings &m_cam;
    const QString m_override;
    const Limits m_limits;
    int m_flags;
    int m_warning;
};
