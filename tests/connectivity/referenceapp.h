#pragma once

// The unit kit's reference mobile app (unit-app), run for one test executable on
// 127.0.0.1 with ports of its own, and driven through its control socket.
#include "support/testunit.h"

#include <QFile>
#include <QLocalSocket>
#include <QProcess>
#include <QUdpSocket>
#include <QtTest>

class ReferenceApp
{
public:
    // The app beats well inside the unit's 20 s, as the real one does, so a long test keeps its link.
    static constexpr int kBeatSeconds = 4;
    static constexpr char kBeatAnswer[] = "Lanthorn Beat";

    explicit ReferenceApp(const TestUnit &unit) : m_unit(unit) {}
    ~ReferenceApp() { stop(); }

    // Starts the app listening on a free port; the unit's discovery port is chosen free too.
    bool start()
    {
        QUdpSocket probe;
        if (!probe.bind(QHostAddress(QHostAddress::LocalHost), 0))
            return false;
        discoveryPort = probe.localPort();
        probe.close();
        m_process.setProgram(m_unit.path(QStringLiteral("/usr/local/bin/unit-app")));
        m_process.setArguments({QStringLiteral("--port"), QStringLiteral("0"),
                                QStringLiteral("--beat"), QString::number(kBeatSeconds), QStringLiteral("--discovery-port"),
                                QString::number(discoveryPort), QStringLiteral("--control"), controlPath(),
                                QStringLiteral("run")});
        m_process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
        m_process.start();
        if (!m_process.waitForStarted(10000))
            return false;
        while (!m_process.canReadLine()) {
            if (!m_process.waitForReadyRead(10000))
                return false;
        }
        const QByteArray line = m_process.readLine().trimmed();
        if (!line.startsWith("port "))
            return false;
        appPort = quint16(line.mid(5).toUInt());
        return appPort != 0;
    }

    void stop()
    {
        if (m_process.state() == QProcess::NotRunning)
            return;
        m_process.terminate();
        if (!m_process.waitForFinished(5000))
            m_process.kill();
        m_process.waitForFinished(5000);
    }

    // One control command ("send LampUp", "transfer site FILE", ...); the app's answer.
    QString command(const QString &line) const
    {
        QLocalSocket control;
        control.connectToServer(controlPath());
        if (!control.waitForConnected(5000))
            return QStringLiteral("no control socket");
        control.write(line.toUtf8() + '\n');
        control.waitForBytesWritten(5000);
        while (!control.canReadLine()) {
            if (!control.waitForReadyRead(10000))
                return QStringLiteral("no answer");
        }
        return QString::fromUtf8(control.readLine()).trimmed();
    }

    QString log() const
    {
        QFile file(m_unit.path(QStringLiteral("/opt/hbi/log/unit-app.log")));
        return file.open(QIODevice::ReadOnly) ? QString::fromLatin1(file.readAll()) : QString();
    }
    // What the app received from the unit, one line each, in order; the answers
    // to its heartbeat only when asked for.
    QStringList received(bool withBeats = false) const
    {
        QStringList lines;
        const QStringList all = log().split(QLatin1Char('\n'));
        for (const QString &line : all) {
            const int at = line.indexOf(QLatin1String(" recv "));
            const QString text = at > 0 ? line.mid(at + 6).trimmed() : QString();
            if (at > 0 && (withBeats || text != kBeatAnswer))
                lines << text;
        }
        return lines;
    }
    bool hasReceived(const QString &line) const { return received(line == kBeatAnswer).contains(line); }
    QString receivedFile(const QString &name) const
    {
        return m_unit.path(QStringLiteral("/var/hbi/sim/app-received/")) + name;
    }

    quint16 appPort = 0;
    quint16 discoveryPort = 0;

private:
    QString controlPath() const { return m_unit.path(QStringLiteral("/run/unitkit/unit-app.sock")); }

    const TestUnit &m_unit;
    QProcess m_process;
};
