#include "connectivity/wifi.h"

#include "core/processcontroller.h"
#include "core/singleton.h"
#include "core/unitpaths.h"

#include <QDebug>
#include <QFileInfo>
#include <QProcess>
#include <QRegularExpression>
#include <QTimer>

namespace {
Wifi *s_instance = nullptr;

const char kSudo[] = "sudo";
constexpr int kAfterStopScanMs = 1000;
constexpr int kAfterScanMs = 2000;
constexpr int kAfterChangeMs = 10;
constexpr int kRescanAfterChangeMs = 5000;
constexpr int kWiredTimeoutMs = 5000;

QString scriptPath(const char *script)
{
    return unitPath(QStringLiteral("/opt/hbi/bin/") + QLatin1String(script));
}

// "49/70  Signal level" gives 49 and so on: the first word of a piece.
int firstNumber(const QString &piece)
{
    return piece.trimmed().section(QLatin1Char(' '), 0, 0).toInt();
}

// ESSID:"name" gives the text between the quotes; ESSID:off/any gives "off".
QString essidFrom(const QString &piece)
{
    const int open = piece.indexOf(QLatin1Char('"'));
    const int close = piece.lastIndexOf(QLatin1Char('"'));
    if (open >= 0 && close > open)
        return piece.mid(open + 1, close - open - 1);
    return piece.trimmed();
}
} // namespace

Wifi *Wifi::instance(QObject *parent)
{
    return Singleton<Wifi>::instance(s_instance, parent);
}

Wifi::Wifi(QObject *parent) : QObject(parent), process(ProcessController::instance(parent))
{
    timer = new QTimer(this);
    timer->setSingleShot(true);
    QObject::connect(timer, &QTimer::timeout, this, [this] {
        checkWired();
        getInfo();
    });
    QObject::connect(process, &ProcessController::outputWithArgs, this, &Wifi::finishedProcess);
}

void Wifi::init()
{
    queue(first_start, "wifi_first_start.sh", {}, kScriptTimeoutMs);
    checkWired();
    getInfo();
}

bool Wifi::isPolling() const
{
    return timer->isActive();
}

int Wifi::pollInterval() const
{
    return timer->interval();
}

bool Wifi::queue(bool &busy, const char *script, const QStringList &arguments, int timeoutMs)
{
    if (busy || shutdown)
        return false;
    busy = true;
    process->addProcess(QLatin1String(kSudo), QStringList{scriptPath(script)} + arguments, timeoutMs);
    return true;
}

void Wifi::getInfoIn(int ms)
{
    timer->start(ms);
}

QString Wifi::scriptName(const QString &path)
{
    return QFileInfo(path).fileName();
}

// ---- Scans and information ----------------------------------------------------

void Wifi::startScan()
{
    timer->stop();
    connection_changed = true;
    if (!connect_network)
        scan_networks = false;
    scanNetworks();
}

void Wifi::stopScan()
{
    timer->stop();
    // The page has gone: no more scans until it asks again.
    scan_networks = true;
    if (SSID != QLatin1String("off"))
        getInfoIn(kAfterStopScanMs);
}

void Wifi::scanNetworks()
{
    queue(scan_networks, "wifi_scan.sh", {}, kScanTimeoutMs);
}

void Wifi::getInfo()
{
    queue(wifi_info, "wifi_info.sh", {}, kScriptTimeoutMs);
}

void Wifi::finishScanNetworks(QString output)
{
    // The script prints its usage, with an example, when the radio refused the scan.
    const bool good = !output.contains(QLatin1String("example:"));
    if (output.isEmpty()) {
        // A radio still waking up answers with nothing: ask again straight away.
        scan_networks = false;
        scanNetworks();
        return;
    }
    emit updateWifiList(output, SSID, connection_changed, good);
    connection_changed = false;
    scan_networks = false;
    getInfoIn(kAfterScanMs);
}

int Wifi::stateFor(const QString &ssid, const QString &ip, int signal, int total)
{
    if (ssid == QLatin1String("off") || ip.isEmpty() || total <= 0)
        return kNotConnected;
    const float ratio = float(signal) / float(total);
    if (ratio >= 0.7f)
        return kFull;
    if (ratio >= 0.4f)
        return kMedium;
    return kLow;
}

