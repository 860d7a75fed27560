#include "video/playbackwindow.h"

#include "core/uikeys.h"
#include "video/player.h"

#include <QDebug>
#include <QKeyEvent>
#include <QVBoxLayout>

PlaybackWindow::PlaybackWindow(const QString &path, QWidget *parent)
    : QWidget(parent, Qt::Window | Qt::FramelessWindowHint), m_path(path)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setFocusPolicy(Qt::StrongFocus);
    m_player = new Player(this);
    m_indicator = new PlaybackIndicator(this);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_player, 1);
    layout->addWidget(m_indicator, 0, Qt::AlignLeft);
    connect(m_player, &Player::stateChanged, this,
            [this](QMediaPlayer::State state) { m_indicator->setMode(modeFor(state)); });
    if (parent)
        setGeometry(parent->window()->geometry());
}

PlaybackIndicator::Mode PlaybackWindow::modeFor(QMediaPlayer::State state)
{
    switch (state) {
    case QMediaPlayer::PlayingState:
        return PlaybackIndicator::kPlay;
    case QMediaPlayer::PausedState:
        return PlaybackIndicator::kPause;
    case QMediaPlayer::StoppedState:
        break;
    }
    return PlaybackIndicator::kStopPlayback;
}

bool PlaybackWindow::handleMediaKey(int key, Player *player, PlaybackIndicator *indicator, const QString &path)
{
    switch (key) {
    case Ui::Key_MediaPlay:
        if (player->is_paused())
            player->resume();
        else if (player->is_stopped() && !path.isEmpty())
            player->play(path);
        return true;
    case Ui::Key_MediaPause:
        player->pause();
        return true;
    case Ui::Key_MediaStop:
        player->stop();
        return true;
    case Ui::Key_MediaForward:
        player->forward(Player::kStepMs);
        indicator->setMode(PlaybackIndicator::kFastForward);
        return true;
    case Ui::Key_MediaRewind:
        player->rewind(Player::kStepMs);
        indicator->setMode(PlaybackIndicator::kRewind);
        return true;
    default:
        return false;
    }
}

void PlaybackWindow::setVideo(const QString &path)
{
    m_path = path;
    if (isVisible())
        m_player->play(path);
}

void PlaybackWindow::playVideo()
{
    handleMediaKey(Ui::Key_MediaPlay, m_player, m_indicator, m_path);
}

void PlaybackWindow::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    setFocus(Qt::OtherFocusReason);
    m_player->play(m_path);
    grabKeyboard();
}

void PlaybackWindow::hideEvent(QHideEvent *event)
{
    m_player->stop();
    releaseKeyboard();
    QWidget::hideEvent(event);
}

void PlaybackWindow::keyPressEvent(QKeyEvent *event)
{
    if (!event->isAutoRepeat())
        m_pressedKey = event->key();
    event->accept();
}

// Keys act on their release, and only when the press came here too: the key
// that opened this window does not also close it.
void PlaybackWindow::keyReleaseEvent(QKeyEvent *event)
{
    event->accept();
    if (event->isAutoRepeat() || event->key() != m_pressedKey)
        return;
    m_pressedKey = 0;
    if (event->key() == Qt::Key_Escape)
        close();
    else if (!handleMediaKey(event->key(), m_player, m_indicator, m_path))
        qDebug() << "Playback window ignores key" << event->key();
}
