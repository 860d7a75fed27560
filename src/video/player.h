#pragma once

#include <QMediaPlayer>
#include <QWidget>

class QLabel;
class QVideoWidget;

// Plays one recording of the unit: the picture, and a line below it with the
// time or what the player is waiting for. Keys are its owner's business.
class Player : public QWidget
{
    Q_OBJECT
public:
    // Steps of the rewind and forward keys.
    static constexpr int kStepMs = 10000;

    explicit Player(QWidget *parent = nullptr);

    // The text given to the media framework for a recording at path.
    static QString pipelineFor(const QString &path);

    void play(const QString &path);
    void resume();
    void pause();
    void stop();
    bool is_playing() const;
    bool is_paused() const;
    bool is_stopped() const;
    void forward(int ms);
    void rewind(int ms);
    void seek(int seconds);
    void setVideoWidget(QVideoWidget *widget);
    QString path() const { return m_path; }
    QString statusText() const;
    QMediaPlayer *mediaPlayer() const { return m_player; }

signals:
    void stateChanged(QMediaPlayer::State state);

private:
    void showTime();
    void showStatus(QMediaPlayer::MediaStatus status);
    void showError();

    QMediaPlayer *m_player = nullptr;
    QVideoWidget *m_video = nullptr;
    QLabel *m_status = nullptr;
    QString m_path;
};
