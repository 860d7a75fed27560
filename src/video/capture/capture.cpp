#include "video/capture/capture.h"

#include <QDebug>


namespace {
// The pipeline ignores the name; it is kept so the call reads as it always did.
const char *const kRecordingName = "/home/pi/videotest.mp4";

// Where the display branch ends: the unit's video plane, or nowhere on the
// simulated unit and in tests, which have no display plane.
std::string displaySink()
{
    return qEnvironmentVariableIsEmpty("DUCTLINE_ROOT") ? GStreamerPALPipeline::kDisplaySink
                                                        : "fakesink sync=false";
}
} // namespace

capture::capture()
    : m_pipeline(this, displaySink())
{
}

capture *capture::instance()
{
    static capture *global = new capture;
    return global;
}

bool capture::startCapture()
{
    qInfo() << "Capture started";
    return true;
}

void capture::startRecording()
{
    m_pipeline.startRecord(kRecordingName);
}

void capture::startStreaming(const std::string &ip, const std::string &port)
{
    qDebug() << "Capture stream to" << QString::fromStdString(ip) << QString::fromStdString(port)
             << "runs through the stream script";
}

void capture::stopStreaming()
{
}
