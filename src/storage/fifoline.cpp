#include "storage/fifoline.h"

#include "core/iserialdelegate.h"
#include "core/malformedlinelog.h"

#include <QDebug>
#include <QFile>
#include <QSocketNotifier>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

FifoLine::FifoLine(const QString &path, QObject *parent)
    : QObject(parent), m_overlongLog(new MalformedLineLog(QStringLiteral("Storage FIFO"), this))
{
    m_dev = QFile::encodeName(path).toStdString();
}

FifoLine::~FifoLine()
{
    close();
}

int FifoLine::open()
{
    if (m_fd != -1)
        return 0;
    // Read-write: the open does not wait for a writer, and the last writer going
    // away is no end of file.
    m_fd = ::open(m_dev.c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC);
    if (m_fd == -1) {
        qWarning() << "Could not open FIFO" << m_dev.c_str() << strerror(errno);
        return 1;
    }
    if (!m_delegate)
        qInfo() << "No FIFO delegate for" << m_dev.c_str();
    m_notifier = new QSocketNotifier(m_fd, QSocketNotifier::Read, this);
    connect(m_notifier, &QSocketNotifier::activated, this, &FifoLine::readAvailable);
    return 0;
}

void FifoLine::close()
{
    if (m_fd == -1)
        return;
    delete m_notifier;
    m_notifier = nullptr;
    ::close(m_fd);
    m_fd = -1;
    m_line.clear();
    m_overlong = false;
}

void FifoLine::sendText(const char *text)
{
    if (m_fd == -1 || !text)
        return;
    const size_t length = strlen(text);
    if (::write(m_fd, text, length) != static_cast<ssize_t>(length))
        qWarning() << "Could not write to FIFO" << m_dev.c_str() << strerror(errno);
}

void FifoLine::readAvailable()
{
    // One bounded read a turn: whatever is left wakes the notifier again on the next
    // turn of the event loop, after the keys and timers that came meanwhile.
    char buffer[kBytesPerTurn];
    while (m_fd != -1) {
        const ssize_t count = ::read(m_fd, buffer, sizeof buffer);
        if (count > 0) {
            takeBytes(buffer, count);
            if (count == kBytesPerTurn)
                yieldTurn();
            return;
        }
        if (count < 0 && errno == EINTR)
            continue;
        if (count < 0 && errno != EAGAIN && errno != EWOULDBLOCK)
            qWarning() << "FIFO read failed" << m_dev.c_str() << strerror(errno);
        return;
    }
}

// Socket activity alone can keep timers waiting in the event loop; a posted call
// lets timers and posted events through before the pipe is looked at again.
void FifoLine::yieldTurn()
{
    if (!m_notifier)
        return;
    m_notifier->setEnabled(false);
    QMetaObject::invokeMethod(
        this,
        [this] {
            if (m_notifier)
                m_notifier->setEnabled(true);
        },
        Qt::QueuedConnection);
}

void FifoLine::takeBytes(const char *bytes, qint64 count)
{
    for (qint64 i = 0; i < count; ++i) {
        const char c = bytes[i];
        if (c == '\n') {
            const QString line = QString::fromUtf8(m_line);
            m_line.clear();
            m_overlong = false;
            // The delegate may close us; stop touching the buffer then.
            if (!line.isEmpty() && m_delegate)
                m_delegate->didReceiveData(this, line);
            if (m_fd == -1)
                return;
        } else if (c == '\r') {
            continue;
        } else if (m_line.size() < kMaxLineLength) {
            m_line.append(c);
        } else if (!m_overlong) {
            m_overlong = true;
            if (m_overlongLog->admit(QStringLiteral("overlong")))
                qWarning() << "FIFO line longer than" << kMaxLineLength << "characters cut";
        }
    }
}
