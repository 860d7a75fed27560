#pragma once

#include <QObject>
#include <QProcess>

class QTimer;

template <typename T>
class Singleton;

// Watches for a microphone headset every few seconds and switches the unit's
// audio between headset and built-in by the unit's scripts. A record attempt
// waits for a detection in flight (detectFinished) and holds further ones off
// until the next init().
class audio : public QObject
{
    Q_OBJECT
public:
    static constexpr int kDetectIntervalMs = 3000;
    // A detection that takes longer is ended, so a record attempt never waits on it for good.
    static constexpr int kDetectLimitMs = 2000;
    static constexpr int kModeSwitchWaitMs = 500;

    static audio *instance(QObject *parent = nullptr);

    bool detectFinished() const { return detect_finished; }
    // 1 headset, 0 none, from the last detection.
    int audioState() const { return currentAudioState; }

signals:
    // A detection is under way until finished().
    void detectStarted();
    void finished();
    void updateAudioState(int state);

public slots:
    void init();
    void microphone_detect();
    void microphone_exit(int code, QProcess::ExitStatus status);

private:
    friend class Singleton<audio>;
    explicit audio(QObject *parent);

    void audioEnable();
    void audioDisable();
    void audio_mode(const QString &mode, bool wait);
    void audioStartup();
    void endDetection();

    int currentAudioState = 0;
    bool audio_reset = false;
    // Set by the detection's handler while a record attempt spins on it.
    volatile bool detect_finished = true;
    QProcess *m_process = nullptr;
    QTimer *timer = nullptr;
};
