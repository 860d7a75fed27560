#pragma once

#include "widgets/playbackindicator.h"

#include <QMediaPlayer>
#include <QWidget>

class Player;

// One recording at full screen. The media keys work as in the browser's section
// page; Escape closes the window, which then deletes itself.
class PlaybackWindow : public QWidget
{
    Q_OBJECT
public:
    PlaybackWindow(const QString &path, QWidget *parent = nullptr);

    void setVideo(const QString &path);
    Player *player() const { return m_player; }
    PlaybackIndicator *indicator() const { return m_indicator; }

    // The media keys shared with the browser's section page; false for other keys.
    static bool handleMediaKey(int key, Player *player, PlaybackIndicator *indicator, const QString &path);
    static PlaybackIndicator::Mode modeFor(QMediaPlayer::State state);

public slots:
    void playVideo();

protected:
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;

private:
    Player *m_player = nullptr;
    PlaybackIndicator *m_indicator = nullptr;
    QString m_path;
    int m_pressedKey = 0;
};
