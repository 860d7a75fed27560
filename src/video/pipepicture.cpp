#include "video/pipepicture.h"

#include <QLinearGradient>
#include <QPainter>
#include <QPainterPath>
#include <QRadialGradient>
#include <QtMath>

namespace {
// Where the far end of the pipe lies when the head hangs still.
const QPointF kVanishingPoint(PipePicture::kWidth / 2.0, PipePicture::kHeight / 2.0 + 2);
// Radius in pixels of the pipe wall one pipe length away from the lens.
constexpr double kFocal = 260.0;
// A joint passes the lens every this many milliseconds. Not a whole second, nor
// related to the sway, so two pictures taken any few seconds apart differ.
constexpr qint64 kJointPeriodMs = 1370;
constexpr double kNearestDepth = 0.4;
constexpr int kJointCount = 14;
constexpr double kSwayX = 22.0;
constexpr double kSwayY = 12.0;
constexpr qint64 kSwayXPeriodMs = 11000;
constexpr qint64 kSwayYPeriodMs = 13000;
// The silt water covers the invert: below the axis, within this angle of straight down.
constexpr double kWaterHalfAngle = 38.0;

double cycle(qint64 ms, qint64 period)
{
    return double(ms % period) / double(period);
}
} // namespace

PipePicture::PipePicture()
    : m_walls(kWidth + 2 * kSwayRoom, kHeight + 2 * kSwayRoom, QImage::Format_RGB32)
{
    const QPointF centre = kVanishingPoint + QPointF(kSwayRoom, kSwayRoom);
    QPainter painter(&m_walls);
    painter.setRenderHint(QPainter::Antialiasing);
    // The lamp lights the near wall; the far end fades to black.
    QRadialGradient wall(centre, 520);
    wall.setColorAt(0.0, QColor(4, 3, 2));
    wall.setColorAt(0.04, QColor(30, 24, 17));
    wall.setColorAt(0.12, QColor(82, 66, 47));
    wall.setColorAt(0.3, QColor(146, 124, 92));
    wall.setColorAt(0.6, QColor(186, 164, 126));
    wall.setColorAt(1.0, QColor(206, 186, 148));
    painter.fillRect(m_walls.rect(), wall);

    const double spread = qTan(qDegreesToRadians(kWaterHalfAngle));
    const double reach = 2.0 * m_walls.height();
    QPainterPath water;
    water.moveTo(centre);
    water.lineTo(centre + QPointF(-spread * reach, reach));
    water.lineTo(centre + QPointF(spread * reach, reach));
    water.closeSubpath();
    QLinearGradient silt(centre, centre + QPointF(0, m_walls.height() - centre.y()));
    silt.setColorAt(0.0, QColor(8, 10, 7));
    silt.setColorAt(0.25, QColor(40, 46, 32));
    silt.setColorAt(1.0, QColor(92, 98, 70));
    painter.fillPath(water, silt);
}

QPointF PipePicture::swayAt(qint64 ms)
{
    return QPointF(kSwayX * qSin(2 * M_PI * cycle(ms, kSwayXPeriodMs)),
                   kSwayY * qSin(2 * M_PI * cycle(ms, kSwayYPeriodMs)));
}

void PipePicture::paint(QPainter &painter, qint64 ms) const
{
    const QPointF sway = swayAt(ms);
    const QPoint offset(qRound(sway.x()) - kSwayRoom, qRound(sway.y()) - kSwayRoom);
    painter.drawImage(offset, m_walls);
    paintJoints(painter, kVanishingPoint + QPointF(offset.x() + kSwayRoom, offset.y() + kSwayRoom), ms);
}

// Each joint is a dark ring at its depth, thicker and plainer the nearer it is;
// across the water it shows as a pale ripple.
void PipePicture::paintJoints(QPainter &painter, const QPointF &centre, qint64 ms) const
{
    const double travelled = cycle(ms, kJointPeriodMs);
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    for (int k = 0; k < kJointCount; ++k) {
        const double depth = kNearestDepth + (k + 1.0 - travelled) * 0.9;
        const double radius = kFocal / depth;
        if (radius < 10)
            break;
        const int shade = qBound(0, int(255 / (1.0 + depth)), 140);
        QPen pen(QColor(40, 30, 20, 90 + shade));
        pen.setWidthF(qMax(1.0, 9.0 / depth));
        painter.setPen(pen);
        painter.drawEllipse(centre, radius, radius);
        QPen ripple(QColor(150, 160, 120, 40 + shade / 2));
        ripple.setWidthF(qMax(1.0, 4.0 / depth));
        painter.setPen(ripple);
        // The part of the ring under the water line, 90 degrees being straight down.
        const QRectF ring(centre.x() - radius, centre.y() - radius, 2 * radius, 2 * radius);
        painter.drawArc(ring, int((-90 - kWaterHalfAngle) * 16), int(2 * kWaterHalfAngle * 16));
    }
    painter.restore();
}

QImage PipePicture::frame(qint64 ms) const
{
    QImage picture(kWidth, kHeight, QImage::Format_RGB32);
    QPainter painter(&picture);
    paint(painter, ms);
    return picture;
}
