#pragma once

// The power board as CameraController sees it: every request signal is recorded
// by name (with its argument) and, unless told otherwise, answered on the next
// turn of the event loop as the delegate would deliver the reply. Timeouts are
// fired by hand, never waited out.

#include "instrument/cameracontroller.h"

#include <QCoreApplication>
#include <QHash>
#include <QPair>
#include <QSet>
#include <QSignalSpy>
#include <QTimer>

class CameraBench : public QObject
{
public:
    using Reply = QPair<CameraController::CameraCommand, QString>;

    CameraController *camera = CameraController::instance();
    QStringList asked;
    QHash<QString, Reply> answers;
    QSet<QString> lost;

    CameraBench()
    {
        using C = CameraController;
        plain(&C::getCoilerID, "getCoilerID");
        plain(&C::getCamCurrent, "getCamCurrent");
        plain(&C::getCamVolt, "getCamVolt");
        plain(&C::getCamTemp, "getCamTemp");
        plain(&C::getCamPressure, "getCamPressure");
        plain(&C::getCamOrientation, "getCamOrientation");
        plain(&C::getCamSerial, "getCamSerial");
        plain(&C::getCamFW, "getCamFW");
        plain(&C::getCamPart, "getCamPart");
        plain(&C::getCamHW, "getCamHW");
        plain(&C::getCamBoard, "getCamBoard");
        plain(&C::getCamManufactureDate, "getCamManufactureDate");
        plain(&C::getCamMaintenanceDate, "getCamMaintenanceDate");
        plain(&C::getCamStatus, "getCamStatus");
        plain(&C::getSonde, "getSonde");
        plain(&C::getSondeFrequency, "getSondeFrequency");
        plain(&C::getAtexPass, "getAtexPass");
        // Settings are echoed back by the board, as a new coiler and camera do.
        connect(camera, &C::setCoilerType, this, [this](bool on) { echo("setCoilerType", C::kCoilType, int(on)); });
        connect(camera, &C::setCoilerEQ, this, [this](int eq) { echo("setCoilerEQ", C::kCoilEQ, eq); });
        connect(camera, &C::setCamState, this, [this](int state) { echo("setCamState", C::kCamState, state); });
        connect(camera, &C::sendAtexPass, this, [this](const QString &code) { asked << "sendAtexPass " + code; });
        connect(camera, &C::setSonde, this, [this](bool on) { asked << QStringLiteral("setSonde %1").arg(int(on)); });
        healthyNewCamera();
    }

    void healthyNewCamera()
    {
        using C = CameraController;
        answers = {
            {"getCoilerID", {C::kCoilID, "17"}},
            {"getCamCurrent", {C::kCamCurrent, "180"}},
            {"getCamSerial", {C::kCamSerial, "00A1B2C3"}},
            {"getCamFW", {C::kCamFW, "2.4.1"}},
            {"getCamPart", {C::kCamPart, "4102"}},
            {"getCamHW", {C::kCamHW, "120"}},
            {"getCamBoard", {C::kCamBoard, "0000000A0000000B0000000C"}},
            {"getCamManufactureDate", {C::kCamManuf, "13,09,2021"}},
            {"getCamMaintenanceDate", {C::kCamMaintenance, "02,04,2024"}},
            {"getSondeFrequency", {C::kCamSondeFrequency, "33"}},
            {"getCamVolt", {C::kCamVolt, "24100"}},
            {"getCamTemp", {C::kCamTemp, "31"}},
            {"getCamPressure", {C::kCamPressure, "210,215"}},
            {"getCamOrientation", {C::kCamOrientation, "12,-40,998"}},
            {"getCamStatus", {C::kCamStatus, "00"}},
            {"getSonde", {C::kCamSondeStatus, "0"}},
            {"getAtexPass", {C::kCamPassStatus, "00"}},
        };
        lost.clear();
    }

    QTimer *timeoutTimer() const { return camera->findChild<QTimer *>(QStringLiteral("cameraTimeoutTimer")); }
    QTimer *requestTimer() const { return camera->findChild<QTimer *>(QStringLiteral("cameraRequestTimer")); }

    // What the lost reply's timer would do when it runs out.
    void fireTimeout() { QMetaObject::invokeMethod(timeoutTimer(), "timeout"); }

    void deliverPending()
    {
        for (int i = 0; i < 5; ++i)
            QCoreApplication::processEvents();
    }

    // One cycle from the request timer's tick to the next tick being armed; a
    // lost reply is ended by firing the running timeout.
    bool cycle()
    {
        QSignalSpy done(camera, &CameraController::newState);
        camera->UpdateCameraState();
        // A warning the operator is still answering holds the cycle open.
        for (int turn = 0; turn < 50 && (done.isEmpty() || camera->isShowingWarning()); ++turn) {
            deliverPending();
            if (done.isEmpty() && m_pending == 0 && timeoutTimer()->isActive())
                fireTimeout();
        }
        requestTimer()->stop();
        return !done.isEmpty() && !camera->isShowingWarning();
    }

    // A new camera with video running, brought to the point where every cycle
    // runs the status chain.
    bool bringUpNewCamera()
    {
        camera->handlePowerBoardID(true);
        camera->setVideoOn();
        return cycle() && cycle() && cycle() && camera->isCameraReady();
    }

private:
    template <typename Signal>
    void plain(Signal signal, const QString &name)
    {
        connect(camera, signal, this, [this, name] { answer(name); });
    }

    void echo(const QString &name, CameraController::CameraCommand command, int value)
    {
        asked << QStringLiteral("%1 %2").arg(name).arg(value);
        if (!lost.contains(name))
            post({command, QString::number(value)});
    }

    void answer(const QString &name)
    {
        asked << name;
        if (answers.contains(name) && !lost.contains(name))
            post(answers.value(name));
    }

    void post(const Reply &reply)
    {
        ++m_pending;
        QTimer::singleShot(0, this, [this, reply] {
            --m_pending;
            camera->ReceiveData(reply.first, reply.second);
        });
    }

    int m_pending = 0;
};
