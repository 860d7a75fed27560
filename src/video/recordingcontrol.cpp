#include "video/recordingcontrol.h"

#include "video/videoscripts.h"
#include "widgets/indicators.h"

#include <QDateTime>
#include <QDebug>
#include <QTimer>

namespace {
const QString kRecordScript = QStringLiteral("videoRecord.sh");
const QString kPauseScript = QStringLiteral("pauseRecord.sh");
const QString kResumeScript = QStringLiteral("resumeRecord.sh");
const QString kStopScript = QStringLiteral("stopRecord.sh");
const QString kStreamScript = QStringLiteral("videoStream.sh");
const QString kPreviewRestartScript = QStringLiteral("videoRestart.sh");
} // namespace

RecordingControl::RecordingControl(VideoScripts *scripts, QObject *parent)
    : QObject(parent)
    , m_scripts(scripts)
{
    connect(m_scripts, &VideoScripts::failed, this, &RecordingControl::onScriptFailed);
}

bool RecordingControl::record(const QString &path)
{
    if (m_recording) {
        qInfo().noquote() << "Already recording; not starting" << path;
        return false;
    }
    emit indicatorChanged(Indicators::Recording);
    m_surveyTimestamp = unsigned(QDateTime::currentSecsSinceEpoch()) + kSurveyTimestampLead;
    m_recordRun = m_scripts->runScriptAsRoot(kRecordScript, {path});
    m_recording = true;
    // The preview is deliberately not restarted after a record, unlike after a stream.
    return true;
}

void RecordingControl::togglePause()
{
    m_paused = !m_paused;
    m_scripts->runScript(m_paused ? kPauseScript : kResumeScript);
    emit indicatorChanged(m_paused ? Indicators::Paused : Indicators::Recording);
}

// The resume and the stop start together; the unit's scripts take them in the
// order they were started, so the recorder hears the resume first.
void RecordingControl::stop()
{
    if (m_paused)
        togglePause();
    emit indicatorChanged(Indicators::Saving);
    m_recording = false;
    m_scripts->runScript(kStopScript);
    QTimer::singleShot(kRecordingCompleteMs, this, &RecordingControl::saved);
}

void RecordingControl::clear()
{
    m_paused = false;
}

void RecordingControl::streamRecord(const QString &ip, const QString &port)
{
    m_scripts->runScript(kStreamScript, {ip, port});
    QTimer::singleShot(kStreamRestartMs, this, &RecordingControl::restartPreview);
}

void RecordingControl::restartPreview()
{
    m_scripts->runScript(kPreviewRestartScript);
}

void RecordingControl::streamStop()
{
    m_scripts->runProgram(QStringLiteral("killall"), {QStringLiteral("gst-launch-1.0")});
    m_scripts->runScript(kPreviewRestartScript);
}

void RecordingControl::onScriptFailed(int run, const QString &script, int exitCode, const QString &cause)
{
    Q_UNUSED(script)
    Q_UNUSED(exitCode)
    // The record script runs as long as its recording: only the one of the
    // recording still wanted ends it here. A stop under way, or the end of the
    // recording before a Record pressed within its saving second, finish on their own.
    if (run != m_recordRun || !m_recording)
        return;
    m_recording = false;
    m_paused = false;
    emit recordFailed(cause);
}
