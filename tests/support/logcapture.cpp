#include "support/logcapture.h"

#include <QMutex>
#include <QMutexLocker>

namespace {
QMutex s_mutex;
QStringList s_messages;
QtMessageHandler s_previous = nullptr;

void captureHandler(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    {
        QMutexLocker lock(&s_mutex);
        s_messages << message;
    }
    if (s_previous && type != QtDebugMsg)
        s_previous(type, context, message);
}
} // namespace

LogCapture::LogCapture()
{
    clear();
    m_previous = qInstallMessageHandler(captureHandler);
    s_previous = m_previous;
}

LogCapture::~LogCapture()
{
    qInstallMessageHandler(m_previous);
}

QStringList LogCapture::messages() const
{
    QMutexLocker lock(&s_mutex);
    return s_messages;
}

bool LogCapture::contains(const QString &text) const
{
    return count(text) > 0;
}

int LogCapture::count(const QString &text) const
{
    QMutexLocker lock(&s_mutex);
    int n = 0;
    for (const QString &message : qAsConst(s_messages))
        n += message.contains(text) ? 1 : 0;
    return n;
}

void LogCapture::clear()
{
    QMutexLocker lock(&s_mutex);
    s_messages.clear();
}
