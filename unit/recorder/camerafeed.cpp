#include "camerafeed.h"

#include "unitlog.h"

#include <QDateTime>
#include <QImage>
#include <QPainter>
#include <gst/app/gstappsrc.h>

namespace {
constexpr gsize kFrameBytes = gsize(PipePicture::kWidth) * PipePicture::kHeight * 4;
} // namespace

CameraFeed::CameraFeed(GstElement *appsrc)
    : m_appsrc(GST_ELEMENT(gst_object_ref(appsrc)))
{
}

CameraFeed::~CameraFeed()
{
    stop();
    gst_object_unref(m_appsrc);
}

void CameraFeed::start()
{
    if (m_frameTimer == 0)
        m_frameTimer = g_timeout_add(kFrameMs, &CameraFeed::frameThunk, this);
}

void CameraFeed::stop()
{
    if (m_frameTimer != 0)
        g_source_remove(m_frameTimer);
    m_frameTimer = 0;
}

gboolean CameraFeed::frameThunk(gpointer self)
{
    static_cast<CameraFeed *>(self)->pushFrame();
    return G_SOURCE_CONTINUE;
}

// Nothing goes out before the pipeline runs: without its clock there is no time
// to stamp a frame with, and the muxer ends the file at an unstamped one.
void CameraFeed::pushFrame()
{
    if (GST_STATE(m_appsrc) != GST_STATE_PLAYING)
        return;
    GstClock *clock = gst_element_get_clock(m_appsrc);
    if (!clock)
        return;
    const GstClockTime now = gst_clock_get_time(clock);
    gst_object_unref(clock);
    const GstClockTime base = gst_element_get_base_time(m_appsrc);
    if (!GST_CLOCK_TIME_IS_VALID(now) || now < base)
        return;

    GstBuffer *frame = gst_buffer_new_allocate(nullptr, kFrameBytes, nullptr);
    GstMapInfo map;
    if (!gst_buffer_map(frame, &map, GST_MAP_WRITE)) {
        gst_buffer_unref(frame);
        return;
    }
    {
        // RGB32 is BGRx in memory on the little-endian unit.
        QImage picture(map.data, PipePicture::kWidth, PipePicture::kHeight, PipePicture::kWidth * 4,
                       QImage::Format_RGB32);
        QPainter painter(&picture);
        m_picture.paint(painter, QDateTime::currentMSecsSinceEpoch());
    }
    gst_buffer_unmap(frame, &map);
    GST_BUFFER_PTS(frame) = now - base;
    GST_BUFFER_DURATION(frame) = kFrameMs * GST_MSECOND;
    if (!GST_CLOCK_TIME_IS_VALID(m_firstFrameTime))
        m_firstFrameTime = now - base;
    const GstFlowReturn flow = gst_app_src_push_buffer(GST_APP_SRC(m_appsrc), frame);
    if (flow != GST_FLOW_OK && flow != GST_FLOW_FLUSHING && flow != GST_FLOW_EOS)
        unitLog("camera picture not accepted by the pipeline (%s)", gst_flow_get_name(flow));
}
