#include "instrument/cameracontroller.h"

#include <QDebug>
#include <QMutex>
#include <QMutexLocker>

// The request chains are not wired yet: this receiver records what reaches it
// so the link to the power board can be followed in the log.

CameraController *CameraController::instance(QObject *parent)
{
    static QMutex mutex;
    static CameraController *controller = nullptr;
    QMutexLocker lock(&mutex);
    if (!controller)
        controller = new CameraController(parent);
    return controller;
}

CameraController::CameraController(QObject *parent)
    : QObject(parent)
{
}

void CameraController::ReceiveData(CameraCommand command, QString data)
{
    qDebug() << "Camera reply" << command << data;
}

void CameraController::ProcessCameraLogs(CameraCommand command, QString data)
{
    qDebug() << "Camera log" << command << data;
}

void CameraController::handlePowerBoardID(bool newBoard)
{
    m_powerBoardType = newBoard ? kNew : kOld;
    qInfo() << "Power board type" << m_powerBoardType;
}

void CameraController::enablePolling()
{
    m_requestEnable = true;
    qDebug() << "Camera polling enabled";
}

void CameraController::disablePolling()
{
    m_requestEnable = false;
    qDebug() << "Camera polling disabled";
}

void CameraController::SetSondeStatus()
{
    disablePolling();
    m_sondeStatus = !m_sondeStatus;
    emit setSonde(m_sondeStatus);
    enablePolling();
}

void CameraController::ClearCameraLogs()
{
    qInfo() << "Camera logs cleared";
}

void CameraController::passCodeSent()
{
    qInfo() << "Camera pass code sent";
}

void CameraController::setVideoOff()
{
    qInfo() << "Camera picture lost";
}

void CameraController::setVideoOn()
{
    qInfo() << "Camera picture found";
}
