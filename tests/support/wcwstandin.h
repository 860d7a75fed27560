#pragma once

#include <QProcess>
#include <QString>
#include <QUrl>

class TestUnit;

// The kit's WinCan Web stand-in on a free port of 127.0.0.1, started and ended
// by this test through its own process.
class WcwStandIn
{
public:
    explicit WcwStandIn(const TestUnit &unit) : m_unit(unit) {}
    ~WcwStandIn() { stop(); }

    // MODE: "normal", "garbage" (answers that are not JSON) or "silent" (no answer).
    bool start(const QString &user, const QString &password, const QString &mode = QStringLiteral("normal"));
    void stop();
    QUrl url() const { return m_url; }
    QString store() const;

private:
    const TestUnit &m_unit;
    QProcess m_server;
    QUrl m_url;
};
