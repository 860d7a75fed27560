#include "simulator.h"

#include <QCoreApplication>
#include <QDateTime>
#include <QFileInfo>
#include <QDir>
#include <QSocketNotifier>
#include <QTextStream>
#include <QTimer>

#include <cerrno>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <fcntl.h>
#include <sys/stat.h>
#include <termios.h>
#include <unistd.h>

Simulator::Simulator(const Options &options, BoardModel *board, QObject *parent)
    : QObject(parent)
    , m_options(options)
    , m_board(board)
{
}

Simulator::~Simulator()
{
    if (!m_options.link.isEmpty() && QFileInfo(m_options.link).isSymLink())
        QFile::remove(m_options.link);
    for (int fd : {m_controlFd, m_slave, m_master}) {
        if (fd != -1)
            ::close(fd);
    }
}

bool Simulator::start()
{
    if (!m_options.log.isEmpty()) {
        QDir().mkpath(QFileInfo(m_options.log).absolutePath());
        m_log.setFileName(m_options.log);
        m_log.open(QIODevice::Append | QIODevice::Text);
    }
    m_master = posix_openpt(O_RDWR | O_NOCTTY);
    if (m_master == -1 || grantpt(m_master) != 0 || unlockpt(m_master) != 0) {
        log(QStringLiteral("cannot open a pseudo-terminal: %1").arg(strerror(errno)));
        return false;
    }
    // Raw before anything is written, or the line discipline echoes our own replies back.
    termios tty;
    tcgetattr(m_master, &tty);
    cfmakeraw(&tty);
    tcsetattr(m_master, TCSANOW, &tty);
    const char *slaveName = ptsname(m_master);
    // Held open so the console can close and reopen its end without a hang-up here.
    m_slave = ::open(slaveName, O_RDWR | O_NOCTTY);
    fcntl(m_master, F_SETFL, fcntl(m_master, F_GETFL) | O_NONBLOCK);

    QDir().mkpath(QFileInfo(m_options.link).absolutePath());
    QFile::remove(m_options.link);
    if (!QFile::link(QString::fromLocal8Bit(slaveName), m_options.link)) {
        log(QStringLiteral("cannot link %1 to %2").arg(m_options.link, slaveName));
        return false;
    }
    m_consoleNotifier = new QSocketNotifier(m_master, QSocketNotifier::Read, this);
    connect(m_consoleNotifier, &QSocketNotifier::activated, this, &Simulator::readConsole);

    if (!m_options.control.isEmpty()) {
        QDir().mkpath(QFileInfo(m_options.control).absolutePath());
        ::unlink(m_options.control.toLocal8Bit().constData());
        // Read-write so the FIFO never reports end-of-file between writers.
        if (mkfifo(m_options.control.toLocal8Bit().constData(), 0666) != 0
            || (m_controlFd = ::open(m_options.control.toLocal8Bit().constData(), O_RDWR | O_NONBLOCK)) == -1) {
            log(QStringLiteral("cannot open the command channel %1: %2").arg(m_options.control, strerror(errno)));
            return false;
        }
        m_controlNotifier = new QSocketNotifier(m_controlFd, QSocketNotifier::Read, this);
        connect(m_controlNotifier, &QSocketNotifier::activated, this, &Simulator::readControl);
    }

    m_reportTimer = new QTimer(this);
    connect(m_reportTimer, &QTimer::timeout, this, [this] { control(QStringLiteral("report")); });
    if (m_options.reportMs > 0)
        m_reportTimer->start(m_options.reportMs);
    m_ambientTimer = new QTimer(this);
    connect(m_ambientTimer, &QTimer::timeout, this, [this] { control(QStringLiteral("ambient")); });
    if (m_options.ambientMs > 0)
        m_ambientTimer->start(m_options.ambientMs);
    m_drainTimer = new QTimer(this);
    connect(m_drainTimer, &QTimer::timeout, this, &Simulator::drainBattery);

    if (!m_options.scenario.isEmpty()) {
        QFile file(m_options.scenario);
        if (!file.open(QIODevice::ReadOnly | QIODevice::Text)) {
            log(QStringLiteral("cannot read the scenario %1").arg(m_options.scenario));
            return false;
        }
        m_scenario = QString::fromUtf8(file.readAll()).split('\n');
        m_scenarioTimer = new QTimer(this);
        m_scenarioTimer->setSingleShot(true);
        connect(m_scenarioTimer, &QTimer::timeout, this, &Simulator::runScenarioStep);
        m_scenarioTimer->start(0);
    }
    log(QStringLiteral("board %1 on %2 (%3)")
            .arg(m_board->value("*ID"), m_options.link, QString::fromLocal8Bit(slaveName)));
    return true;
}

void Simulator::log(const QString &text)
{
    const QString line = QDateTime::currentDateTime().toString(QStringLiteral("yyyy-MM-dd hh:mm:ss.zzz ")) + text;
    QTextStream(stdout) << line << Qt::endl;
    if (m_log.isOpen()) {
        m_log.write(line.toUtf8() + '\n');
        m_log.flush();
    }
}

