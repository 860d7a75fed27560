#pragma once

#include <string>

// What the capture layer tells whoever watches it. Calls may come from the
// GLib main context or a streaming thread; a receiver hands them on to its own
// thread itself.
class VideoCaptureStatusHandler
{
public:
    virtual void videoCaptureErrorHandler(bool fatal, std::string message) = 0;
    virtual void jpegCompleteHandler(int key) = 0;
    virtual void jpegErrorHandler(int key, std::string message) = 0;
    virtual void videoRecordingCompleteHandler() = 0;
    virtual void videoShutdownCompleteHandler() = 0;
    virtual void cameraDetachedHandler() = 0;
    virtual void cameraAttachedHandler() = 0;
    virtual ~VideoCaptureStatusHandler() = default;
};

class VideoPlaybackStatusHandler
{
public:
    virtual void videoPlaybackErrorHandler(std::string message) = 0;
    virtual void videoPlaybackPausedHandler() = 0;
    virtual void videoPlaybackRunningHandler() = 0;
    virtual void videoShutdownCompleteHandler() = 0;
    virtual ~VideoPlaybackStatusHandler() = default;
};
