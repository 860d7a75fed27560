#include "video/capture/videocapture.h"

#include "video/capture/capture.h"

VideoCapture::VideoCapture(VideoCaptureStatusHandler *observer)
    : internalHandler(new CascadedCaptureStatusHandler)
{
    if (observer)
        internalHandler->registerObserver(observer);
    capture::instance()->registerObserver(internalHandler);
}

VideoCapture::~VideoCapture()
{
    stopVideo();
    stopStreaming();
    capture::instance()->removeObserver(internalHandler);
    if (t.joinable())
        t.join();
    delete internalHandler;
}

bool VideoCapture::start()
{
    return capture::instance()->startCapture();
}

void VideoCapture::startVideo() { capture::instance()->startVideo(); }
void VideoCapture::stopVideo() { capture::instance()->stopVideo(); }
void VideoCapture::startRecording() { capture::instance()->startRecording(); }
void VideoCapture::stopRecording() { capture::instance()->stopRecording(); }

void VideoCapture::startStreaming(const std::string &ip, const std::string &port)
{
    capture::instance()->startStreaming(ip, port);
}

void VideoCapture::stopStreaming() { capture::instance()->stopStreaming(); }
uint64_t VideoCapture::getPosition() { return capture::instance()->pipeline().getPosition(); }

bool VideoCapture::isActive()
{
    return capture::instance()->pipeline().lifecycle() == GStreamerPALPipeline::kRunning;
}
