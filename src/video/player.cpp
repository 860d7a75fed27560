#include "video/player.h"

#include <QDebug>
#include <QLabel>
#include <QTime>
#include <QUrl>
#include <QVBoxLayout>
#include <QVideoWidget>

namespace {
QString clockText(qint64 ms)
{
    return QTime(0, 0).addMSecs(int(ms)).toString(ms >= 3600000 ? QStringLiteral("h:mm:ss") : QStringLiteral("mm:ss"));
}
} // namespace

Player::Player(QWidget *parent) : QWidget(parent)
{
    m_player = new QMediaPlayer(this, QMediaPlayer::VideoSurface);
    m_video = new QVideoWidget(this);
    m_video->setFocusPolicy(Qt::NoFocus);
    m_status = new QLabel(this);
    m_status->setAlignment(Qt::AlignCenter);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_video, 1);
    layout->addWidget(m_status);
    m_player->setVideoOutput(m_video);

    connect(m_player, &QMediaPlayer::stateChanged, this, &Player::stateChanged);
    connect(m_player, &QMediaPlayer::positionChanged, this, &Player::showTime);
    connect(m_player, &QMediaPlayer::durationChanged, this, &Player::showTime);
    connect(m_player, &QMediaPlayer::mediaStatusChanged, this, &Player::showStatus);
    connect(m_player, &QMediaPlayer::bufferStatusChanged, this,
            [this](int percent) { m_status->setText(tr("Buffering %1%").arg(percent)); });
    connect(m_player, QOverload<QMediaPlayer::Error>::of(&QMediaPlayer::error), this, &Player::showError);
    if (!m_player->isAvailable()) {
        m_status->setText(tr("Service not available"));
        qWarning().noquote() << tr("The QMediaPlayer object does not have a valid service.\n"
                                   "Please check the media service plugins are installed.");
    }
}

// The recorder writes H.264 in MP4; the picture goes to this widget's own sink.
// The location is quoted so that a folder name with blanks or quotes stays one
// word, and a percent sign survives the URL the framework takes the text from.
QString Player::pipelineFor(const QString &path)
{
    QString location = path;
    location.replace(QLatin1Char('\\'), QLatin1String("\\\\")).replace(QLatin1Char('"'), QLatin1String("\\\""));
    location.replace(QLatin1Char('%'), QLatin1String("%25"));
    return QStringLiteral("gst-pipeline: filesrc location=\"%1\" ! qtdemux ! queue ! h264parse ! avdec_h264"
                          " ! queue ! videoconvert ! qtvideosink")
        .arg(location);
}

void Player::play(const QString &path)
{
    m_path = path;
    m_player->setMedia(QUrl(pipelineFor(path)));
    m_player->play();
    qInfo() << "Playing" << path;
}

void Player::resume()
{
    m_player->play();
}

void Player::pause()
{
    m_player->pause();
}

void Player::stop()
{
    m_player->stop();
}

bool Player::is_playing() const { return m_player->state() == QMediaPlayer::PlayingState; }
bool Player::is_paused() const { return m_player->state() == QMediaPlayer::PausedState; }
bool Player::is_stopped() const { return m_player->state() == QMediaPlayer::StoppedState; }

void Player::forward(int ms)
{
    const qint64 duration = m_player->duration();
    qint64 target = m_player->position() + ms;
    if (duration > 0)
        target = qMin(target, duration);
    m_player->setPosition(target);
}

void Player::rewind(int ms)
{
    m_player->setPosition(qMax<qint64>(0, m_player->position() - ms));
}

void Player::seek(int seconds)
{
    m_player->setPosition(qint64(seconds) * 1000);
}

void Player::setVideoWidget(QVideoWidget *widget)
{
    if (!widget)
        return;
    m_video->hide();
    m_player->setVideoOutput(widget);
}

QString Player::statusText() const
{
    return m_status->text();
}

void Player::showTime()
{
    m_status->setText(QStringLiteral("%1 / %2").arg(clockText(m_player->position()), clockText(m_player->duration())));
}

void Player::showStatus(QMediaPlayer::MediaStatus status)
{
    switch (status) {
    case QMediaPlayer::LoadingMedia:
        m_status->setText(tr("Loading..."));
        break;
    case QMediaPlayer::StalledMedia:
        m_status->setText(tr("Stalled %1%").arg(m_player->bufferStatus()));
        break;
    case QMediaPlayer::BufferingMedia:
        m_status->setText(tr("Buffering %1%").arg(m_player->bufferStatus()));
        break;
    case QMediaPlayer::InvalidMedia:
        showError();
        break;
    default:
        break;
    }
}

void Player::showError()
{
    const QString reason = m_player->errorString().isEmpty() ? tr("This recording cannot be played")
                                                             : m_player->errorString();
    m_status->setText(reason);
    qWarning() << "Playback of" << m_path << "failed:" << reason;
}
