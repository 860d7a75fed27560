#pragma once

#include "core/iserial.h"

#include <QFuture>
#include <QObject>
#include <QString>
#include <atomic>

// The power board's serial line. A reader on the global thread pool splits the
// bytes into lines and hands each to the main thread by a queued signal.
class SerialPort : public QObject, public ISerial
{
    Q_OBJECT
public:
    static constexpr int kMaxLineLength = 255;

    SerialPort(const QString &device, int baud, QObject *parent = nullptr);
    ~SerialPort() override;

    int open() override;
    void close() override;
    void sendText(const char *text) override;
    bool isOpen() const { return m_fd != -1; }

signals:
    void line_received(QString line);

private slots:
    void do_line_received(QString line);

private:
    bool configureLine();
    void rx_process();

    int m_fd = -1;
    // Written by the main thread, read by the reader.
    std::atomic<bool> m_rx_active{false};
    // The reader waits on the port and on this pipe, so close() can wake it even
    // when the board never answers.
    int m_wake[2] = {-1, -1};
    QFuture<void> m_reader;
};
