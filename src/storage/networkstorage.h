#pragma once

#include "storage/cloudindex.h"
#include "storage/ftplisting.h"
#include "storage/storagebase.h"

#include <QProcess>
#include <QStringList>

class FTPClient;
class WCWClient;
class ProcessController;

template <typename T>
class Singleton;

// The FTP cloud site as one more storage item, "Cloud". A scan lists the site's
// project tree through the unit's FTP scripts, keeps it in the cloud index and
// mounts the item; copies to and from it run through FTPClient.
class NetworkStorage : public StorageBase
{
    Q_OBJECT
public:
    enum CloudState {
        kconnectionstart = 0,
        kconnectionsuccess = 1,
        kconnectionfailure = 2,
        kcopystart = 3,
        kcopycancel = 4,
        kcopysuccess = 5,
        kcopyfailure = 6,
    };
    Q_ENUM(CloudState)

    // The time limit the script queue gives each FTP script.
    static constexpr int kScriptTimeoutMs = 30000;
    // What a finished copy reports through copyDone.
    static constexpr int kCopyDoneCode = 33;

    static NetworkStorage *instance(QObject *parent = nullptr);

    static QString filterPath(const QString &path, bool keepBelow);
    // True for a project path on the mounted cloud site.
    bool isCloudPath(const QString &path) const;
    bool isWinCanWeb() const { return m_wincanweb; }
    // The WinCan Web service in place of the FTP site, at the address the console
    // is set to; kept in the settings.
    void setWinCanWeb(bool on);
    QString winCanWebHost() const { return WCWhost; }
    QStringList indexedPaths() const { return m_index.paths(); }
    QString host() const { return m_host; }
    QString username() const { return m_username; }

    void writeSettings();
    void readSettings();

public slots:
    void networkScan(QString host, QString user, QString password);
    void autoScan();
    void downloadFiles(QString src, QString dest);
    void uploadFiles(QString src, QString dest);
    void cancelCopy();
    // Wi-Fi state 0 to 4, from "No Wifi Dongle" to "Full Wifi Signal".
    void setWifiState(int state);

signals:
    void success();
    void failure();
    void scanfinished();
    void update(QString host, QString user, QString password);
    void copyStarted();
    void copyAborted(int code);
    void copyDone(int code, QProcess::ExitStatus status);

private slots:
    void finishedProcess(QString cmd, QString output, QStringList args);
    void copyFinished();
    void copyQuit();
    void wcwLoggedIn();
    void wcwPaths(bool ok, QStringList names);

private:
    friend class Singleton<NetworkStorage>;
    explicit NetworkStorage(QObject *parent);

    // A fresh index from the service in use, as the settings say.
    void scan();
    void performScan(const QString &path);
    void performFullScan(const QString &path);
    void queueScript(const QString &script, const QString &path);
    void initPaths(const QString &output);
    void updateNetworkPaths(const QString &path, int depth);
    void mountCloud();
    void unmountCloud();
    int serverSlot() const;
    QString serverRoot() const;
    QString remoteFolder(const QString &cloudPath) const;
    void preparePaths();
    void prepareDownload(const QString &output);
    void processDownloadFiles();
    void findPaths(const QString &source);
    void prepareUpload();
    void processPrepareUpload(const QString &output);
    void processUploadFiles();
    void indexUploaded();
    void updateWirelessLog(CloudState state);
    int wifiState() const;
    static int wifiStateFromRoute();

    FTPClient *m_ftp = nullptr;
    WCWClient *m_wcw = nullptr;
    QString WCWhost;
    bool m_wincanweb = false;
    ProcessController *process = nullptr;
    CloudIndex m_index;
    QString m_host;
    QString m_username;
    QString m_password;
    QString src;
    QString dest;
    QList<FtpListing::Entry> copyPaths;
    QStringList m_uploadDirs;
    int copyIndex = -1;
    volatile int directoriesMade = 0;
    volatile int directoriesToBeMade = 0;
    volatile int directoriesAttempted = 0;
    volatile bool requestcancel = false;
    bool m_copying = false;
    bool m_preparingDownload = false;
    // -1 until the Wi-Fi link reports.
    int m_wifiState = -1;
};
