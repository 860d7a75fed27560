#include "video/videotools.h"

#include "core/backgroundprocess.h"

#include <QProcess>

VideoTools::VideoTools(QObject *parent)
    : QObject(parent)
{
}

VideoTools::~VideoTools()
{
    // A call still running ends with its process object; nothing more is started.
    if (m_running)
        m_running->disconnect(this);
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
    for (QPair<QByteArray, int> &waiting : m_waiting) {
        if (waiting.first == control) {
            waiting.second = value;
            return;
        }
    }
    m_waiting.append({QByteArray(control), value});
    if (!m_running)
        runNext();
}

void VideoTools::runNext()
{
    if (m_waiting.isEmpty())
        return;
    const QPair<QByteArray, int> next = m_waiting.takeFirst();
    const QStringList arguments = {QStringLiteral("--set-ctrl"),
                                   QStringLiteral("%1=%2").arg(QLatin1String(next.first)).arg(next.second)};
    m_running = startInBackground(QStringLiteral("v4l2-ctl"), arguments, this);
    const auto carryOn = [this] {
        m_running = nullptr;
        runNext();
    };
    connect(m_running, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this, carryOn);
    connect(m_running, &QProcess::errorOccurred, this, [carryOn](QProcess::ProcessError error) {
        if (error == QProcess::FailedToStart)
            carryOn();
    });
}
