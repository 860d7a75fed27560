#include "app/videoscreenwiring.h"

#include "app/controller.h"
#include "instrument/cameracontroller.h"
#include "video/video.h"

void VideoScreenWiring::connect(Controller *controller, Video *video)
{
    if (!controller || !video)
        return;
    video->setCounterSource([controller] { return controller->counter(); });
    QObject::connect(controller, &Controller::shutdownMessage, video, &Video::displayShutdownMessage);
    QObject::connect(controller, &Controller::clearAllBuffers, video, &Video::clearBuffers);
    QObject::connect(controller, &Controller::updateTimeDate, video, &Video::timeDateUpdate);
    QObject::connect(controller, &Controller::timeShortcutTriggered, video, &Video::showTimeOverlay);
    QObject::connect(controller, &Controller::dateShortcutTriggered, video, &Video::showDateOverlay);
    QObject::connect(controller, &Controller::cameraShortcutTriggered, video, &Video::showCameraControl);
    QObject::connect(controller, &Controller::graphicsShortcutTriggered, video, &Video::graphicsShortcut);
    QObject::connect(controller, &Controller::setCounterShortcutTriggered, video, &Video::setCounterShortcut);
    QObject::connect(video, &Video::sendKeyPress, controller, &Controller::handleComment);
    QObject::connect(video, &Video::reportScreenRequested, controller,
                     [controller] { controller->pushScreen(Controller::kScreenReport); });
    QObject::connect(video, &Video::settingsScreenRequested, controller, [controller](int tab) {
        if (tab >= 0)
            controller->setSettingsScreen(tab);
        controller->pushScreen(Controller::kScreenSettings);
    });
    CameraController *camera = CameraController::instance();
    QObject::connect(video, &Video::cameraDetached, camera, &CameraController::setVideoOff);
    QObject::connect(video, &Video::cameraAttached, camera, &CameraController::setVideoOn);
}
