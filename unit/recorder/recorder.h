#pragma once

#include "filesyncer.h"

#include <gst/gst.h>

#include <atomic>
#include <memory>
#include <mutex>
#include <string>

class CameraFeed;
class OverlayFeed;

// Records the simulated camera, the moving 720x576 pipe picture at 25 frames per
// second, with the console's overlay file burnt in, into one MP4.
//
// Crash safety: the muxer reserves room for its index at the start of the file and
// rewrites it every second, and the file is synced once a second, so a killed
// recorder or a power cut leaves an ordinary, playable MP4 that lacks at most the
// last second or two. A clean stop writes the final index.
//
// Control by signal: SIGUSR1 pauses, SIGUSR2 resumes, SIGINT, SIGTERM or SIGHUP
// finish the file. Paused frames are dropped and the time stamps after a pause are
// moved back by the paused time, so the file plays as one continuous piece whose
// duration excludes the pauses.
class Recorder
{
public:
    struct Options {
        std::string output;
        std::string overlay;
        std::string stateFile;
    };

    explicit Recorder(Options options);
    ~Recorder();

    // Runs until the recording is finished; returns the process exit code.
    int run();

private:
    bool buildPipeline();
    void logPendingErrors();
    void watchSignals();
    void pause();
    void resume();
    void requestStop(const char *reason);
    void finish(int exitCode);
    void writeState(const char *state);

    GstPadProbeReturn retime(GstPadProbeInfo *info);
    void handleBusMessage(GstMessage *message);
    void checkHeaderSpace();

    static GstPadProbeReturn onEncoderInput(GstPad *pad, GstPadProbeInfo *info, gpointer self);
    static gboolean onBusMessage(GstBus *bus, GstMessage *message, gpointer self);
    static gboolean onStopSignal(gpointer self);
    static gboolean onPauseSignal(gpointer self);
    static gboolean onResumeSignal(gpointer self);
    static gboolean onFirstFrame(gpointer self);
    static gboolean onHeaderSpaceCheck(gpointer self);
    static gboolean onStopTimeout(gpointer self);

    Options m_options;
    GMainLoop *m_loop = nullptr;
    GstElement *m_pipeline = nullptr;
    GstElement *m_encoder = nullptr;
    GstElement *m_muxer = nullptr;
    std::unique_ptr<OverlayFeed> m_overlay;
    std::unique_ptr<CameraFeed> m_camera;
    FileSyncer m_syncer;
    int m_exitCode = 0;
    bool m_recording = false;

    // Shared with the streaming thread that runs the encoder-input probe.
    std::mutex m_timingMutex;
    bool m_paused = false;
    bool m_pauseStarted = false;
    GstClockTime m_pauseStart = 0;
    GstClockTime m_pausedTotal = 0;
    bool m_firstFrameSeen = false;
    GstClockTime m_lastPts = GST_CLOCK_TIME_NONE;
    std::atomic<bool> m_stopping{false};
    std::atomic<bool> m_untimedFrameLogged{false};
};
