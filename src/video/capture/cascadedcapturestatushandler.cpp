#include "video/capture/cascadedcapturestatushandler.h"

void CascadedCaptureStatusHandler::videoCaptureErrorHandler(bool fatal, std::string message)
{
    m_observers.forEach([&](VideoCaptureStatusHandler *h) { h->videoCaptureErrorHandler(fatal, message); });
}

void CascadedCaptureStatusHandler::jpegCompleteHandler(int key)
{
    m_observers.forEach([&](VideoCaptureStatusHandler *h) { h->jpegCompleteHandler(key); });
}

void CascadedCaptureStatusHandler::jpegErrorHandler(int key, std::string message)
{
    m_observers.forEach([&](VideoCaptureStatusHandler *h) { h->jpegErrorHandler(key, message); });
}

void CascadedCaptureStatusHandler::videoRecordingCompleteHandler()
{
    m_observers.forEach([](VideoCaptureStatusHandler *h) { h->videoRecordingCompleteHandler(); });
}

void CascadedCaptureStatusHandler::videoShutdownCompleteHandler()
{
    m_observers.forEach([](VideoCaptureStatusHandler *h) { h->videoShutdownCompleteHandler(); });
}

void CascadedCaptureStatusHandler::cameraDetachedHandler()
{
    m_observers.forEach([](VideoCaptureStatusHandler *h) { h->cameraDetachedHandler(); });
}

void CascadedCaptureStatusHandler::cameraAttachedHandler()
{
    m_observers.forEach([](VideoCaptureStatusHandler *h) { h->cameraAttachedHandler(); });
}
