#pragma once

class Camera;
class Indicators;
class QLabel;
class QWidget;
class statusOverlay;

namespace Ui {
// The main screen's form: the picture with the overlay and status line over it,
// a row of labels under it and the status strip at the right.
class Video
{
public:
    static constexpr int kPictureWidth = 720;
    static constexpr int kPictureHeight = 576;
    static constexpr int kStripWidth = 80;
    // The row of labels under the picture: what the 600-line screen leaves.
    static constexpr int kLabelRowHeight = 600 - kPictureHeight;

    QWidget *picture = nullptr;
    ::Camera *video_widget = nullptr;
    statusOverlay *status = nullptr;
    QLabel *label_logo_icon = nullptr;
    QLabel *labelLeft = nullptr;
    QLabel *label_2 = nullptr;
    QLabel *labelRight = nullptr;
    QLabel *label_date = nullptr;
    QLabel *label_time = nullptr;
    Indicators *indicators = nullptr;

    void setupUi(QWidget *screen);
};
} // namespace Ui
