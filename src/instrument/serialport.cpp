#include "instrument/serialport.h"

#include "core/iserialdelegate.h"

#include <QtConcurrent>
#include <QDebug>

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

namespace {
// What the board takes as the end of the conversation; it answers with a line,
// which is what used to free a reader blocked in read().
const char kGoodbye[] = "XXX\r\n";
// After a hang-up or read error the reader tries again after this pause rather
// than spinning on a dead line.
constexpr int kRetryPauseMs = 100;
}

SerialPort::SerialPort(const QString &device, int baud, QObject *parent)
    : QObject(parent)
{
    m_dev = device.toStdString();
    m_baud = baud;
}

SerialPort::~SerialPort()
{
    close();
}

int SerialPort::open()
{
    if (m_fd != -1)
        return 0;
    m_fd = ::open(m_dev.c_str(), O_RDWR | O_NOCTTY);
    if (m_fd == -1) {
        qWarning() << "Could not open serial device" << m_dev.c_str() << strerror(errno);
        return 1;
    }
    const int flags = fcntl(m_fd, F_GETFL);
    if (flags == -1 || fcntl(m_fd, F_SETFL, flags & ~O_NONBLOCK) == -1) {
        qWarning() << "Setting flags failed";
        ::close(m_fd);
        m_fd = -1;
        return 1;
    }
    if (m_baud != 0 && !configureLine()) {
        qWarning() << "Could not configure serial device" << m_dev.c_str() << strerror(errno);
        ::close(m_fd);
        m_fd = -1;
        return 1;
    }
    if (!m_delegate) {
        qInfo() << "No serial delegate";
        return 0;
    }
    if (pipe2(m_wake, O_CLOEXEC) == -1) {
        qWarning() << "Could not create the reader's wake pipe" << strerror(errno);
        ::close(m_fd);
        m_fd = -1;
        return 1;
    }
    m_rx_active = true;
    m_reader = QtConcurrent::run([this] { rx_process(); });
    return 0;
}

bool SerialPort::configureLine()
{
    termios tty;
    if (tcgetattr(m_fd, &tty) != 0)
        return false;
    cfmakeraw(&tty);
    tty.c_cc[VMIN] = 1;
    tty.c_cc[VTIME] = 10;
    // The board talks at one fixed speed whatever the caller asked for.
    if (cfsetspeed(&tty, B115200) != 0)
        return false;
    // No hardware flow control: the board has no handshake lines, and a low CTS
    // would hold the last words, and the console's exit, for ever.
    tty.c_cflag &= ~(PARENB | CSIZE | CRTSCTS);
    tty.c_cflag |= CS8 | CLOCAL;
    return tcsetattr(m_fd, TCSANOW, &tty) == 0;
}

void SerialPort::close()
{
    if (m_fd == -1)
        return;
    m_rx_active = false;
    sendText(kGoodbye);
    tcdrain(m_fd);
    {
        const QMutexLocker locker(&m_queueLock);
        m_queueDrained.wakeAll();
    }
    if (m_wake[1] != -1) {
        const char wake = 1;
        if (::write(m_wake[1], &wake, 1) != 1)
            qWarning() << "Could not wake the serial reader";
        m_reader.waitForFinished();
        ::close(m_wake[0]);
        ::close(m_wake[1]);
        m_wake[0] = m_wake[1] = -1;
    }
    ::close(m_fd);
    m_fd = -1;
    const QMutexLocker locker(&m_queueLock);
    m_lines.clear();
}

void SerialPort::sendText(const char *text)
{
    if (m_fd == -1 || !text)
        return;
    // Fire and forget: the board acknowledges nothing, so neither do we check.
    const ssize_t written = ::write(m_fd, text, strlen(text));
    Q_UNUSED(written)
}

void SerialPort::rx_process()
{
    QByteArray line;
    line.reserve(kMaxLineLength);
    char buffer[256];
    pollfd fds[2] = {{m_fd, POLLIN, 0}, {m_wake[0], POLLIN, 0}};
    bool failing = false;
    while (m_rx_active) {
        if (failing) {
            // A dead line reports itself at once on every poll: pause on the wake pipe only.
            if (poll(&fds[1], 1, kRetryPauseMs) > 0)
                break;
        }
        fds[0].revents = fds[1].revents = 0;
        const int ready = poll(fds, 2, -1);
        if (!m_rx_active || (ready > 0 && fds[1].revents))
            break;
        if (ready <= 0)
            continue;
        const ssize_t count = ::read(m_fd, buffer, sizeof buffer);
        if (count <= 0) {
            if (!failing)
                qWarning() << "Serial read failed:" << (count == 0 ? "hang-up" : strerror(errno));
            failing = true;
            continue;
        }
        failing = false;
        for (ssize_t i = 0; i < count; ++i) {
            const char c = buffer[i];
            if (c == '\n') {
                if (!line.isEmpty() && !queueLine(line))
                    break;
                line.clear();
            } else if (c != '\r' && line.size() < kMaxLineLength) {
                line.append(c);
            }
        }
    }
    qInfo() << "rx_process is exit";
}

void SerialPort::do_line_received(QString line)
{
    if (m_delegate)
        m_delegate->didReceiveData(this, line);
}

bool SerialPort::queueLine(const QByteArray &line)
{
    QMutexLocker locker(&m_queueLock);
    while (m_lines.size() >= kMaxQueuedLines && m_rx_active)
        m_queueDrained.wait(&m_queueLock);
    if (!m_rx_active)
        return false;
    m_lines.enqueue(QString::fromLatin1(line));
    if (!m_deliveryPosted) {
        m_deliveryPosted = true;
        QMetaObject::invokeMethod(this, "deliverLines", Qt::QueuedConnection);
    }
    return true;
}

void SerialPort::deliverLines()
{
    QList<QString> batch;
    {
        const QMutexLocker locker(&m_queueLock);
        while (!m_lines.isEmpty() && batch.size() < kLinesPerTurn)
            batch.append(m_lines.dequeue());
        m_queueDrained.wakeAll();
    }
    for (const QString &line : qAsConst(batch)) {
        // The delegate may close the port; what is left is dropped with it.
        if (m_fd == -1 || !m_delegate)
            break;
        emit line_received(line);
        do_line_received(line);
    }
    const QMutexLocker locker(&m_queueLock);
    if (m_lines.isEmpty() || m_fd == -1) {
        m_deliveryPosted = false;
        return;
    }
    // Posted again: what the loop holds meanwhile (keys, timers) goes first.
    QMetaObject::invokeMethod(this, "deliverLines", Qt::QueuedConnection);
}