void Wifi::processInfo(QString output)
{
    if (output.isEmpty())
        return;
    static const QRegularExpression separators(QStringLiteral("[:=/\n]"));
    const QStringList pieces = output.split(separators);
    bool sawEssid = false;
    bool sawInet = false;
    for (int i = 0; i < pieces.size(); ++i) {
        const QString &piece = pieces.at(i);
        if (piece.contains(QLatin1String("ESSID")) && i + 1 < pieces.size()) {
            SSID = essidFrom(pieces.at(i + 1));
            sawEssid = true;
        } else if (piece.contains(QLatin1String("inet")) && !sawInet) {
            const QStringList words = piece.simplified().split(QLatin1Char(' '));
            const int at = words.indexOf(QStringLiteral("inet"));
            if (at >= 0 && at + 1 < words.size()) {
                IP = words.at(at + 1);
                sawInet = true;
            }
        } else if (piece.contains(QLatin1String("Link")) && i + 2 < pieces.size()) {
            signal_strength = firstNumber(pieces.at(i + 1));
            signal_total = firstNumber(pieces.at(i + 2));
        }
    }
    // The radio told us where it is, but no address came with it: not joined.
    if (sawEssid && !sawInet)
        IP.clear();
    currentWifiState = stateFor(SSID, IP, signal_strength, signal_total);
    emit updateWifiState(currentWifiState);
    if (connection_changed) {
        QTimer::singleShot(kAfterChangeMs, this, &Wifi::getInfo);
        QTimer::singleShot(kRescanAfterChangeMs, this, &Wifi::scanNetworks);
    }
    if (SSID != QLatin1String("off"))
        getInfoIn(kPollMs);
    else
        timer->stop();
}

// ---- Joining ----------------------------------------------------------------

void Wifi::password(QString ssid, QString pass, QString index)
{
    timer->stop();
    new_ssid = ssid;
    new_pass = pass;
    networkIndex = index;
    retry_count = 0;
    addNetwork();
}

void Wifi::addNetwork()
{
    // Name and password go as arguments of their own: no shell ever sees them.
    queue(add_network, "wifi_addnetwork.sh", {new_ssid, new_pass}, kScriptTimeoutMs);
}

void Wifi::finished_password(QString output)
{
    const bool failure = output.contains(QLatin1String("failure"), Qt::CaseInsensitive);
    if (failure && retry_count < kAddRetries) {
        ++retry_count;
        add_network = false;
        addNetwork();
        return;
    }
    if (failure) {
        qInfo() << "Wi-Fi: giving up on" << new_ssid << "after" << retry_count + 1 << "attempts";
        reset_connection();
        add_network = false;
        finished_connection(output);
        return;
    }
    add_network = false;
    emit password_calculated();
}

void Wifi::connect()
{
    if (connect_network)
        return;
    timer->stop();
    disconnect_network = scan_networks = wifi_info = add_network = list_networks = true;
    connect_network = false;
    if (queue(connect_network, "wifi_connect.sh", {}, kConnectTimeoutMs))
        emit wifi_connect();
}

void Wifi::disconnect()
{
    if (disconnect_network)
        return;
    timer->stop();
    connect_network = scan_networks = wifi_info = add_network = list_networks = true;
    disconnect_network = false;
    IP.clear();
    if (queue(disconnect_network, "wifi_disconnect.sh", {}, kScriptTimeoutMs))
        emit wifi_disconnect();
}

void Wifi::clearConnectFlags()
{
    connect_network = disconnect_network = scan_networks = wifi_info = add_network = list_networks = false;
}

void Wifi::finished_connection(QString output)
{
    clearConnectFlags();
    const bool failed = output.contains(QLatin1String("Fail to complete"))
                        || output.contains(QLatin1String("No lease, failing"));
    if (failed) {
        qInfo().noquote() << "Wi-Fi connection failed:" << output.simplified();
        emit connectFailure();
        getInfo();
        return;
    }
    if (output.contains(QLatin1String("SUCCESS"))) {
        connection_changed = true;
        scanNetworks();
    } else {
        getInfo();
    }
    emit wifi_update();
}

// ---- Known networks ------------------------------------------------------------

void Wifi::listNetworks()
{
    queue(list_networks, "wifi_listnetworks.sh", {}, kScriptTimeoutMs);
}

void Wifi::finished_listnetworks(QString output)
{
    list_networks = false;
    emit wifi_list(output);
}

