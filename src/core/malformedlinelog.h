#pragma once

#include <QObject>
#include <QString>

class QTimer;

// Decides which malformed input lines reach the log, so a device or script that
// sends rubbish without end cannot fill the disk. A line repeating the one before
// is only counted; each minute at most a fixed number of log lines is spent on
// malformed input, and what was held back is summed up in one line when the
// minute ends.
class MalformedLineLog : public QObject
{
    Q_OBJECT
public:
    static constexpr int kLogLinesPerWindow = 40;
    static constexpr int kWindowMs = 60000;

    // label starts every summary line, e.g. "Storage FIFO".
    explicit MalformedLineLog(const QString &label, QObject *parent = nullptr);

    // True when the caller should log this line now, in logLines lines of its own.
    bool admit(const QString &line, int logLines = 1);

public slots:
    // Logs what was held back and opens a new window; the window's timer calls it.
    void summarise();

private:
    void reportRepeats();
    bool spend(int logLines);

    QString m_label;
    QTimer *m_window = nullptr;
    QString m_last;
    int m_spent = 0;
    int m_repeats = 0;
    int m_heldRepeats = 0;
    int m_heldBack = 0;
};
