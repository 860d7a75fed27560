#pragma once

#include <QObject>
#include <QString>

class VideoScripts;

// Starts, pauses, resumes and stops the unit's recorder and the stream through
// their scripts, none of which it waits on (the record script runs as long as the
// recording), and keeps the one fact the screen shows: whether a recording is
// running and whether it is paused. A record script that fails ends the
// recording here at once, so the screen never shows REC over a dead recorder.
class RecordingControl : public QObject
{
    Q_OBJECT
public:
    static constexpr int kRecordingCompleteMs = 1000;
    static constexpr int kStreamRestartMs = 500;
    // A survey is stamped three seconds late: the recorder's first frames are not yet in the file.
    static constexpr unsigned kSurveyTimestampLead = 3;

    explicit RecordingControl(VideoScripts *scripts, QObject *parent = nullptr);

    bool isRecording() const { return m_recording; }
    bool isPaused() const { return m_paused; }
    unsigned surveyTimestamp() const { return m_surveyTimestamp; }

    // False when a recording is running already.
    bool record(const QString &path);
    void togglePause();
    // A paused recorder is resumed first: it must be running to finish the file.
    void stop();
    // The recording is over: saved, or never started.
    void clear();
    void streamRecord(const QString &ip, const QString &port);
    void streamStop();
    void restartPreview();

signals:
    // Indicators::CameraIndicatorState for the strip.
    void indicatorChanged(int state);
    // The stop script has had its time to finish the file.
    void saved();
    // The record script failed; the recording is over. The cause is the script's last word.
    void recordFailed(QString cause);

private:
    void onScriptFailed(int run, const QString &script, int exitCode, const QString &cause);

    VideoScripts *m_scripts;
    bool m_recording = false;
    bool m_paused = false;
    unsigned m_surveyTimestamp = 0;
    // The run of the record script of the current recording.
    int m_recordRun = 0;
};
