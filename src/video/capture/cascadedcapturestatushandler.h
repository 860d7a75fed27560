#pragma once

#include "video/capture/observerset.h"
#include "video/capture/statushandlers.h"

// Hands every capture event on to all the handlers registered with it.
class CascadedCaptureStatusHandler : public VideoCaptureStatusHandler
{
public:
    void registerObserver(VideoCaptureStatusHandler *observer) { m_observers.registerObserver(observer); }
    void removeObserver(VideoCaptureStatusHandler *observer) { m_observers.removeObserver(observer); }

    void videoCaptureErrorHandler(bool fatal, std::string message) override;
    void jpegCompleteHandler(int key) override;
    void jpegErrorHandler(int key, std::string message) override;
    void videoRecordingCompleteHandler() override;
    void videoShutdownCompleteHandler() override;
    void cameraDetachedHandler() override;
    void cameraAttachedHandler() override;

private:
    ObserverSet<VideoCaptureStatusHandler> m_observers;
};
