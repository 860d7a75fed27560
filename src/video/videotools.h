#pragma once

#include <QObject>

// Sets the capture device's picture values through v4l2-ctl.
class VideoTools : public QObject
{
    Q_OBJECT
public:
    explicit VideoTools(QObject *parent = nullptr);

public slots:
    void setBrightness(int value);
    void setContrast(int value);
    void setHue(int value);
    void setSaturation(int value);

private:
    void setControl(const char *control, int value);
};
