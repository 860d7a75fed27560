#pragma once

#include <QStringList>
#include <QtGlobal>

// Collects what the program logs while it is alive, so a test can check the
// operator-invisible outcomes the console only reports in its log.
class LogCapture
{
public:
    LogCapture();
    ~LogCapture();

    QStringList messages() const;
    bool contains(const QString &text) const;
    int count(const QString &text) const;
    void clear();

private:
    QtMessageHandler m_previous = nullptr;
};
