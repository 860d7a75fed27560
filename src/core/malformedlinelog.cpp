#include "core/malformedlinelog.h"

#include <QDebug>
#include <QTimer>

MalformedLineLog::MalformedLineLog(const QString &label, QObject *parent)
    : QObject(parent), m_label(label), m_window(new QTimer(this))
{
    m_window->setSingleShot(true);
    m_window->setInterval(kWindowMs);
    connect(m_window, &QTimer::timeout, this, &MalformedLineLog::summarise);
}

bool MalformedLineLog::admit(const QString &line, int logLines)
{
    if (!m_window->isActive())
        m_window->start();
    if (line == m_last) {
        ++m_repeats;
        return false;
    }
    reportRepeats();
    m_last = line;
    if (spend(logLines))
        return true;
    ++m_heldBack;
    return false;
}

void MalformedLineLog::reportRepeats()
{
    if (m_repeats == 0)
        return;
    if (spend(1))
        qInfo().noquote() << m_label + QStringLiteral(": the line before came %1 more times").arg(m_repeats);
    else
        m_heldRepeats += m_repeats;
    m_repeats = 0;
}

bool MalformedLineLog::spend(int logLines)
{
    if (m_spent + logLines > kLogLinesPerWindow)
        return false;
    m_spent += logLines;
    return true;
}

void MalformedLineLog::summarise()
{
    m_window->stop();
    const int repeats = m_heldRepeats + m_repeats;
    const int notLogged = m_heldBack + repeats;
    if (notLogged > 0)
        qInfo().noquote() << m_label
                                 + QStringLiteral(": %1 more malformed lines not logged in the last minute, "
                                                  "%2 of them repeats of the line before")
                                       .arg(notLogged)
                                       .arg(repeats);
    m_last.clear();
    m_spent = 0;
    m_repeats = 0;
    m_heldRepeats = 0;
    m_heldBack = 0;
}
