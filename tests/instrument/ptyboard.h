#pragma once

// The board's end of a real pseudo-terminal, for tests that drive the serial
// line the way the power board does.

#include <QByteArray>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QString>

#include <cerrno>
#include <fcntl.h>
#include <poll.h>
#include <stdlib.h>
#include <termios.h>
#include <unistd.h>

class PtyBoard
{
public:
    PtyBoard()
    {
        m_master = posix_openpt(O_RDWR | O_NOCTTY);
        if (m_master == -1 || grantpt(m_master) != 0 || unlockpt(m_master) != 0)
            return;
        termios tty;
        tcgetattr(m_master, &tty);
        cfmakeraw(&tty);
        tcsetattr(m_master, TCSANOW, &tty);
        m_slavePath = QString::fromLocal8Bit(ptsname(m_master));
        // Held open so the master never sees a hang-up between two clients.
        m_slave = ::open(ptsname(m_master), O_RDWR | O_NOCTTY);
        fcntl(m_master, F_SETFL, fcntl(m_master, F_GETFL) | O_NONBLOCK);
    }
    ~PtyBoard()
    {
        if (m_slave != -1)
            ::close(m_slave);
        if (m_master != -1)
            ::close(m_master);
    }
    PtyBoard(const PtyBoard &) = delete;
    PtyBoard &operator=(const PtyBoard &) = delete;

    bool isValid() const { return m_slave != -1; }
    QString slavePath() const { return m_slavePath; }
    // Non-blocking; for writers that keep the line full.
    int masterFd() const { return m_master; }

    bool linkAt(const QString &path) const
    {
        QFile::remove(path);
        return QFile::link(m_slavePath, path);
    }

    void write(const QByteArray &bytes) const
    {
        const ssize_t written = ::write(m_master, bytes.constData(), size_t(bytes.size()));
        Q_UNUSED(written)
    }

    // What the console sent, collected until at least `atLeast` bytes came or
    // the time ran out, plus whatever follows within a short grace period.
    QByteArray read(int atLeast, int timeoutMs = 10000, int graceMs = 30) const
    {
        QByteArray got;
        QElapsedTimer clock;
        clock.start();
        while (got.size() < atLeast && clock.elapsed() < timeoutMs)
            got += readFor(20);
        got += readFor(graceMs);
        return got;
    }

    QByteArray readFor(int ms) const
    {
        QByteArray got;
        QElapsedTimer clock;
        clock.start();
        do {
            QCoreApplication::processEvents();
            pollfd fd = {m_master, POLLIN, 0};
            if (poll(&fd, 1, 5) > 0) {
                char buffer[512];
                const ssize_t count = ::read(m_master, buffer, sizeof buffer);
                if (count > 0)
                    got.append(buffer, int(count));
            }
        } while (clock.elapsed() < ms);
        return got;
    }

    void drain() const { readFor(20); }

private:
    int m_master = -1;
    int m_slave = -1;
    QString m_slavePath;
};
