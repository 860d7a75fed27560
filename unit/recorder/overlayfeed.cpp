#include "overlayfeed.h"

#include "unitlog.h"

#include <QImage>
#include <QString>
#include <gst/app/gstappsrc.h>
#include <sys/stat.h>
#include <utility>
#include <vector>

namespace {
// The console writes a new overlay at most every 200 ms; half that keeps the
// delay between its rename and the recording under a few frames.
constexpr guint kPollMs = 100;
constexpr guint kFrameMs = 40;
constexpr gsize kFrameBytes = gsize(OverlayFeed::kWidth) * OverlayFeed::kHeight * 4;
} // namespace

bool OverlayFeed::Signature::operator==(const Signature &other) const
{
    return inode == other.inode && size == other.size && modified.tv_sec == other.modified.tv_sec
        && modified.tv_nsec == other.modified.tv_nsec;
}

OverlayFeed::OverlayFeed(GstElement *appsrc, std::string path)
    : m_appsrc(GST_ELEMENT(gst_object_ref(appsrc)))
    , m_path(std::move(path))
{
}

OverlayFeed::~OverlayFeed()
{
    stop();
    if (m_frame)
        gst_buffer_unref(m_frame);
    gst_object_unref(m_appsrc);
}

void OverlayFeed::start()
{
    const std::vector<guint8> clear(kFrameBytes, 0);
    setPixels(clear.data(), clear.size());
    poll();
    pushFrame();
    if (m_pollTimer == 0)
        m_pollTimer = g_timeout_add(kPollMs, &OverlayFeed::pollThunk, this);
    if (m_frameTimer == 0)
        m_frameTimer = g_timeout_add(kFrameMs, &OverlayFeed::frameThunk, this);
}

void OverlayFeed::stop()
{
    for (guint *timer : {&m_pollTimer, &m_frameTimer}) {
        if (*timer != 0)
            g_source_remove(*timer);
        *timer = 0;
    }
}

gboolean OverlayFeed::pollThunk(gpointer self)
{
    static_cast<OverlayFeed *>(self)->poll();
    return G_SOURCE_CONTINUE;
}

gboolean OverlayFeed::frameThunk(gpointer self)
{
    static_cast<OverlayFeed *>(self)->pushFrame();
    return G_SOURCE_CONTINUE;
}

void OverlayFeed::poll()
{
    if (m_path.empty())
        return;
    struct stat info {};
    if (stat(m_path.c_str(), &info) != 0) {
        if (!m_announcedMissing)
            unitLog("no overlay at %s yet; keeping the last picture", m_path.c_str());
        m_announcedMissing = true;
        return;
    }
    m_announcedMissing = false;
    Signature now;
    now.inode = info.st_ino;
    now.size = info.st_size;
    now.modified = info.st_mtim;
    if (now == m_shown)
        return;
    // Remember it even when it fails to load, so a broken file is reported once.
    m_shown = now;
    if (!loadPicture(m_path))
        unitLog("overlay %s could not be read; keeping the last picture", m_path.c_str());
}

bool OverlayFeed::loadPicture(const std::string &path)
{
    QImage picture(QString::fromLocal8Bit(path.c_str()));
    if (picture.isNull())
        return false;
    if (picture.width() != kWidth || picture.height() != kHeight)
        picture = picture.scaled(kWidth, kHeight, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    // Non-premultiplied ARGB32 is BGRA in memory on the little-endian unit.
    picture = picture.convertToFormat(QImage::Format_ARGB32);
    if (picture.bytesPerLine() != kWidth * 4)
        return false;
    setPixels(picture.constBits(), kFrameBytes);
    return true;
}

void OverlayFeed::setPixels(const void *argb, gsize bytes)
{
    GstBuffer *frame = gst_buffer_new_allocate(nullptr, bytes, nullptr);
    gst_buffer_fill(frame, 0, argb, bytes);
    if (m_frame)
        gst_buffer_unref(m_frame);
    m_frame = frame;
}

// Every frame is a fresh buffer around the same pixels, stamped with the pipeline's
// running time. Until the pipeline runs there is no clock to stamp with, and a
// buffer without a time stamp would reach the muxer and end the recording, so
// nothing is pushed before then.
void OverlayFeed::pushFrame()
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
    GstBuffer *frame = gst_buffer_copy(m_frame);
    GST_BUFFER_PTS(frame) = now - base;
    GST_BUFFER_DURATION(frame) = kFrameMs * GST_MSECOND;
    const GstFlowReturn flow = gst_app_src_push_buffer(GST_APP_SRC(m_appsrc), frame);
    if (flow != GST_FLOW_OK && flow != GST_FLOW_FLUSHING && flow != GST_FLOW_EOS)
        unitLog("overlay not accepted by the pipeline (%s)", gst_flow_get_name(flow));
}