void Wifi::enableNetwork(QString index)
{
    networkIndex = index;
    queue(enable_wifi, "wifi_enablenetwork.sh", {index}, kScriptTimeoutMs);
}

void Wifi::finished_enable(QString output)
{
    enable_wifi = false;
    if (output.contains(QLatin1String("FAIL"))) {
        emit connectFailure();
        return;
    }
    emit network_enabled();
    connect();
}

void Wifi::forgetNetwork(QString index)
{
    queue(forget_wifi, "wifi_forgetNetwork.sh", {index}, kScriptTimeoutMs);
}

void Wifi::wifi_disconnect_forget()
{
    // At shutdown the queue is closed to everything else; this one must still go.
    const bool closed = shutdown;
    shutdown = false;
    queue(disconnect_forget_wifi, "wifi_disconnect_and_forget.sh", {}, kScriptTimeoutMs);
    shutdown = closed;
}

void Wifi::finishedForget(QString output)
{
    Q_UNUSED(output)
    forget_wifi = false;
    disconnect_forget_wifi = false;
    IP.clear();
    currentWifiState = kNotConnected;
    emit updateWifiState(currentWifiState);
    startScan();
}

void Wifi::reset_connection()
{
    reset_wifi = false;
    queue(reset_wifi, "wifi_reset.sh", {}, kScriptTimeoutMs);
}

void Wifi::setShutdown()
{
    shutdown = true;
    timer->stop();
}

// ---- Cable and tether -------------------------------------------------------------

void Wifi::checkWired()
{
    if (shutdown || wiredProcess)
        return;
    wiredProcess = new QProcess(this);
    QObject::connect(wiredProcess, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this,
                     [this](int code, QProcess::ExitStatus) { handleWiredResponse(code); });
    QObject::connect(wiredProcess, &QProcess::errorOccurred, this, [this](QProcess::ProcessError failure) {
        if (failure == QProcess::FailedToStart)
            handleWiredResponse(-1);
    });
    wiredProcess->start(QLatin1String(kSudo), {scriptPath("wired_check.sh")});
    QTimer::singleShot(kWiredTimeoutMs, wiredProcess, [this] {
        if (wiredProcess && wiredProcess->state() != QProcess::NotRunning)
            wiredProcess->kill();
    });
}

void Wifi::handleWiredResponse(int exitCode)
{
    QProcess *finishedProcess = wiredProcess;
    wiredProcess = nullptr;
    const QString answer =
        finishedProcess ? QString::fromLocal8Bit(finishedProcess->readAllStandardOutput()).trimmed() : QString();
    if (finishedProcess)
        finishedProcess->deleteLater();
    const bool wired = exitCode == 0 && answer.startsWith(QLatin1String("wired"));
    if (wired != m_wired) {
        m_wired = wired;
        qInfo() << "Wired link" << (wired ? "up" : "down");
        emit wiredChanged(wired);
    }
}

// ---- Dispatch -----------------------------------------------------------------------

void Wifi::finishedProcess(QString program, QString output, QStringList arguments)
{
    if (program != QLatin1String(kSudo) || arguments.isEmpty())
        return;
    const QString script = scriptName(arguments.first());
    qDebug().noquote() << "Wi-Fi script" << script << "printed:" << output;
    if (script == QLatin1String("wifi_info.sh")) {
        wifi_info = false;
        processInfo(output);
    } else if (script == QLatin1String("wifi_scan.sh")) {
        finishScanNetworks(output);
    } else if (script == QLatin1String("wifi_connect.sh") || script == QLatin1String("wifi_disconnect.sh")) {
        finished_connection(output);
    } else if (script == QLatin1String("wifi_addnetwork.sh")) {
        finished_password(output);
    } else if (script == QLatin1String("wifi_listnetworks.sh")) {
        finished_listnetworks(output);
    } else if (script == QLatin1String("wifi_enablenetwork.sh")) {
        finished_enable(output);
    } else if (script == QLatin1String("wifi_forgetNetwork.sh")
               || script == QLatin1String("wifi_disconnect_and_forget.sh")) {
        finishedForget(output);
    } else if (script == QLatin1String("wifi_first_start.sh")) {
        first_start = false;
    } else if (script == QLatin1String("wifi_reset.sh")) {
        reset_wifi = false;
    }
}
