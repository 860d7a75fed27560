#include "video/audio.h"

#include "core/singleton.h"
#include "core/unitpaths.h"
#include "survey/surveymanager.h"

#include <QDebug>
#include <QTimer>

namespace {

const QString kDetectScript = QStringLiteral("headphone_detect.sh");
const QString kModeScript = QStringLiteral("audio_mode.sh");
const QString kStartupScript = QStringLiteral("audio_startup.sh");
// headphone_detect.sh's verdict.
constexpr int kHeadsetPresent = 1;
constexpr int kHeadsetAbsent = 0;
// audio_mode.sh's arguments.
const QString kHeadsetMode = QStringLiteral("0");
const QString kBuiltInMode = QStringLiteral("1");

void runScript(const QString &script, const QStringList &arguments, int waitMs)
{
    if (waitMs <= 0) {
        QProcess::startDetached(QStringLiteral("/bin/sh"), QStringList{unitScriptPath(script)} + arguments);
        return;
    }
    QProcess process;
    process.start(QStringLiteral("/bin/sh"), QStringList{unitScriptPath(script)} + arguments);
    if (!process.waitForFinished(waitMs))
        qWarning().noquote() << script << "did not finish within" << waitMs << "ms";
}

} // namespace

audio::audio(QObject *parent) : QObject(parent)
{
    timer = new QTimer(this);
    connect(timer, &QTimer::timeout, this, &audio::microphone_detect);
}

audio *audio::instance(QObject *parent)
{
    static audio *theInstance = nullptr;
    return Singleton<audio>::instance(theInstance, parent);
}

void audio::init()
{
    currentAudioState = kHeadsetAbsent;
    emit updateAudioState(currentAudioState);
    SurveyManager::instance()->setAudioRecordStatus(false);
    microphone_detect();
    timer->start(kDetectIntervalMs);
}

void audio::microphone_detect()
{
    if (m_process || SurveyManager::instance()->audioRecordStatus())
        return;
    detect_finished = false;
    emit detectStarted();
    m_process = new QProcess(this);
    connect(m_process, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this, &audio::microphone_exit);
    connect(m_process, &QProcess::errorOccurred, this, [this](QProcess::ProcessError error) {
        if (error != QProcess::FailedToStart)
            return;
        qWarning() << "Headset detection failed to start";
        endDetection();
    });
    QProcess *process = m_process;
    QTimer::singleShot(kDetectLimitMs, process, [process] {
        if (process->state() != QProcess::NotRunning) {
            qWarning() << "Headset detection took too long; ended";
            process->kill();
        }
    });
    m_process->start(QStringLiteral("/bin/sh"), {unitScriptPath(kDetectScript)});
}

void audio::microphone_exit(int code, QProcess::ExitStatus status)
{
    if (status != QProcess::NormalExit)
        qWarning() << "Headset detection ended abnormally; audio left as it was";
    else if (code == kHeadsetPresent)
        audioEnable();
    else if (code == kHeadsetAbsent)
        audioDisable();
    else
        qWarning() << "Headset detection exit code" << code << "not understood";
    endDetection();
}

void audio::endDetection()
{
    detect_finished = true;
    if (m_process) {
        m_process->deleteLater();
        m_process = nullptr;
    }
    emit finished();
}

void audio::audioEnable()
{
    if (audio_reset) {
        audio_mode(kHeadsetMode, true);
        audio_reset = false;
        audioStartup();
    }
    currentAudioState = kHeadsetPresent;
    emit updateAudioState(currentAudioState);
}

void audio::audioDisable()
{
    if (!audio_reset) {
        audio_mode(kBuiltInMode, false);
        audio_reset = true;
    }
    currentAudioState = kHeadsetAbsent;
    emit updateAudioState(currentAudioState);
}

void audio::audio_mode(const QString &mode, bool wait)
{
    qInfo().noquote() << "Audio mode" << mode;
    runScript(kModeScript, {mode}, wait ? kModeSwitchWaitMs : 0);
}

void audio::audioStartup()
{
    runScript(kStartupScript, {}, 0);
}
