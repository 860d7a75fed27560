#pragma once

#include "core/iserial.h"

#include <QFuture>
#include <QMutex>
#include <QQueue>
#include <QWaitCondition>
#include <QObject>
#include <QString>
#include <atomic>

// The power board's serial line. A reader on the global thread pool splits the
// bytes into lines and queues them; the main thread takes a bounded batch per turn
// of its event loop, so a board that floods the line cannot starve the keys. The
// queue is bounded too: when it is full the reader stops reading and the board
// waits, instead of memory growing.
class SerialPort : public QObject, public ISerial
{
    Q_OBJECT
public:
    static constexpr int kMaxLineLength = 255;
    static constexpr int kLinesPerTurn = 64;
    static constexpr int kMaxQueuedLines = 1024;

    SerialPort(const QString &device, int baud, QObject *parent = nullptr);
    ~SerialPort() override;

    int open() override;
    void close() override;
    void sendText(const char *text) override;
    bool isOpen() const { return m_fd != -1; }

signals:
    // Each line as it is handed to the delegate, on the main thread.
    void line_received(QString line);

private slots:
    void deliverLines();
    void do_line_received(QString line);

private:
    bool configureLine();
    void rx_process();
    // Reader side: false when the port is closing.
    bool queueLine(const QByteArray &line);

    int m_fd = -1;
    // Written by the main thread, read by the reader.
    std::atomic<bool> m_rx_active{false};
    // The reader waits on the port and on this pipe, so close() can wake it even
    // when the board never answers.
    int m_wake[2] = {-1, -1};
    QFuture<void> m_reader;
    QMutex m_queueLock;
    QWaitCondition m_queueDrained;
    QQueue<QString> m_lines;
    // Set while a delivery is on its way to the main thread.
    bool m_deliveryPosted = false;
};
