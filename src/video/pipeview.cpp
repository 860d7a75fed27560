#include "video/pipeview.h"

#include <QDateTime>
#include <QPainter>
#include <QTimer>

PipeView::PipeView(QWidget *parent)
    : QWidget(parent)
    , m_frames(new QTimer(this))
{
    setObjectName(QStringLiteral("simulatedCamera"));
    // Every pixel is painted each frame: nothing underneath needs drawing first.
    setAttribute(Qt::WA_OpaquePaintEvent);
    m_frames->setTimerType(Qt::PreciseTimer);
    connect(m_frames, &QTimer::timeout, this, QOverload<>::of(&QWidget::update));
}

void PipeView::paintEvent(QPaintEvent *event)
{
    Q_UNUSED(event)
    QPainter painter(this);
    painter.scale(double(width()) / PipePicture::kWidth, double(height()) / PipePicture::kHeight);
    m_picture.paint(painter, QDateTime::currentMSecsSinceEpoch());
}

// No frames are drawn while the main screen is not on top.
void PipeView::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    m_frames->start(kFrameMs);
}

void PipeView::hideEvent(QHideEvent *event)
{
    m_frames->stop();
    QWidget::hideEvent(event);
}
