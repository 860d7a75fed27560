#pragma once

#include "video/capture/statushandlers.h"

#include <cstdint>
#include <string>
#include <thread>

class CascadedCaptureStatusHandler;

// One user's handle on the process-wide capture: it registers its own handler
// with it, through which the capture's events reach this user.
class VideoCapture
{
public:
    // observer: where this user's events go.
    explicit VideoCapture(VideoCaptureStatusHandler *observer);
    virtual ~VideoCapture();

    bool start();
    void startVideo();
    void stopVideo();
    void startRecording();
    void stopRecording();
    void startStreaming(const std::string &ip, const std::string &port);
    void stopStreaming();
    uint64_t getPosition();
    bool isActive();

private:
    CascadedCaptureStatusHandler *internalHandler;
    std::thread t;
};
