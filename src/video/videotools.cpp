#include "video/videotools.h"

#include <QDebug>
#include <QProcess>

namespace {

constexpr int kControlWaitMs = 1000;

} // namespace

VideoTools::VideoTools(QObject *parent)
    : QObject(parent)
{
}

void VideoTools::setBrightness(int value)
{
    setControl("brightness", value);
}

void VideoTools::setContrast(int value)
{
    setControl("contrast", value);
}

void VideoTools::setHue(int value)
{
    setControl("hue", value);
}

void VideoTools::setSaturation(int value)
{
    setControl("saturation", value);
}

void VideoTools::setControl(const char *control, int value)
{
    const QStringList arguments = {QStringLiteral("--set-ctrl"),
                                   QStringLiteral("%1=%2").arg(QLatin1String(control)).arg(value)};
    auto *process = new QProcess(this);
    connect(process, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), process, &QObject::deleteLater);
    connect(process, &QProcess::errorOccurred, process, [process](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart) {
            qWarning() << "v4l2-ctl could not be started:" << process->errorString();
            process->deleteLater();
        }
    });
    process->start(QStringLiteral("v4l2-ctl"), arguments);
    // A slow device must not stall the picture controls for long.
    if (!process->waitForFinished(kControlWaitMs) && process->state() != QProcess::NotRunning)
        qInfo() << "v4l2-ctl" << arguments.join(QLatin1Char(' ')) << "still running after" << kControlWaitMs << "ms";
}
