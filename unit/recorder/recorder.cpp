#include "recorder.h"

#include "camerafeed.h"
#include "overlayfeed.h"
#include "unitlog.h"

#include <glib-unix.h>

#include <cstdio>
#include <csignal>
#include <utility>

namespace {
// The index room at the head of the file bounds the length of one recording;
// three hours is far beyond a pipe section. One second of this video needs about
// 125 bytes of index; the muxer keeps two copies, so the header costs about 5 MB.
// Too little room only shortens the longest recording: see checkHeaderSpace.
constexpr guint64 kLongestRecording = 3 * 3600 * GST_SECOND;
constexpr guint kIndexBytesPerSecond = 250;
constexpr guint64 kIndexUpdatePeriod = GST_SECOND;
// Finish cleanly while there is still room for the index, rather than fail.
constexpr guint64 kHeaderSpaceMargin = 60 * GST_SECOND;
constexpr guint kHeaderSpaceCheckSeconds = 10;
constexpr guint kStopTimeoutSeconds = 5;

// The picture is the simulated camera's moving pipe, so a frozen recording is
// obvious on playback.
constexpr const char *kPipeline =
    "appsrc name=camera is-live=true format=time max-buffers=4 leaky-type=downstream"
    " caps=video/x-raw,format=BGRx,width=720,height=576,framerate=25/1,interlace-mode=progressive,pixel-aspect-ratio=1/1"
    " ! queue max-size-buffers=4 ! mix.sink_0 "
    "appsrc name=overlay is-live=true format=time max-buffers=2 leaky-type=downstream"
    " caps=video/x-raw,format=BGRA,width=720,height=576,framerate=25/1,interlace-mode=progressive,pixel-aspect-ratio=1/1"
    " ! queue max-size-buffers=2 ! mix.sink_1 "
    // Blending happens in the output format: it must keep the overlay's alpha.
    "compositor name=mix background=black ! video/x-raw,format=AYUV,width=720,height=576,framerate=25/1"
    " ! videoconvert ! video/x-raw,format=I420 ! queue max-size-buffers=8"
    " ! x264enc name=encoder tune=zerolatency speed-preset=ultrafast key-int-max=25 bitrate=2048"
    " ! h264parse ! mp4mux name=muxer ! filesink name=file";
} // namespace

Recorder::Recorder(Options options)
    : m_options(std::move(options))
    , m_syncer(m_options.output)
{
}

Recorder::~Recorder()
{
    m_overlay.reset();
    m_camera.reset();
    if (m_pipeline) {
        gst_element_set_state(m_pipeline, GST_STATE_NULL);
        gst_object_unref(m_encoder);
        gst_object_unref(m_muxer);
        gst_object_unref(m_pipeline);
    }
    if (m_loop)
        g_main_loop_unref(m_loop);
}

int Recorder::run()
{
    writeState("starting");
    m_loop = g_main_loop_new(nullptr, FALSE);
    // Early, so that a stop during start-up finishes the file instead of killing us.
    watchSignals();
    if (!buildPipeline()) {
        writeState("failed");
        return 1;
    }
    unitLog("recording to %s", m_options.output.c_str());
    if (gst_element_set_state(m_pipeline, GST_STATE_PLAYING) == GST_STATE_CHANGE_FAILURE) {
        unitLog("the recording pipeline did not start");
        logPendingErrors();
        gst_element_set_state(m_pipeline, GST_STATE_NULL);
        writeState("failed");
        return 1;
    }
    m_camera->start();
    m_overlay->start();
    g_main_loop_run(m_loop);

    m_overlay->stop();
    m_camera->stop();
    gst_element_set_state(m_pipeline, GST_STATE_NULL);
    m_syncer.stop();
    writeState(m_exitCode == 0 ? "stopped" : "failed");
    unitLog(m_exitCode == 0 ? "finished %s" : "recording to %s ended with a fault", m_options.output.c_str());
    return m_exitCode;
}

