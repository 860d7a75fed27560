#pragma once

#include "video/pipepicture.h"

#include <QWidget>

class QTimer;

// The live view of the simulated unit, which has no capture device: the
// simulated camera's pipe picture, the same one the kit's recorder records,
// moving while the view is on screen.
class PipeView : public QWidget
{
    Q_OBJECT
public:
    static constexpr int kFrameMs = 40;

    explicit PipeView(QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
    void showEvent(QShowEvent *event) override;
    void hideEvent(QHideEvent *event) override;

private:
    PipePicture m_picture;
    QTimer *m_frames;
};
