#pragma once

#include <gst/gst.h>
#include <pthread.h>

#include <cstdint>
#include <string>

class VideoCaptureStatusHandler;

// The in-process capture pipeline: a 720x576 PAL picture into a tee feeding the
// display, onto which a recording branch is hot-plugged and unplugged while the
// picture keeps running. Its source is the test source, which marks it as a
// bench path: the unit's live view and recordings run through the scripts.
class GStreamerPALPipeline
{
public:
    enum Lifecycle { kStopped = 0, kRunning = 1, kStopping = 2 };

    static constexpr const char *kDisplaySink = "kmssink plane-id=91 sync=false";

    // displaySink: the element text the tee's display branch ends in.
    explicit GStreamerPALPipeline(VideoCaptureStatusHandler *handler, std::string displaySink = kDisplaySink);
    ~GStreamerPALPipeline();

    // Set-up failures raise std::runtime_error.
    void startVideo();
    void stopVideo();
    void startRecord(const std::string &name);
    void stopRecord();
    // Hands one frame to a feeding source; dropped unless the lock is free at once.
    void pushBuffer(const unsigned char *data, size_t size);
    uint64_t getPosition();
    Lifecycle lifecycle();
    std::string recordingPath() const { return currentFilename; }

private:
    static gboolean gstreamerCallback(GstBus *bus, GstMessage *message, gpointer self);
    static GstPadProbeReturn linkfunc(GstPad *pad, GstPadProbeInfo *info, gpointer self);
    static GstPadProbeReturn unlinkfunc(GstPad *pad, GstPadProbeInfo *info, gpointer self);
    void handleNullState();

    pthread_mutex_t state_lock;
    pthread_cond_t running_cond;
    GstPipeline *pipeline = nullptr;
    GstObject *v4lsrc = nullptr;
    GstElement *bin = nullptr;
    GstElement *filesink = nullptr;
    GstElement *filequeue = nullptr;
    GstElement *mp4muxer = nullptr;
    GstPad *srcpad = nullptr;
    GstPad *sinkpad = nullptr;
    GstObject *tee = nullptr;
    std::string currentFilename;
    Lifecycle state = kStopped;
    uint64_t frame_count = 0;
    VideoCaptureStatusHandler *handler;
    std::string m_displaySink;
    guint m_busWatch = 0;
};
