#include "support/unitftpsite.h"

#include "support/testunit.h"

#include <QFile>
#include <QProcess>
#include <QTextStream>
#include <csignal>
#include <sys/types.h>

UnitFtpSite::UnitFtpSite(const TestUnit &unit, const QString &user, const QString &password)
    : m_unit(unit), m_user(user), m_password(password)
{
}

UnitFtpSite::~UnitFtpSite()
{
    stop();
}

bool UnitFtpSite::start()
{
    QProcess kit;
    kit.start(QStringLiteral("/bin/sh"), {m_unit.path("/usr/local/bin/unit-ftp"), QStringLiteral("start"), m_user, m_password});
    if (!kit.waitForFinished(30000) || kit.exitCode() != 0) {
        QTextStream(stderr) << "unit-ftp start failed: " << kit.readAllStandardError() << '\n';
        return false;
    }
    m_address = QString::fromLocal8Bit(kit.readAllStandardOutput()).trimmed();
    return m_address.startsWith(QStringLiteral("127.0.0.1:"));
}

void UnitFtpSite::stop()
{
    if (m_address.isEmpty())
        return;
    signal(SIGCONT);
    QProcess kit;
    kit.start(QStringLiteral("/bin/sh"), {m_unit.path("/usr/local/bin/unit-ftp"), QStringLiteral("stop")});
    kit.waitForFinished(30000);
    m_address.clear();
}

qint64 UnitFtpSite::pid() const
{
    QFile file(m_unit.path("/run/unitkit/ftp.pid"));
    if (!file.open(QIODevice::ReadOnly))
        return -1;
    return file.readAll().trimmed().toLongLong();
}

QString UnitFtpSite::home() const
{
    return m_unit.path("/srv/ftp");
}

bool UnitFtpSite::signal(int signalNumber) const
{
    const qint64 server = pid();
    return server > 1 && ::kill(pid_t(server), signalNumber) == 0;
}
