#include "video/cameradetector.h"

#include "core/unitpaths.h"

#include <QDebug>
#include <QProcess>
#include <QTimer>

namespace {
const QString kCameraDetectScript = QStringLiteral("cameraDetect.sh");
// What cameraDetect.sh prints while a camera is attached.
const QString kCameraAttachedAnswer = QStringLiteral("0");
} // namespace

CameraDetector::CameraDetector(QObject *parent)
    : QObject(parent)
    , cameraDetectTimer(new QTimer(this))
{
    connect(cameraDetectTimer, &QTimer::timeout, this, &CameraDetector::detectCamera);
    cameraDetectTimer->start(kCameraDetectMs);
}

void CameraDetector::detectCamera()
{
    if (!detectProcess) {
        detectProcess = new QProcess(this);
        connect(detectProcess, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this,
                &CameraDetector::detectScriptFinished);
    }
    if (detectProcess->state() != QProcess::NotRunning)
        return;
    detectProcess->start(QStringLiteral("/bin/sh"), {unitScriptPath(kCameraDetectScript)});
    if (!detectProcess->waitForFinished(kCameraDetectWaitMs))
        qDebug() << "Camera detection still running after" << kCameraDetectWaitMs << "ms";
}

void CameraDetector::detectScriptFinished()
{
    const QString answer = QString::fromLocal8Bit(detectProcess->readAllStandardOutput()).trimmed();
    if (answer == m_lastDetectOutput)
        return;
    m_lastDetectOutput = answer;
    emit presenceChanged(answer == kCameraAttachedAnswer);
}
