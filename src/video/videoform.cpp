#include "video/videoform.h"

#include "video/camera.h"
#include "video/statusoverlay.h"
#include "widgets/indicators.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QVBoxLayout>

namespace Ui {

void Video::setupUi(QWidget *screen)
{
    auto *row = new QHBoxLayout(screen);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(0);
    auto *column = new QVBoxLayout;
    column->setSpacing(0);
    row->addLayout(column);

    picture = new QWidget(screen);
    picture->setFixedSize(kPictureWidth, kPictureHeight);
    video_widget = new ::Camera(picture);
    video_widget->setGeometry(0, 0, kPictureWidth, kPictureHeight);
    column->addWidget(picture);

    auto *labels = new QHBoxLayout;
    labels->setContentsMargins(4, 0, 4, 0);
    labels->setSpacing(16);
    label_logo_icon = new QLabel(screen);
    labelLeft = new QLabel(screen);
    label_2 = new QLabel(screen);
    labelRight = new QLabel(screen);
    label_date = new QLabel(screen);
    label_time = new QLabel(screen);
    for (QLabel *label : {label_logo_icon, labelLeft, label_2, labelRight, label_date, label_time}) {
        label->setFixedHeight(kLabelRowHeight);
        labels->addWidget(label);
    }
    labels->setStretchFactor(label_2, 1);
    column->addLayout(labels);

    indicators = new Indicators(screen);
    indicators->setFixedWidth(kStripWidth);
    row->addWidget(indicators);

    status = new statusOverlay(QString(), picture);
    status->setGeometry(0, kPictureHeight - 40, kPictureWidth, 40);
    status->hide();
}

} // namespace Ui
