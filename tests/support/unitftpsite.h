#pragma once

#include <QString>

class TestUnit;

// The simulated unit's FTP cloud site, started by the kit's unit-ftp on a free
// port of 127.0.0.1 and stopped by the PID the kit kept.
class UnitFtpSite
{
public:
    UnitFtpSite(const TestUnit &unit, const QString &user, const QString &password);
    ~UnitFtpSite();

    bool start();
    void stop();
    // "127.0.0.1:<port>", the cloud host as the operator enters it.
    QString address() const { return m_address; }
    qint64 pid() const;
    // The site's folder on disk, "/" of the FTP site.
    QString home() const;
    // Freezes or thaws the server, for transfers that stall.
    bool signal(int signalNumber) const;

private:
    const TestUnit &m_unit;
    QString m_user;
    QString m_password;
    QString m_address;
};
