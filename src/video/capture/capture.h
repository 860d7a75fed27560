#pragma once

#include "video/capture/cascadedcapturestatushandler.h"
#include "video/capture/gstreamerpalpipeline.h"

#include <string>

// The process-wide capture object: the one pipeline, and the handler through
// which it tells every VideoCapture what happened.
class capture : public CascadedCaptureStatusHandler
{
public:
    // Made once, by the first VideoCapture.
    static capture *instance();

    GStreamerPALPipeline &pipeline() { return m_pipeline; }

    bool startCapture();
    void startVideo() { m_pipeline.startVideo(); }
    void stopVideo() { m_pipeline.stopVideo(); }
    void startRecording();
    void stopRecording() { m_pipeline.stopRecord(); }
    void startStreaming(const std::string &ip, const std::string &port);
    void stopStreaming();

private:
    capture();

    GStreamerPALPipeline m_pipeline;
};
