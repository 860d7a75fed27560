#pragma once

#include <QObject>
#include <QString>
#include <QStringList>

template <typename T>
class Singleton;
class ProcessController;
class QProcess;
class QTimer;

// The unit's wireless link, kept by running the Wi-Fi scripts one at a time in
// the script queue and reading what they print. Each kind of script runs at most
// once at a time; a busy flag per kind keeps repeats out of the queue.
class Wifi : public QObject
{
    Q_OBJECT
public:
    enum State { kNotConnected = 1, kLow = 2, kMedium = 3, kFull = 4 };

    static constexpr int kConnectTimeoutMs = 90000;
    static constexpr int kScanTimeoutMs = 20000;
    static constexpr int kScriptTimeoutMs = 30000;
    static constexpr int kPollMs = 10000;
    // Attempts at adding a network before the radio is reset.
    static constexpr int kAddRetries = 4;

    static Wifi *instance(QObject *parent = nullptr);

    void init();
    QString ssid() const { return SSID; }
    QString ip() const { return IP; }
    int state() const { return currentWifiState; }
    bool isShutdown() const { return shutdown; }
    // The next information poll is waiting.
    bool isPolling() const;
    int pollInterval() const;
    // Signal strength as a state: 1 not connected, then 2, 3, 4 for low, medium, full.
    static int stateFor(const QString &ssid, const QString &ip, int signal, int total);

public slots:
    void startScan();
    void stopScan();
    void scanNetworks();
    void getInfo();
    void password(QString ssid, QString pass, QString index);
    void addNetwork();
    void connect();
    void disconnect();
    void listNetworks();
    void enableNetwork(QString index);
    void forgetNetwork(QString index);
    void wifi_disconnect_forget();
    void reset_connection();
    void setShutdown();
    void checkWired();

    void finishedProcess(QString program, QString output, QStringList arguments);
    void finishScanNetworks(QString output);
    void processInfo(QString output);
    void finished_password(QString output);
    void finished_connection(QString output);
    void finished_listnetworks(QString output);
    void finished_enable(QString output);
    void finishedForget(QString output);
    void handleWiredResponse(int exitCode);

signals:
    void finished();
    void processended();
    void error(QString);
    void wifi_start();
    void wifi_connect();
    void wifi_disconnect();
    void wifi_update();
    void updateWifiList(QString list, QString ssid, bool changed, bool good);
    void updateWifiState(int state);
    void password_calculated();
    void wifi_list(QString list);
    void network_enabled();
    void connectFailure();
    void wiredChanged(bool wired);

private:
    friend class Singleton<Wifi>;
    explicit Wifi(QObject *parent);
    // Queues the script unless its kind is busy or the unit is shutting down.
    bool queue(bool &busy, const char *script, const QStringList &arguments, int timeoutMs);
    void getInfoIn(int ms);
    void clearConnectFlags();
    static QString scriptName(const QString &path);

    int currentWifiState = kNotConnected;
    QString SSID = QStringLiteral("off");
    QString IP;
    int signal_strength = 0;
    int signal_total = 0;
    bool shutdown = false;
    QTimer *timer = nullptr;
    QString new_ssid;
    QString new_pass;
    volatile bool connection_changed = false;
    ProcessController *process = nullptr;
    bool scan_networks = false;
    bool wifi_info = false;
    bool add_network = false;
    bool connect_network = false;
    bool disconnect_network = false;
    bool list_networks = false;
    bool enable_wifi = false;
    bool forget_wifi = false;
    bool reset_wifi = false;
    bool first_start = false;
    int retry_count = 0;
    bool disconnect_forget_wifi = false;
    QString networkIndex;
    QProcess *wiredProcess = nullptr;
    bool m_wired = false;
};