bool Recorder::buildPipeline()
{
    GError *error = nullptr;
    m_pipeline = gst_parse_launch(kPipeline, &error);
    if (!m_pipeline || error) {
        unitLog("cannot build the recording pipeline: %s", error ? error->message : "unknown error");
        g_clear_error(&error);
        return false;
    }
    GstBin *bin = GST_BIN(m_pipeline);
    m_encoder = gst_bin_get_by_name(bin, "encoder");
    m_muxer = gst_bin_get_by_name(bin, "muxer");
    GstElement *file = gst_bin_get_by_name(bin, "file");
    GstElement *overlay = gst_bin_get_by_name(bin, "overlay");

    g_object_set(m_muxer, "reserved-max-duration", kLongestRecording, "reserved-bytes-per-sec",
                 kIndexBytesPerSecond, "reserved-moov-update-period", kIndexUpdatePeriod, nullptr);
    g_object_set(file, "location", m_options.output.c_str(), nullptr);
    m_overlay = std::make_unique<OverlayFeed>(overlay, m_options.overlay);
    GstElement *camera = gst_bin_get_by_name(bin, "camera");
    m_camera = std::make_unique<CameraFeed>(camera);
    gst_object_unref(camera);

    GstPad *encoderInput = gst_element_get_static_pad(m_encoder, "sink");
    gst_pad_add_probe(encoderInput, GST_PAD_PROBE_TYPE_BUFFER, &Recorder::onEncoderInput, this, nullptr);
    gst_object_unref(encoderInput);

    GstBus *bus = gst_element_get_bus(m_pipeline);
    gst_bus_add_watch(bus, &Recorder::onBusMessage, this);
    gst_object_unref(bus);

    gst_object_unref(file);
    gst_object_unref(overlay);
    return true;
}

void Recorder::logPendingErrors()
{
    GstBus *bus = gst_element_get_bus(m_pipeline);
    while (GstMessage *message = gst_bus_pop_filtered(bus, GST_MESSAGE_ERROR)) {
        handleBusMessage(message);
        gst_message_unref(message);
    }
    gst_object_unref(bus);
}

void Recorder::watchSignals()
{
    g_unix_signal_add(SIGINT, &Recorder::onStopSignal, this);
    g_unix_signal_add(SIGTERM, &Recorder::onStopSignal, this);
    g_unix_signal_add(SIGHUP, &Recorder::onStopSignal, this);
    g_unix_signal_add(SIGUSR1, &Recorder::onPauseSignal, this);
    g_unix_signal_add(SIGUSR2, &Recorder::onResumeSignal, this);
    g_timeout_add_seconds(kHeaderSpaceCheckSeconds, &Recorder::onHeaderSpaceCheck, this);
}

void Recorder::pause()
{
    {
        std::lock_guard<std::mutex> lock(m_timingMutex);
        if (m_paused || m_stopping)
            return;
        m_paused = true;
    }
    writeState("paused");
    unitLog("paused");
}

void Recorder::resume()
{
    {
        std::lock_guard<std::mutex> lock(m_timingMutex);
        if (!m_paused || m_stopping)
            return;
        m_paused = false;
    }
    writeState("recording");
    unitLog("resumed");
}

void Recorder::requestStop(const char *reason)
{
    if (m_stopping.exchange(true))
        return;
    writeState("stopping");
    unitLog("finishing the recording (%s)", reason);
    // The overlay and camera feeds never end, so the end of stream goes straight
    // into the encoder; frames still on their way are dropped by the probe.
    gst_element_send_event(m_encoder, gst_event_new_eos());
    g_timeout_add_seconds(kStopTimeoutSeconds, &Recorder::onStopTimeout, this);
}

void Recorder::finish(int exitCode)
{
    if (exitCode != 0)
        m_exitCode = exitCode;
    g_main_loop_quit(m_loop);
}

void Recorder::writeState(const char *state)
{
    if (m_options.stateFile.empty())
        return;
    const std::string temporary = m_options.stateFile + ".new";
    FILE *file = std::fopen(temporary.c_str(), "w");
    if (!file)
        return;
    std::fprintf(file, "%s\n", state);
    std::fclose(file);
    std::rename(temporary.c_str(), m_options.stateFile.c_str());
}

