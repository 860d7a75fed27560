#include "instrument/camerahealth.h"

#include "instrument/cameracontroller.h"

namespace {
// The camera's override state in which its pressure alarms count.
const char kOverrideArmed[] = "01";
} // namespace

CameraHealth::CameraHealth(const CameraReadings &cam, bool sondeStatus, const QString &override,
                           const Limits &limits, int flags)
    : m_cam(cam)
    , m_override(override)
    , m_limits(limits)
    , m_flags(flags)
    , m_warning(CameraController::kNoWarning)
{
    checkTemperature();
    checkPressure(m_cam.camPressure1, CameraController::stateUnderPressure1, CameraController::stateOverPressure1);
    checkPressure(m_cam.camPressure2, CameraController::stateUnderPressure2, CameraController::stateOverPressure2);
    checkAtex();
    checkCurrent();
    setFlag(CameraController::stateSonde, sondeStatus);
}

void CameraHealth::setFlag(int flag, bool on)
{
    if (on)
        m_flags |= flag;
    else
        m_flags &= ~flag;
}

void CameraHealth::checkTemperature()
{
    const bool over = m_cam.camTemp > m_limits.overTempThreshold;
    setFlag(CameraController::stateOverTemperature, over);
    if (over)
        m_warning = CameraController::kOverTemp;
}

void CameraHealth::checkPressure(int pressure, int underFlag, int overFlag)
{
    if (m_override != QLatin1String(kOverrideArmed)) {
        m_flags &= ~(underFlag | overFlag);
        return;
    }
    // A pressure back in range clears nothing: the alarm stands until the
    // camera leaves the armed override state.
    if (pressure < m_limits.underPressureThreshold) {
        m_flags |= underFlag;
        m_warning = CameraController::kUnderPressure;
    } else if (pressure > m_limits.overPressureThreshold) {
        m_flags |= overFlag;
        m_warning = CameraController::kOverPressure;
    }
}

void CameraHealth::checkAtex()
{
    setFlag(CameraController::stateATEX, m_limits.atexCompliant);
    if (m_limits.atexCompliant && m_warning == CameraController::kUnderPressure)
        m_warning = CameraController::kUnderPressureATEX;
}

void CameraHealth::checkCurrent()
{
    const int current = m_cam.camCurrent;
    setFlag(CameraController::stateDisconnected, current < m_limits.disconnectThreshold);
    const bool healthy = current < m_limits.upperFaultThreshold
                         && (current < m_limits.disconnectThreshold || current >= m_limits.lowerFaultThreshold);
    setFlag(CameraController::stateFaulty, !healthy);
}
