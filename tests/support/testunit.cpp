#include "support/testunit.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QProcess>
#include <QTextStream>
#include <QThread>
#include <csignal>
#include <sys/types.h>

TestUnit::TestUnit()
{
    if (!m_dir.isValid())
        return;
    QProcess make;
    make.start(sourceDir() + QStringLiteral("/unit/make-root"), {m_dir.path(), buildDir()});
    if (!make.waitForFinished(60000) || make.exitCode() != 0) {
        QTextStream(stderr) << "make-root failed: " << make.readAllStandardError() << '\n';
        return;
    }
    m_oldPath = qgetenv("PATH");
    qputenv("DUCTLINE_ROOT", m_dir.path().toLocal8Bit());
    qputenv("PATH", (m_dir.path() + QStringLiteral("/usr/local/bin:")).toLocal8Bit() + m_oldPath);
    qputenv("XDG_CONFIG_HOME", (m_dir.path() + QStringLiteral("/home/pi/.config")).toLocal8Bit());
    m_valid = true;
}

TestUnit::~TestUnit()
{
    if (!m_valid)
        return;
    stopKitProcesses();
    qunsetenv("DUCTLINE_ROOT");
    qputenv("PATH", m_oldPath);
}

bool TestUnit::belongsToThisRoot(qint64 pid) const
{
    // A PID file can outlive its process and the number be reused: only a process
    // that runs with this root in its environment is ours to stop.
    QFile environ(QStringLiteral("/proc/%1/environ").arg(pid));
    if (!environ.open(QIODevice::ReadOnly))
        return false;
    return environ.readAll().split('\0').contains("DUCTLINE_ROOT=" + m_dir.path().toLocal8Bit());
}

void TestUnit::stopKitProcesses() const
{
    // Whatever the kit started for this root (a recorder, a stream) is ended by
    // the PID it remembered, so a failed test leaves nothing running behind it.
    const QDir run(path(QStringLiteral("/run/unitkit")));
    const QStringList pidFiles = run.entryList({QStringLiteral("*.pid")}, QDir::Files);
    for (const QString &name : pidFiles) {
        QFile file(run.filePath(name));
        if (!file.open(QIODevice::ReadOnly))
            continue;
        const pid_t pid = pid_t(file.readAll().trimmed().toLongLong());
        if (pid <= 1 || !belongsToThisRoot(pid) || ::kill(pid, SIGTERM) != 0)
            continue;
        for (int i = 0; i < 50 && ::kill(pid, 0) == 0; ++i)
            QThread::msleep(20);
        ::kill(pid, SIGKILL);
    }
}

QString TestUnit::path(const QString &unitAbsolutePath) const
{
    return m_dir.path() + unitAbsolutePath;
}

QStringList TestUnit::kitLog() const
{
    QFile log(path(QStringLiteral("/opt/hbi/log/unitkit.log")));
    if (!log.open(QIODevice::ReadOnly | QIODevice::Text))
        return {};
    return QString::fromUtf8(log.readAll()).split(QLatin1Char('\n'), Qt::SkipEmptyParts);
}

bool TestUnit::writeFile(const QString &unitAbsolutePath, const QByteArray &content) const
{
    const QString target = path(unitAbsolutePath);
    QDir().mkpath(QFileInfo(target).absolutePath());
    QFile file(target);
    return file.open(QIODevice::WriteOnly | QIODevice::Truncate) && file.write(content) == content.size();
}

QString TestUnit::sourceDir()
{
    return QStringLiteral(DUCTLINE_SOURCE_DIR);
}

QString TestUnit::buildDir()
{
    return QStringLiteral(DUCTLINE_BUILD_DIR);
}

QString TestUnit::artifactsDir(const QString &testName)
{
    QString base = QString::fromLocal8Bit(qgetenv("DUCTLINE_TEST_ARTIFACTS"));
    if (base.isEmpty())
        base = buildDir() + QStringLiteral("/tests/artifacts");
    const QString dir = base + QLatin1Char('/') + testName;
    QDir().mkpath(dir);
    return dir;
}
