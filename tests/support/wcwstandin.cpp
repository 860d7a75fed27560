#include "support/wcwstandin.h"

#include "support/testunit.h"

#include <QDeadlineTimer>
#include <QFile>
#include <QThread>

QString WcwStandIn::store() const
{
    return m_unit.path("/srv/wincanweb");
}

bool WcwStandIn::start(const QString &user, const QString &password, const QString &mode)
{
    stop();
    const QString portFile = m_unit.path("/run/unitkit/wcweb.port");
    QFile::remove(portFile);
    m_server.start(QStringLiteral("/usr/bin/python3"),
                   {m_unit.path("/usr/local/lib/wcwstandin.py"), store(), portFile, user, QStringLiteral("-"), mode});
    if (!m_server.waitForStarted(10000))
        return false;
    m_server.write(password.toUtf8() + '\n');
    m_server.closeWriteChannel();
    // The server writes its port once it listens; nothing else tells us it is ready.
    QDeadlineTimer deadline(20000);
    QFile file(portFile);
    while (!file.exists()) {
        if (deadline.hasExpired() || m_server.state() == QProcess::NotRunning)
            return false;
        m_server.waitForFinished(20);
    }
    if (!file.open(QIODevice::ReadOnly))
        return false;
    m_url = QUrl(QStringLiteral("http://127.0.0.1:%1").arg(file.readAll().trimmed().toInt()));
    return true;
}

void WcwStandIn::stop()
{
    if (m_server.state() == QProcess::NotRunning)
        return;
    m_server.kill();
    m_server.waitForFinished(10000);
}