void Simulator::readConsole()
{
    char buffer[512];
    ssize_t count;
    while ((count = ::read(m_master, buffer, sizeof buffer)) > 0)
        m_consoleBuffer.append(buffer, int(count));
    int end;
    while ((end = m_consoleBuffer.indexOf('\n')) != -1) {
        QString command = QString::fromLatin1(m_consoleBuffer.left(end));
        m_consoleBuffer.remove(0, end + 1);
        command.remove('\r');
        if (!command.isEmpty())
            handleCommand(command);
    }
}

void Simulator::handleCommand(const QString &command)
{
    log(QStringLiteral("rx %1").arg(command));
    const QStringList lines = m_board->answer(command);
    if (lines.isEmpty())
        return;
    deliver(command.endsWith('?') ? command.chopped(1) : command.section(' ', 0, 0), lines);
}

void Simulator::deliver(const QString &asked, const QStringList &lines)
{
    auto fault = m_faults.find(asked);
    if (fault == m_faults.end()) {
        for (const QString &line : lines)
            sendLine(line);
        return;
    }
    switch (fault->kind) {
    case Fault::kLose:
        log(QStringLiteral("lost reply to %1").arg(asked));
        if (fault->remaining > 0 && --fault->remaining == 0)
            m_faults.erase(fault);
        return;
    case Fault::kLate:
        log(QStringLiteral("reply to %1 held for %2 ms").arg(asked).arg(fault->delayMs));
        QTimer::singleShot(fault->delayMs, this, [this, lines] {
            for (const QString &line : lines)
                sendLine(line);
        });
        return;
    case Fault::kWrong: {
        const QStringList other = m_board->answer(fault->other + '?');
        log(QStringLiteral("answering %1 as %2").arg(asked, fault->other));
        for (const QString &line : other)
            sendLine(line);
        return;
    }
    }
}

void Simulator::sendLine(const QString &line)
{
    log(QStringLiteral("tx %1").arg(line));
    const QByteArray bytes = line.toLatin1() + (m_options.lfOnly ? "\n" : "\r\n");
    if (::write(m_master, bytes.constData(), size_t(bytes.size())) != bytes.size())
        log(QStringLiteral("write failed: %1").arg(strerror(errno)));
}

void Simulator::readControl()
{
    char buffer[512];
    ssize_t count;
    while ((count = ::read(m_controlFd, buffer, sizeof buffer)) > 0)
        m_controlBuffer.append(buffer, int(count));
    int end;
    while ((end = m_controlBuffer.indexOf('\n')) != -1) {
        const QString line = QString::fromUtf8(m_controlBuffer.left(end)).trimmed();
        m_controlBuffer.remove(0, end + 1);
        if (!line.isEmpty() && !line.startsWith('#') && !line.startsWith(QLatin1String("wait ")))
            control(line);
    }
}

void Simulator::runScenarioStep()
{
    while (!m_scenario.isEmpty()) {
        const QString line = m_scenario.takeFirst().trimmed();
        if (line.isEmpty() || line.startsWith('#'))
            continue;
        if (line.startsWith(QLatin1String("wait "))) {
            m_scenarioTimer->start(line.section(' ', 1, 1).toInt());
            return;
        }
        control(line);
    }
    log(QStringLiteral("scenario finished"));
}

void Simulator::drainBattery()
{
    const int millivolts = qMax(0, m_board->value("BFG:VOLT").toInt() - m_drainMv);
    m_board->set("BFG:VOLT", QString::number(millivolts));
    control(QStringLiteral("report"));
}

bool Simulator::control(const QString &line)
{
    const QStringList words = line.split(' ', Qt::SkipEmptyParts);
    if (words.isEmpty())
        return false;
    const QString &verb = words[0];
    const QString rest = words.mid(1).join(' ');
    bool ok = true;
    if (verb == "set" && words.size() >= 3) {
        ok = m_board->set(words[1], words.mid(2).join(' '));
    } else if (verb == "send" && words.size() >= 2) {
        sendLine(rest);
    } else if (verb == "report") {
        for (const QString &report : m_board->batteryReport())
            sendLine(report);
    } else if (verb == "shutdown") {
        sendLine(QStringLiteral("SHD 1"));
    } else if (verb == "ambient") {
        if (words.size() >= 2)
            m_board->set("AMB", words[1]);
        sendLine("AMB " + m_board->value("AMB"));
    } else if (verb == "counter" && words.size() == 2) {
        m_board->set("QER", words[1]);
        sendLine("QER " + words[1]);
    } else if (verb == "drain" && words.size() == 3) {
        m_drainMv = words[1].toInt();
        m_drainTimer->stop();
        if (m_drainMv > 0)
            m_drainTimer->start(qMax(10, words[2].toInt()));
    } else if (verb == "late" && words.size() == 3) {
        m_faults[words[1]] = Fault{Fault::kLate, words[2].toInt(), -1, QString()};
    } else if (verb == "lose" && (words.size() == 2 || words.size() == 3)) {
        m_faults[words[1]] = Fault{Fault::kLose, 0, words.size() == 3 ? words[2].toInt() : -1, QString()};
    } else if (verb == "wrong" && words.size() == 3) {
        m_faults[words[1]] = Fault{Fault::kWrong, 0, -1, words[2]};
    } else if (verb == "clear") {
        m_faults.clear();
    } else if (verb == "quit") {
        QCoreApplication::quit();
    } else {
        ok = false;
    }
    log(QStringLiteral("%1 %2").arg(ok ? QStringLiteral("control") : QStringLiteral("control rejected"), line));
    return ok;
}
