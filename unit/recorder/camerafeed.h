#pragma once

#include "video/pipepicture.h"

#include <gst/gst.h>

#include <atomic>

// The simulated camera: the console's own pipe picture, drawn for the moment
// each frame is due and handed to the pipeline at 25 frames a second, stamped
// with the pipeline's running time.
class CameraFeed
{
public:
    static constexpr int kFrameMs = 40;

    explicit CameraFeed(GstElement *appsrc);
    ~CameraFeed();

    void start();
    void stop();
    // Running time of the first picture handed over; none before it.
    GstClockTime firstFrameTime() const { return m_firstFrameTime; }

private:
    static gboolean frameThunk(gpointer self);
    void pushFrame();

    GstElement *m_appsrc;
    PipePicture m_picture;
    guint m_frameTimer = 0;
    std::atomic<GstClockTime> m_firstFrameTime{GST_CLOCK_TIME_NONE};
};
