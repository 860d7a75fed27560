#include "video/capture/gstreamerpalpipeline.h"

#include "core/unitpaths.h"
#include "video/capture/statushandlers.h"

#include <QDebug>

#include <algorithm>
#include <cstdio>
#include <fcntl.h>
#include <stdexcept>
#include <unistd.h>

namespace {
constexpr uint64_t kFramesPerSecond = 25;

// The recording branch writes here whatever name it is given: the branch is a
// bench path and its file is for looking at, not for a survey.
std::string benchRecordingPath()
{
    return unitPath(QStringLiteral("/home/pi/videotest.mp4")).toStdString();
}

class Locker
{
public:
    explicit Locker(pthread_mutex_t *mutex)
        : m_mutex(mutex)
    {
        pthread_mutex_lock(m_mutex);
    }
    ~Locker() { pthread_mutex_unlock(m_mutex); }

private:
    pthread_mutex_t *m_mutex;
};
} // namespace

GStreamerPALPipeline::GStreamerPALPipeline(VideoCaptureStatusHandler *statusHandler, std::string displaySink)
    : handler(statusHandler)
    , m_displaySink(std::move(displaySink))
{
    if (!gst_is_initialized())
        gst_init(nullptr, nullptr);
    pthread_mutex_init(&state_lock, nullptr);
    pthread_cond_init(&running_cond, nullptr);
}

GStreamerPALPipeline::~GStreamerPALPipeline()
{
    stopVideo();
    GstPipeline *left = nullptr;
    {
        Locker lock(&state_lock);
        left = pipeline;
        pipeline = nullptr;
    }
    if (m_busWatch)
        g_source_remove(m_busWatch);
    if (left) {
        gst_element_set_state(GST_ELEMENT(left), GST_STATE_NULL);
        gst_object_unref(left);
    }
    pthread_cond_destroy(&running_cond);
    pthread_mutex_destroy(&state_lock);
}

GStreamerPALPipeline::Lifecycle GStreamerPALPipeline::lifecycle()
{
    Locker lock(&state_lock);
    return state;
}

void GStreamerPALPipeline::startVideo()
{
    if (lifecycle() != kStopped)
        return;
    const std::string text = "videotestsrc name=v4lsrc !  video/x-raw,width=720,height=576 ! queue ! videoconvert"
                             " ! tee name=t t. ! "
        + m_displaySink;
    GError *error = nullptr;
    GstElement *parsed = gst_parse_launch(text.c_str(), &error);
    if (error) {
        const std::string message = error->message;
        g_clear_error(&error);
        if (parsed)
            gst_object_unref(parsed);
        throw std::runtime_error(message);
    }
    if (!parsed)
        throw std::runtime_error("Unable to create gstreamer pipeline");
    GstElement *source = gst_bin_get_by_name(GST_BIN(parsed), "v4lsrc");
    if (!source) {
        gst_object_unref(parsed);
        throw std::runtime_error("Unable to connect to v4lsrc");
    }
    GstElement *teeElement = gst_bin_get_by_name(GST_BIN(parsed), "t");
    if (!teeElement) {
        gst_object_unref(source);
        gst_object_unref(parsed);
        throw std::runtime_error("Unable to connect to tee");
    }
    gst_element_set_state(parsed, GST_STATE_PLAYING);
    GstBus *bus = gst_element_get_bus(parsed);
    m_busWatch = gst_bus_add_watch(bus, &GStreamerPALPipeline::gstreamerCallback, this);
    gst_object_unref(bus);

    Locker lock(&state_lock);
    state = kRunning;
    v4lsrc = GST_OBJECT(source);
    pipeline = GST_PIPELINE(parsed);
    tee = GST_OBJECT(teeElement);
    frame_count = 0;
}

void GStreamerPALPipeline::stopVideo()
{
    GstObject *source = nullptr;
    {
        Locker lock(&state_lock);
        if (state != kRunning)
            return;
        source = v4lsrc;
        v4lsrc = nullptr;
        if (pipeline) {
            state = kStopping;
            // Not under the lock: the end of stream may come back on this thread.
            pthread_mutex_unlock(&state_lock);
            if (source)
                gst_element_send_event(GST_ELEMENT(source), gst_event_new_eos());
            pthread_mutex_lock(&state_lock);
        }
    }
    if (source)
        gst_object_unref(source);
}

void GStreamerPALPipeline::startRecord(const std::string &name)
{
    Q_UNUSED(name)
    bin = gst_bin_new("recording_bin1");
    if (!bin)
        throw std::runtime_error("Unable to create bin");
    filesink = gst_element_factory_make("filesink", "filesink");
    filequeue = gst_element_factory_make("queue", "filequeue");
    mp4muxer = gst_element_factory_make("mp4mux", "mux");
    currentFilename = benchRecordingPath();
    g_object_set(filesink, "location", currentFilename.c_str(), nullptr);
    g_object_set(mp4muxer, "reserved-moov-update-period", GST_SECOND, "streamable", TRUE, nullptr);
    gst_bin_add_many(GST_BIN(bin), filequeue, filesink, mp4muxer, nullptr);
    // The muxer takes encoded video and the branch carries raw frames: the
    // branch writes the raw stream, and the muxer stays unlinked.
    gst_element_link(filequeue, filesink);

    GstPad *queueInput = gst_element_get_static_pad(filequeue, "sink");
    GstPad *ghost = gst_ghost_pad_new("sink", queueInput);
    gst_object_unref(queueInput);
    gst_element_add_pad(bin, ghost);
    gst_element_set_state(bin, GST_STATE_PAUSED);
    sinkpad = ghost;
    srcpad = gst_element_request_pad_simple(GST_ELEMENT(tee), "src_%u");
    gst_pad_add_probe(srcpad, GST_PAD_PROBE_TYPE_BLOCK, &GStreamerPALPipeline::linkfunc, this, nullptr);
}

