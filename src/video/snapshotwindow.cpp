#include "video/snapshotwindow.h"

#include <QDebug>
#include <QKeyEvent>
#include <QLabel>
#include <QVBoxLayout>

SnapshotWindow::SnapshotWindow(const QString &path, QWidget *parent)
    : QWidget(parent, Qt::Window | Qt::FramelessWindowHint), m_original(path)
{
    setAttribute(Qt::WA_DeleteOnClose);
    setFocusPolicy(Qt::StrongFocus);
    setStyleSheet(QStringLiteral("background: black; color: white;"));
    m_picture = new QLabel(this);
    m_picture->setAlignment(Qt::AlignCenter);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_picture);
    if (m_original.isNull()) {
        qWarning() << "Snapshot" << path << "cannot be read";
        m_picture->setText(tr("This snapshot cannot be shown"));
    }
    if (parent)
        setGeometry(parent->window()->geometry());
}

bool SnapshotWindow::hasPicture() const
{
    return !m_original.isNull();
}

void SnapshotWindow::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    setFocus(Qt::OtherFocusReason);
    showScaled();
}

void SnapshotWindow::resizeEvent(QResizeEvent *event)
{
    QWidget::resizeEvent(event);
    showScaled();
}

void SnapshotWindow::showScaled()
{
    if (!m_original.isNull())
        m_picture->setPixmap(m_original.scaled(size(), Qt::KeepAspectRatio, Qt::SmoothTransformation));
}

void SnapshotWindow::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Escape || event->key() == Qt::Key_Left) {
        if (!event->isAutoRepeat())
            m_pressedKey = event->key();
        event->accept();
        return;
    }
    QWidget::keyPressEvent(event);
}

void SnapshotWindow::keyReleaseEvent(QKeyEvent *event)
{
    if (event->key() == m_pressedKey && !event->isAutoRepeat()) {
        m_pressedKey = 0;
        close();
        return;
    }
    QWidget::keyReleaseEvent(event);
}
