#include "app/browser/reportscreen.h"

#include "app/controller.h"
#include "core/uikeys.h"
#include "video/playbackwindow.h"
#include "video/player.h"
#include "video/snapshotwindow.h"
#include "widgets/playbackindicator.h"

#include <QDebug>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QVBoxLayout>

namespace {
const QString kVideo = QStringLiteral("mp4");
const QString kSnapshot = QStringLiteral("jpg");
constexpr int kPreviewWidth = 440;
} // namespace

ReportScreen::ReportScreen(QWidget *parent) : ReportPage(parent)
{
    m_player = new Player(this);
    m_picture = new QLabel(this);
    m_picture->setAlignment(Qt::AlignCenter);
    m_picture->hide();
    m_indicator = new PlaybackIndicator(this);
    auto *preview = new QVBoxLayout;
    preview->addWidget(m_player, 1);
    preview->addWidget(m_picture, 1);
    preview->addWidget(m_indicator, 0, Qt::AlignLeft);
    auto *row = new QHBoxLayout;
    contentLayout()->removeWidget(listWidget());
    row->addWidget(listWidget(), 1);
    auto *previewBox = new QWidget(this);
    previewBox->setFixedWidth(kPreviewWidth);
    previewBox->setLayout(preview);
    row->addWidget(previewBox);
    contentLayout()->addLayout(row, 1);

    connect(this, &ReportPage::currentRowChanged, this, &ReportScreen::rowChanged);
    connect(this, &ReportScreen::rowSelected, this, &ReportScreen::openRow);
    connect(m_player, &Player::stateChanged, this,
            [this](QMediaPlayer::State state) { m_indicator->setMode(PlaybackWindow::modeFor(state)); });
}

// A full-screen window still open goes with this page; it must not call back into it.
ReportScreen::~ReportScreen()
{
    if (m_window)
        m_window->disconnect(this);
}

void ReportScreen::setPath(const QString &device, const QString &path)
{
    m_current_path = path;
    const QFileInfo section(path);
    setHeading(device + QStringLiteral("://") + QFileInfo(section.path()).fileName() + QLatin1Char('/') +
               section.fileName());
}

QString ReportScreen::keyHint() const
{
    return tr("OK: full screen   Play/Pause/Stop/Rew/Fwd   Left/ESC: up");
}

QString ReportScreen::suffixOf(const QString &name)
{
    return QFileInfo(name).suffix().toLower();
}

QString ReportScreen::rowPath(int row) const
{
    const QString name = list().value(row);
    return name.isEmpty() ? QString() : m_current_path + QLatin1Char('/') + name;
}

void ReportScreen::rowChanged(int row)
{
    // The list is refilled as rows arrive; only a move to another file counts.
    const QString path = rowPath(row);
    if (path == m_rowPath)
        return;
    m_rowPath = path;
    const QString suffix = suffixOf(path);
    if (suffix == kSnapshot)
        showSnapshot(path);
    else if (suffix == kVideo)
        setVideo(path);
    else if (!path.isEmpty())
        qDebug() << "No preview for" << path;
}

void ReportScreen::setVideo(const QString &path)
{
    if (path == m_video && m_player->is_playing())
        return;
    m_player->stop();
    m_video = path;
    m_picture->hide();
    m_player->show();
    playVideo();
}

void ReportScreen::setSnapshots(const QStringList &paths)
{
    m_snapshots = paths;
    if (m_video.isEmpty() && !paths.isEmpty())
        showSnapshot(paths.constFirst());
}

void ReportScreen::showSnapshot(const QString &path)
{
    m_player->pause();
    m_snapshot = path;
    const QPixmap picture(path);
    m_picture->setPixmap(picture.scaled(kPreviewWidth, kPreviewWidth * 3 / 4, Qt::KeepAspectRatio,
                                        Qt::SmoothTransformation));
    m_player->hide();
    m_picture->show();
}

void ReportScreen::playVideo()
{
    PlaybackWindow::handleMediaKey(Ui::Key_MediaPlay, m_player, m_indicator, m_video);
}

void ReportScreen::pauseVideo()
{
    m_player->pause();
}

void ReportScreen::stopVideo()
{
    m_player->stop();
}

bool ReportScreen::handleKey(int key)
{
    switch (key) {
    case Qt::Key_Left:
    case Qt::Key_Escape:
        control()->reportUp();
        return true;
    case Qt::Key_Right:
    case Qt::Key_Return:
    case Qt::Key_Enter:
        emit rowSelected(currentRow());
        return true;
    case Qt::Key_Backspace:
    case Qt::Key_C:
    case Qt::Key_R:
        qInfo() << "Files of a section are copied and deleted with their survey";
        return true;
    default:
        if (!m_video.isEmpty() && m_picture->isVisible()) {
            m_picture->hide();
            m_player->show();
        }
        return PlaybackWindow::handleMediaKey(key, m_player, m_indicator, m_video);
    }
}

// The full-screen view of the row; the preview picks up again when it closes.
void ReportScreen::openRow(int row)
{
    const QString path = rowPath(row);
    const QString suffix = suffixOf(path);
    QWidget *window = nullptr;
    if (suffix == kSnapshot) {
        m_player->stop();
        showSnapshot(path);
        window = new SnapshotWindow(path, this);
    } else if (suffix == kVideo) {
        m_player->stop();
        m_video = path;
        window = new PlaybackWindow(path, this);
    } else {
        qInfo() << "Nothing to open for" << path;
        return;
    }
    m_window = window;
    connect(window, &QObject::destroyed, this, [this]() {
        if (isVisible() && !m_video.isEmpty() && !m_picture->isVisible())
            playVideo();
        listWidget()->setFocus(Qt::OtherFocusReason);
    });
    window->show();
}

void ReportScreen::showEvent(QShowEvent *event)
{
    ReportPage::showEvent(event);
    m_picture->clear();
    m_snapshot.clear();
    m_rowPath.clear();
}

void ReportScreen::hideEvent(QHideEvent *event)
{
    m_player->stop();
    m_video.clear();
    ReportPage::hideEvent(event);
}
