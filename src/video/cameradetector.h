#pragma once

#include <QObject>
#include <QString>

class QProcess;
class QTimer;

// Asks the unit's detection script every two seconds whether a camera is
// attached, and reports each change of its answer (the first answer always).
class CameraDetector : public QObject
{
    Q_OBJECT
public:
    static constexpr int kCameraDetectMs = 2000;
    static constexpr int kCameraDetectWaitMs = 1000;

    explicit CameraDetector(QObject *parent = nullptr);

public slots:
    void detectCamera();

signals:
    void presenceChanged(bool present);

private slots:
    void detectScriptFinished();

private:
    QTimer *cameraDetectTimer;
    QProcess *detectProcess = nullptr;
    QString m_lastDetectOutput;
};
