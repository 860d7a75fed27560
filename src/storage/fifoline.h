#pragma once

#include "core/iserial.h"

#include <QByteArray>
#include <QObject>
#include <QString>

class MalformedLineLog;
class QSocketNotifier;

// A named pipe read as a line source. The system's scripts write whole lines into
// it whenever they like; the reader never blocks the main thread and never sees an
// end of file, because it holds the pipe open for writing too.
class FifoLine : public QObject, public ISerial
{
    Q_OBJECT
public:
    // Longer lines are cut here; the rest up to the line end is dropped.
    static constexpr int kMaxLineLength = 1024;
    // Read in one turn of the event loop; a writer that never stops cannot starve the keys.
    static constexpr int kBytesPerTurn = 2048;

    explicit FifoLine(const QString &path, QObject *parent = nullptr);
    ~FifoLine() override;

    int open() override;
    void close() override;
    // Writes into the pipe, so the text comes back as received lines.
    void sendText(const char *text) override;
    bool isOpen() const { return m_fd != -1; }

private slots:
    void readAvailable();

private:
    void takeBytes(const char *bytes, qint64 count);
    void yieldTurn();

    int m_fd = -1;
    QSocketNotifier *m_notifier = nullptr;
    QByteArray m_line;
    bool m_overlong = false;
    MalformedLineLog *m_overlongLog = nullptr;
};