GstPadProbeReturn GStreamerPALPipeline::linkfunc(GstPad *, GstPadProbeInfo *info, gpointer self)
{
    auto *p = static_cast<GStreamerPALPipeline *>(self);
    gst_pad_remove_probe(p->srcpad, GST_PAD_PROBE_INFO_ID(info));
    gst_bin_add(GST_BIN(p->pipeline), p->bin);
    gst_pad_link(p->srcpad, p->sinkpad);
    // The pipeline is playing already; asking it again from a streaming thread
    // would wait on the very thread that is blocked here.
    gst_element_sync_state_with_parent(p->bin);
    return GST_PAD_PROBE_OK;
}

void GStreamerPALPipeline::stopRecord()
{
    if (!srcpad)
        return;
    gst_pad_add_probe(srcpad, GST_PAD_PROBE_TYPE_BLOCK, &GStreamerPALPipeline::unlinkfunc, this, nullptr);
}

GstPadProbeReturn GStreamerPALPipeline::unlinkfunc(GstPad *, GstPadProbeInfo *info, gpointer self)
{
    auto *p = static_cast<GStreamerPALPipeline *>(self);
    gst_pad_unlink(p->srcpad, p->sinkpad);
    gst_element_release_request_pad(GST_ELEMENT(p->tee), p->srcpad);
    gst_element_send_event(p->bin, gst_event_new_eos());
    gst_pad_remove_probe(p->srcpad, GST_PAD_PROBE_INFO_ID(info));
    return GST_PAD_PROBE_OK;
}

void GStreamerPALPipeline::pushBuffer(const unsigned char *data, size_t size)
{
    // A deadline long past: one attempt, never a wait on the feeding thread.
    const timespec deadline{1, 0};
    if (pthread_mutex_timedlock(&state_lock, &deadline) != 0) {
        std::printf("Wait for record lock timed out\n");
        return;
    }
    if (state == kRunning && v4lsrc) {
        GstBuffer *buffer = gst_buffer_new_allocate(nullptr, size, nullptr);
        GstMapInfo map;
        if (gst_buffer_map(buffer, &map, GST_MAP_WRITE)) {
            std::copy(data, data + size, map.data);
            ++frame_count;
            usleep(1000);
            gst_buffer_unmap(buffer, &map);
        }
        gst_buffer_unref(buffer);
    }
    pthread_mutex_unlock(&state_lock);
}

uint64_t GStreamerPALPipeline::getPosition()
{
    Locker lock(&state_lock);
    return frame_count * 1000 / kFramesPerSecond;
}

gboolean GStreamerPALPipeline::gstreamerCallback(GstBus *, GstMessage *message, gpointer self)
{
    auto *p = static_cast<GStreamerPALPipeline *>(self);
    const GstMessageType type = GST_MESSAGE_TYPE(message);
    if (type == GST_MESSAGE_ERROR) {
        GError *error = nullptr;
        gst_message_parse_error(message, &error, nullptr);
        const std::string text = error ? error->message : "unknown error";
        g_clear_error(&error);
        if (p->handler)
            p->handler->videoCaptureErrorHandler(false, text);
    }
    if (type == GST_MESSAGE_ERROR || type == GST_MESSAGE_EOS) {
        GstPipeline *current = nullptr;
        {
            Locker lock(&p->state_lock);
            current = p->pipeline;
        }
        if (current && gst_element_set_state(GST_ELEMENT(current), GST_STATE_NULL) == GST_STATE_CHANGE_SUCCESS)
            p->handleNullState();
    } else if (type == GST_MESSAGE_STATE_CHANGED) {
        // The pipeline's own change only: the recording branch comes and goes.
        GstState newState = GST_STATE_VOID_PENDING;
        gst_message_parse_state_changed(message, nullptr, &newState, nullptr);
        if (newState == GST_STATE_NULL && GST_MESSAGE_SRC(message) == GST_OBJECT(p->pipeline))
            p->handleNullState();
    }
    return TRUE;
}

void GStreamerPALPipeline::handleNullState()
{
    GstPipeline *ended = nullptr;
    std::string file;
    {
        Locker lock(&state_lock);
        if (!pipeline)
            return;
        state = kStopped;
        pthread_cond_signal(&running_cond);
        ended = pipeline;
        pipeline = nullptr;
        file = currentFilename;
        if (tee)
            gst_object_unref(tee);
        tee = nullptr;
    }
    // The watch goes with the pipeline it watched; this may run inside it.
    if (m_busWatch)
        g_source_remove(m_busWatch);
    m_busWatch = 0;
    gst_object_unref(ended);
    if (!file.empty()) {
        const int fd = open(file.c_str(), O_RDWR);
        if (fd < 0) {
            perror("Open for flush\n");
        } else {
            fsync(fd);
            close(fd);
        }
    }
    if (handler)
        handler->videoRecordingCompleteHandler();
}
