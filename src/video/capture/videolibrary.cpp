#include "video/capture/videolibrary.h"

#include "core/unitpaths.h"

#include <QDebug>
#include <QProcess>
#include <QTimer>

#include <stdexcept>

VideoLibrary::VideoLibrary(QObject *parent)
    : QObject(parent)
    , capture(this)
{
}

VideoLibrary::~VideoLibrary() = default;

// A set-up failure of the pipeline is an error of the capture like any other:
// it goes to the screen, never out of a slot.
void VideoLibrary::startVideo()
{
    try {
        capture.startVideo();
    } catch (const std::runtime_error &error) {
        videoCaptureErrorHandler(true, error.what());
    }
}

void VideoLibrary::startRecording()
{
    try {
        capture.startRecording();
    } catch (const std::runtime_error &error) {
        videoCaptureErrorHandler(true, error.what());
    }
}

void VideoLibrary::initCapture()
{
    QTimer::singleShot(kGpioDelayMs, this, &VideoLibrary::setGPIO);
}

void VideoLibrary::startCapture()
{
    capture.start();
}

void VideoLibrary::stopRecording() { capture.stopRecording(); }
void VideoLibrary::stopVideo() { capture.stopVideo(); }
void VideoLibrary::startStreaming(std::string ip, std::string port) { capture.startStreaming(ip, port); }

void VideoLibrary::startStreaming(QString ip, QString port)
{
    startStreaming(ip.toUtf8().toStdString(), port.toUtf8().toStdString());
}

void VideoLibrary::stopStreaming() { capture.stopStreaming(); }

// The capture board of an earlier hardware generation; its scripts are absent on
// today's unit, which the log then says.
void VideoLibrary::setGPIO()
{
    QProcess gpio;
    gpio.start(unitPath(QStringLiteral("/home/pi/QX7101/bin/QX7101_gpio_write.sh")),
               {QStringLiteral("19"), QStringLiteral("1")});
    if (!gpio.waitForFinished(kScriptWaitMs))
        qInfo() << "Capture board GPIO script did not run:" << gpio.errorString();
}

void VideoLibrary::sleepyTime()
{
    QProcess shutdown;
    shutdown.start(QStringLiteral("/bin/sh"), {unitPath(QStringLiteral("/home/pi/QX7101/bin/QX7101_shutdown.sh"))});
    if (!shutdown.waitForFinished(kScriptWaitMs))
        qInfo() << "Capture board shutdown script did not finish:" << shutdown.errorString();
}

void VideoLibrary::videoCaptureErrorHandler(bool fatal, std::string message)
{
    emit videoCaptureError(fatal, QString::fromStdString(message));
}

void VideoLibrary::jpegCompleteHandler(int key) { emit jpegComplete(key); }

void VideoLibrary::jpegErrorHandler(int key, std::string message)
{
    emit jpegError(key, QString::fromStdString(message));
}

void VideoLibrary::videoRecordingCompleteHandler() { emit videoRecordingComplete(); }
void VideoLibrary::videoShutdownCompleteHandler() { emit videoShutdownComplete(); }
void VideoLibrary::cameraDetachedHandler() { emit cameraDetached(); }
void VideoLibrary::cameraAttachedHandler() { emit cameraAttached(); }