GstPadProbeReturn Recorder::retime(GstPadProbeInfo *info)
{
    if (m_stopping)
        return GST_PAD_PROBE_DROP;
    GstBuffer *buffer = GST_PAD_PROBE_INFO_BUFFER(info);
    const GstClockTime pts = GST_BUFFER_PTS(buffer);
    // The encoder stamps a frame that does not come after the one before it with
    // no time at all, and the muxer ends the file at such a frame. The mixer can
    // hand over two frames of one time as its inputs start, so those are dropped
    // here, as are frames without a time.
    if (!GST_CLOCK_TIME_IS_VALID(pts) || (GST_CLOCK_TIME_IS_VALID(m_lastPts) && pts <= m_lastPts)) {
        if (!m_untimedFrameLogged.exchange(true))
            unitLog("a frame without a new time stamp was dropped before the encoder");
        return GST_PAD_PROBE_DROP;
    }
    // The mixer starts on its black background before the camera's first
    // picture is in; a recording starts with the picture.
    const GstClockTime cameraStart = m_camera->firstFrameTime();
    if (!GST_CLOCK_TIME_IS_VALID(cameraStart) || pts < cameraStart)
        return GST_PAD_PROBE_DROP;
    bool first = false;
    GstClockTime shift = 0;
    {
        std::lock_guard<std::mutex> lock(m_timingMutex);
        if (m_paused) {
            if (!m_pauseStarted && GST_CLOCK_TIME_IS_VALID(pts)) {
                m_pauseStart = pts;
                m_pauseStarted = true;
            }
            return GST_PAD_PROBE_DROP;
        }
        if (m_pauseStarted && GST_CLOCK_TIME_IS_VALID(pts) && pts > m_pauseStart) {
            m_pausedTotal += pts - m_pauseStart;
            m_pauseStarted = false;
        }
        shift = m_pausedTotal;
        m_lastPts = pts;
        first = !m_firstFrameSeen;
        m_firstFrameSeen = true;
    }
    if (shift > 0 && GST_CLOCK_TIME_IS_VALID(pts)) {
        buffer = gst_buffer_make_writable(buffer);
        GST_BUFFER_PTS(buffer) = pts - shift;
        GST_BUFFER_DTS(buffer) = GST_CLOCK_TIME_NONE;
        GST_PAD_PROBE_INFO_DATA(info) = buffer;
    }
    if (first)
        g_idle_add(&Recorder::onFirstFrame, this);
    return GST_PAD_PROBE_OK;
}

void Recorder::handleBusMessage(GstMessage *message)
{
    switch (GST_MESSAGE_TYPE(message)) {
    case GST_MESSAGE_EOS:
        finish(0);
        break;
    case GST_MESSAGE_ERROR:
    case GST_MESSAGE_WARNING: {
        GError *error = nullptr;
        gchar *detail = nullptr;
        const bool fatal = GST_MESSAGE_TYPE(message) == GST_MESSAGE_ERROR;
        if (fatal)
            gst_message_parse_error(message, &error, &detail);
        else
            gst_message_parse_warning(message, &error, &detail);
        // The kit log takes one line per event.
        if (detail)
            g_strdelimit(detail, "\n", ' ');
        unitLog("%s from %s: %s (%s)", fatal ? "error" : "warning", GST_OBJECT_NAME(GST_MESSAGE_SRC(message)),
                error->message, detail ? detail : "");
        g_clear_error(&error);
        g_free(detail);
        if (fatal)
            finish(1);
        break;
    }
    default:
        break;
    }
}

void Recorder::checkHeaderSpace()
{
    guint64 remaining = G_MAXUINT64;
    g_object_get(m_muxer, "reserved-duration-remaining", &remaining, nullptr);
    if (m_recording && remaining < kHeaderSpaceMargin)
        requestStop("the file has reached the longest recording it can index");
}

GstPadProbeReturn Recorder::onEncoderInput(GstPad *, GstPadProbeInfo *info, gpointer self)
{
    return static_cast<Recorder *>(self)->retime(info);
}

gboolean Recorder::onBusMessage(GstBus *, GstMessage *message, gpointer self)
{
    static_cast<Recorder *>(self)->handleBusMessage(message);
    return G_SOURCE_CONTINUE;
}

gboolean Recorder::onStopSignal(gpointer self)
{
    static_cast<Recorder *>(self)->requestStop("stop requested");
    return G_SOURCE_CONTINUE;
}

gboolean Recorder::onPauseSignal(gpointer self)
{
    static_cast<Recorder *>(self)->pause();
    return G_SOURCE_CONTINUE;
}

gboolean Recorder::onResumeSignal(gpointer self)
{
    static_cast<Recorder *>(self)->resume();
    return G_SOURCE_CONTINUE;
}

gboolean Recorder::onFirstFrame(gpointer self)
{
    auto *recorder = static_cast<Recorder *>(self);
    recorder->m_recording = true;
    recorder->m_syncer.start();
    bool paused = false;
    {
        std::lock_guard<std::mutex> lock(recorder->m_timingMutex);
        paused = recorder->m_paused;
    }
    if (!recorder->m_stopping && !paused)
        recorder->writeState("recording");
    return G_SOURCE_REMOVE;
}

gboolean Recorder::onHeaderSpaceCheck(gpointer self)
{
    static_cast<Recorder *>(self)->checkHeaderSpace();
    return G_SOURCE_CONTINUE;
}

gboolean Recorder::onStopTimeout(gpointer self)
{
    unitLog("the recording did not finish in time; the file keeps what was indexed last");
    static_cast<Recorder *>(self)->finish(1);
    return G_SOURCE_REMOVE;
}
