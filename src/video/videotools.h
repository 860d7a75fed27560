#pragma once

#include <QByteArray>
#include <QList>
#include <QObject>
#include <QPair>

class QProcess;

// Sets the capture device's picture values through v4l2-ctl, one call at a time and
// without waiting on the caller's thread. A value asked for while an older one of the
// same control still waits its turn replaces it: the device ends at the newest.
class VideoTools : public QObject
{
    Q_OBJECT
public:
    explicit VideoTools(QObject *parent = nullptr);
    ~VideoTools() override;

public slots:
    void setBrightness(int value);
    void setContrast(int value);
    void setHue(int value);
    void setSaturation(int value);

private:
    void setControl(const char *control, int value);
    void runNext();

    QList<QPair<QByteArray, int>> m_waiting;
    QProcess *m_running = nullptr;
};
