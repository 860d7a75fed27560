#pragma once

#include "video/capture/statushandlers.h"
#include "video/capture/videocapture.h"

#include <QObject>
#include <QString>

#include <string>

// The main screen's handle on the in-process capture layer. Only its
// construction runs at start; the start operations are slots nobody calls on
// the unit, where live view and recording run through the scripts. What the
// capture reports comes out as signals on this object's thread.
class VideoLibrary : public QObject, public VideoCaptureStatusHandler
{
    Q_OBJECT
public:
    static constexpr int kGpioDelayMs = 20000;
    static constexpr int kScriptWaitMs = 10000;

    explicit VideoLibrary(QObject *parent = nullptr);
    ~VideoLibrary() override;

    bool isActive() { return capture.isActive(); }
    uint64_t getPosition() { return capture.getPosition(); }

    // VideoCaptureStatusHandler
    void videoCaptureErrorHandler(bool fatal, std::string message) override;
    void jpegCompleteHandler(int key) override;
    void jpegErrorHandler(int key, std::string message) override;
    void videoRecordingCompleteHandler() override;
    void videoShutdownCompleteHandler() override;
    void cameraDetachedHandler() override;
    void cameraAttachedHandler() override;

signals:
    void startCaptureSignal();
    void videoCaptureError(bool fatal, QString message);
    void jpegComplete(int key);
    void jpegError(int key, QString message);
    void videoRecordingComplete();
    void videoShutdownComplete();
    void cameraDetached();
    void cameraAttached();

public slots:
    void initCapture();
    void startCapture();
    void startVideo();
    void startRecording();
    void stopRecording();
    void stopVideo();
    void startStreaming(std::string ip, std::string port);
    void startStreaming(QString ip, QString port);
    void stopStreaming();
    void setGPIO();
    void sleepyTime();

private:
    VideoCapture capture;
};
