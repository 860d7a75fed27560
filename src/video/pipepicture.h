#pragma once

#include <QImage>
#include <QPointF>

class QPainter;

// The simulated unit's camera: a moving view down a lit clay pipe, joints
// coming towards the lens and silt water along the invert, with a slow sway of
// the camera head. Drawn from the time alone, so the console's live view and
// the kit's recorder, asked for the same moment, show the same picture.
class PipePicture
{
public:
    static constexpr int kWidth = 720;
    static constexpr int kHeight = 576;

    PipePicture();

    // Paints the whole 720x576 picture for a moment, in milliseconds of a clock
    // every viewer shares (the wall clock).
    void paint(QPainter &painter, qint64 ms) const;
    QImage frame(qint64 ms) const;

private:
    static constexpr int kSwayRoom = 32;

    static QPointF swayAt(qint64 ms);
    void paintJoints(QPainter &painter, const QPointF &centre, qint64 ms) const;

    // The still part, larger than the picture so the sway never shows its edge.
    QImage m_walls;
};
