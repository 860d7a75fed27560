#include "instrument/camerawarnings.h"

#include "instrument/cameracontroller.h"

#include <QMetaMethod>

namespace {
// The camera accepts the operator's pass code by reporting this override state.
const char kOverrideAccepted[] = "02";
} // namespace

CameraWarnings::CameraWarnings(QObject *parent)
    : QObject(parent)
{
}

QString CameraWarnings::warningText(int warning)
{
    switch (warning) {
    case CameraController::kUnderPressure:
    case CameraController::kUnderPressureATEX:
        return tr("CAMERA UNDER PRESSURE<br>Please shut down the Lanthorn for safety.");
    case CameraController::kOverTemp:
        return tr("CAMERA OVER TEMPERATURE<br>Camera may shutdown automatically.<br>Camera should be returned for service.");
    default:
        return QString();
    }
}

void CameraWarnings::show(int warning)
{
    if (isShowing() || warning == CameraController::kNoWarning)
        return;
    m_warning = warning;
    switch (warning) {
    case CameraController::kUnderPressure:
        emit logEvent(3, 0);
        ask(false);
        break;
    case CameraController::kUnderPressureATEX:
        emit logEvent(3, 16);
        passSent = false;
        ask(true);
        break;
    case CameraController::kOverTemp:
        emit logEvent(3, 3);
        ask(false);
        break;
    default:
        finish();
        break;
    }
}

void CameraWarnings::ask(bool atex)
{
    m_atex = atex;
    m_asking = true;
    // With nobody to show the box the operator cannot answer: take it as cancelled.
    if (!isSignalConnected(QMetaMethod::fromSignal(&CameraWarnings::warningRaised))) {
        answerWarning(QString());
        return;
    }
    emit warningRaised(warningText(m_warning), atex);
}

void CameraWarnings::answerWarning(const QString &answer)
{
    if (!m_asking)
        return;
    m_asking = false;
    if (!m_atex) {
        finish();
        return;
    }
    passSent = false;
    emit sendAtexPass(answer);
    // The box's own event loop is where the camera's answers arrive, so each
    // asking is answered by what the camera said about the code before it.
    if (passCodeAccepted() || !m_cameraPresent)
        finish();
}

void CameraWarnings::passCodeSent()
{
    passSent = true;
    // Asked on the next turn of the event loop, so a board that confirms at once
    // never has the conversation call itself.
    if (isShowing() && m_atex && !m_asking)
        QMetaObject::invokeMethod(this, &CameraWarnings::checkPassCode, Qt::QueuedConnection);
}

void CameraWarnings::checkPassCode()
{
    if (!isShowing() || !m_atex || m_asking || !passSent)
        return;
    passSent = false;
    emit passStatusWanted();
    if (passCodeAccepted()) {
        finish();
        return;
    }
    ask(true);
}

void CameraWarnings::overrideReported(const QString &state)
{
    overideState = state;
}

void CameraWarnings::setCameraPresent(bool present)
{
    m_cameraPresent = present;
    // While the box is up the answer ends the conversation; otherwise end it now.
    if (!present && isShowing() && m_atex && !m_asking)
        finish();
}

bool CameraWarnings::passCodeAccepted() const
{
    return overideState == QLatin1String(kOverrideAccepted);
}

void CameraWarnings::finish()
{
    const int shown = m_warning;
    // Kept pairing: tools read these codes, and the ATEX path has always
    // recorded "No input" while the others record "Pin Code input".
    emit logEvent(4, shown == CameraController::kUnderPressureATEX ? 0 : 1);
    m_warning = 0;
    m_atex = false;
    m_asking = false;
    emit finished(shown);
}
