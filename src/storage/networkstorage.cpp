#include "storage/networkstorage.h"

#include "core/consolesettings.h"
#include "core/processcontroller.h"
#include "core/settingkeys.h"
#include "core/singleton.h"
#include "core/unitpaths.h"
#include "storage/cloudconfig.h"
#include "storage/ftpclient.h"
#include "storage/wcwclient.h"
#include "storage/wirelesslog.h"

#include <QDebug>
#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>

namespace {
const QString kQuickScan = QStringLiteral("ftp_quickscan.sh");
const QString kFullScan = QStringLiteral("ftp_fullscan.sh");
const QString kMakePath = QStringLiteral("ftp_makepath.sh");
const QString kShell = QStringLiteral("/bin/sh");
const QString kMakePathFailed = QStringLiteral("Could not chdir to");
const QString kCloudName = QStringLiteral("Cloud");
const QString kWinCanWebName = QStringLiteral("WinCan Web");
const QString kWinCanWebKey = QStringLiteral("Cloud/WinCanWeb");
const QString kWinCanWebServerKey = QStringLiteral("Cloud/WinCanWebServer");
constexpr int kFullWifi = 4;
constexpr int kNoWifiConnection = 1;
} // namespace

NetworkStorage::NetworkStorage(QObject *parent) : StorageBase(parent)
{
    m_ftp = FTPClient::instance(parent);
    process = ProcessController::instance(parent);
    connect(process, &ProcessController::outputWithArgs, this, &NetworkStorage::finishedProcess);
    connect(m_ftp, &FTPClient::done, this, &NetworkStorage::copyFinished);
    connect(m_ftp, &FTPClient::quitclicked, this, &NetworkStorage::copyQuit);
    m_wcw = WCWClient::instance(parent);
    WCWhost = SettingKeys::value(kWinCanWebServerKey).toString();
    m_wincanweb = SettingKeys::value(kWinCanWebKey).toBool();
    m_wcw->setServer(QUrl(WCWhost));
    connect(m_wcw, &WCWClient::loggedin, this, &NetworkStorage::wcwLoggedIn);
    connect(m_wcw, &WCWClient::newpaths, this, &NetworkStorage::wcwPaths);
    connect(m_wcw, &WCWClient::done, this, &NetworkStorage::copyFinished);
    connect(m_wcw, &WCWClient::quitclicked, this, &NetworkStorage::copyQuit);
    readSettings();
    if (QFile::exists(CloudIndex::fileName()))
        m_index.read();
}

NetworkStorage *NetworkStorage::instance(QObject *parent)
{
    static NetworkStorage *theInstance = nullptr;
    return Singleton<NetworkStorage>::instance(theInstance, parent);
}

// Until the Wi-Fi link reports, a default route on the wireless interface
// stands for a connection; read when asked, since the unit joins a network
// long after the console starts.
int NetworkStorage::wifiState() const
{
    return m_wifiState >= 0 ? m_wifiState : wifiStateFromRoute();
}

int NetworkStorage::wifiStateFromRoute()
{
    QFile route(unitPath(QStringLiteral("/proc/net/route")));
    if (!route.open(QIODevice::ReadOnly))
        return kNoWifiConnection;
    while (!route.atEnd()) {
        const QList<QByteArray> fields = route.readLine().simplified().split(' ');
        if (fields.size() > 1 && fields.at(0) == "wlan0" && fields.at(1) == "00000000")
            return kFullWifi;
    }
    return kNoWifiConnection;
}

void NetworkStorage::setWifiState(int state)
{
    m_wifiState = state;
}

QString NetworkStorage::filterPath(const QString &path, bool keepBelow)
{
    return CloudIndex::filterPath(path, keepBelow);
}

// The other service's item goes, and so does its index: the browser must not
// list one service's projects under the other's name.
void NetworkStorage::setWinCanWeb(bool on)
{
    ConsoleSettings().setValue(kWinCanWebKey, on);
    if (on == m_wincanweb)
        return;
    unmountCloud();
    m_index.reset();
    m_wincanweb = on;
}

int NetworkStorage::serverSlot() const
{
    return m_wincanweb ? kStorageWINCANWEB : kStorageCLOUD;
}

QString NetworkStorage::serverRoot() const
{
    return m_wincanweb ? WCWhost : m_host;
}

bool NetworkStorage::isCloudPath(const QString &path) const
{
    const QString root = StorageBase::instance()->getPath(serverSlot());
    if (root.isEmpty() || !path.startsWith(root + QLatin1Char('/')))
        return false;
    return !filterPath(path, true).isEmpty();
}

void NetworkStorage::readSettings()
{
    CloudConfig config;
    if (!config.read())
        return;
    m_host = config.host;
    m_username = config.username;
    m_password = config.password;
    emit update(m_host, m_username, m_password);
}

void NetworkStorage::writeSettings()
{
    CloudConfig config{m_host, m_username, m_password};
    config.write();
}

void NetworkStorage::networkScan(QString host, QString user, QString password)
{
    // WinCan Web has its fixed address; the FTP site's host stays saved for when
    // the operator switches back.
    if (!m_wincanweb) {
        m_host = host.trimmed();
        // The site is named without a scheme; an operator may type one.
        const int scheme = m_host.indexOf(QStringLiteral("://"));
        if (scheme >= 0)
            m_host = m_host.mid(scheme + 3);
        while (m_host.endsWith(QLatin1Char('/')))
            m_host.chop(1);
    }
    m_username = user;
    m_password = password;
    writeSettings();
    // New settings may name another site: what the old one held goes at once.
    m_index.reset();
    scan();
}

void NetworkStorage::autoScan()
{
    readSettings();
    if ((!m_wincanweb && m_host.isEmpty()) || m_username.isEmpty()) {
        qInfo() << "No cloud site set; no scan";
        return;
    }
    scan();
}

// The index the browser lists stays as it is until the answer replaces it, so
// a site opened while the scan runs is not shown empty.
void NetworkStorage::scan()
{
    if (m_wincanweb) {
        m_wcw->logout();
        m_wcw->loginToWeb(m_username, m_password);
        return;
    }
    performScan(QString());
}

void NetworkStorage::wcwLoggedIn()
{
    if (m_wcw->isLoggedIn())
        performScan(QString());
    else
        wcwPaths(false, QStringList());
}

void NetworkStorage::wcwPaths(bool ok, QStringList names)
{
    m_index.reset();
    if (ok) {
        for (const QString &name : qAsConst(names))
            updateNetworkPaths(QStringLiteral("%1/corvane/%2").arg(WCWhost, name), 1);
        mountCloud();
        updateWirelessLog(kconnectionsuccess);
        emit success();
    } else {
        unmountCloud();
        updateWirelessLog(kconnectionfailure);
        emit failure();
    }
    emit scanfinished();
}

void NetworkStorage::performScan(const QString &path)
{
    if (wifiState() <= kNoWifiConnection) {
        qInfo() << "Can't scan without WiFi!";
        return;
    }
    if (m_wincanweb) {
        updateWirelessLog(kconnectionstart);
        m_wcw->loadProjects();
        return;
    }
    queueScript(kQuickScan, path.isEmpty() ? QLatin1Char('/') + CloudIndex::kProjectFolder : path);
    updateWirelessLog(kconnectionstart);
}

void NetworkStorage::performFullScan(const QString &path)
{
    queueScript(kFullScan, path);
}

void NetworkStorage::queueScript(const QString &script, const QString &path)
{
    process->addProcess(kShell, {unitScriptPath(script), m_host, m_username, m_password, path}, kScriptTimeoutMs);
}

void NetworkStorage::finishedProcess(QString cmd, QString output, QStringList args)
{
    if (cmd != kShell)
        return;
    const QString script = QFileInfo(args.value(0)).fileName();
    if (script == kQuickScan) {
        initPaths(output);
    } else if (script == kFullScan) {
        if (m_preparingDownload)
            prepareDownload(output);
        else
            initPaths(output);
    } else if (script == kMakePath) {
        processPrepareUpload(output);
    }
}

// The site counts as reached when its project folder was listed.
void NetworkStorage::initPaths(const QString &output)
{
    m_index.reset();
    bool found = false;
    for (const FtpListing::Entry &entry : FtpListing::parse(output)) {
        if (!entry.isDir)
            continue;
        const QString below = filterPath(entry.path, true);
        if (below.isEmpty()) {
            found = found || entry.path.split(QLatin1Char('/')).contains(CloudIndex::kProjectFolder);
            continue;
        }
        found = true;
        updateNetworkPaths(m_host + entry.path, below.count(QLatin1Char('/')) + 1);
    }
    if (found) {
        mountCloud();
        updateWirelessLog(kconnectionsuccess);
        emit success();
    } else {
        unmountCloud();
        updateWirelessLog(kconnectionfailure);
        emit failure();
    }
    emit scanfinished();
}

void NetworkStorage::updateNetworkPaths(const QString &path, int depth)
{
    m_index.add(path, depth);
}

void NetworkStorage::mountCloud()
{
    StorageBase *table = StorageBase::instance();
    if (table->getPath(serverSlot()) == serverRoot()) {
        emit table->storage_updated();
        return;
    }
    table->handle_mount(m_wincanweb ? kWinCanWebName : kCloudName, serverRoot());
}

void NetworkStorage::unmountCloud()
{
    StorageBase *table = StorageBase::instance();
    if (!table->getPath(serverSlot()).isEmpty())
        table->handle_unmount(table->getPath(serverSlot()));
}

// "host:port/corvane/Site" -> "/corvane/Site"
QString NetworkStorage::remoteFolder(const QString &cloudPath) const
{
    const int slash = cloudPath.indexOf(QLatin1Char('/'));
    return slash < 0 ? QStringLiteral("/") : cloudPath.mid(slash);
}

void NetworkStorage::downloadFiles(QString source, QString destination)
{
    requestcancel = false;
    if (m_wincanweb) {
        qWarning() << "Download not yet implemented";
        emit copyAborted(-3);
        return;
    }
    m_ftp->setCredentials(m_username, m_password);
    m_ftp->clearFiles();
    if (!m_index.isRead()) {
        qWarning() << "paths list doesn't exist";
        emit copyAborted(-1);
        return;
    }
    src = source;
    dest = destination;
    copyIndex = -1;
    copyPaths.clear();
    m_uploadDirs.clear();
    m_copying = true;
    preparePaths();
    emit copyStarted();
}

void NetworkStorage::preparePaths()
{
    m_preparingDownload = true;
    performFullScan(remoteFolder(src));
}

void NetworkStorage::prepareDownload(const QString &output)
{
    m_preparingDownload = false;
    copyPaths = FtpListing::below(output, remoteFolder(src));
    if (copyPaths.isEmpty() || !QDir().mkpath(dest)) {
        qWarning().noquote() << "Nothing to download from" << src << "into" << dest;
        copyQuit();
        return;
    }
    for (copyIndex = 0; copyIndex < copyPaths.size(); ++copyIndex) {
        const FtpListing::Entry &entry = copyPaths.at(copyIndex);
        const QString local = dest + QLatin1Char('/') + entry.path;
        if (!entry.isDir) {
            m_ftp->addFile(entry.path);
            continue;
        }
        if (QFileInfo(local).isDir())
            continue;
        if (!QDir().mkpath(local)) {
            qWarning().noquote() << "Failed to create path: " + local;
            copyQuit();
            return;
        }
    }
    processDownloadFiles();
}

void NetworkStorage::processDownloadFiles()
{
    if (requestcancel) {
        copyQuit();
        return;
    }
    updateWirelessLog(kcopystart);
    m_ftp->startDownload(src, dest);
}

void NetworkStorage::uploadFiles(QString source, QString destination)
{
    requestcancel = false;
    src = source;
    dest = destination;
    if (m_wincanweb) {
        m_uploadDirs.clear();
        m_copying = true;
        emit copyStarted();
        if (m_wcw->upload(source) < 0) {
            m_copying = false;
            emit copyAborted(-2);
        }
        return;
    }
    m_ftp->setCredentials(m_username, m_password);
    m_ftp->clearFiles();
    m_copying = true;
    findPaths(source);
    directoriesMade = 0;
    directoriesAttempted = 0;
    directoriesToBeMade = m_uploadDirs.size();
    emit copyStarted();
    prepareUpload();
}

void NetworkStorage::findPaths(const QString &source)
{
    m_uploadDirs = QStringList{remoteFolder(dest)};
    QDirIterator it(source, QDir::AllDirs | QDir::Files | QDir::NoDotAndDotDot | QDir::Hidden,
                    QDirIterator::Subdirectories);
    const QString prefix = source + QLatin1Char('/');
    while (it.hasNext()) {
        const QString path = it.next();
        const QString relative = path.mid(prefix.size());
        if (it.fileInfo().isDir())
            m_uploadDirs << remoteFolder(dest) + QLatin1Char('/') + relative;
        else
            m_ftp->addFile(relative);
    }
    // A folder comes before what it holds.
    std::sort(m_uploadDirs.begin(), m_uploadDirs.end());
}

// Folders are made one at a time: the script queue keeps only ten waiting entries.
void NetworkStorage::prepareUpload()
{
    if (requestcancel) {
        copyQuit();
        return;
    }
    const QString next = m_uploadDirs.value(directoriesAttempted);
    queueScript(kMakePath, next);
}

void NetworkStorage::processPrepareUpload(const QString &output)
{
    if (!m_copying)
        return;
    const QString path = m_uploadDirs.value(directoriesAttempted);
    directoriesAttempted = directoriesAttempted + 1;
    if (output.contains(kMakePathFailed) || output.trimmed().isEmpty()) {
        qWarning().noquote() << "Failed to create path: " + path;
        qWarning() << "Failed to make Directory.";
        copyQuit();
        return;
    }
    directoriesMade = directoriesMade + 1;
    if (directoriesAttempted < directoriesToBeMade) {
        prepareUpload();
        return;
    }
    processUploadFiles();
}

void NetworkStorage::processUploadFiles()
{
    if (requestcancel) {
        copyQuit();
        return;
    }
    updateWirelessLog(kcopystart);
    m_ftp->startUpload(src, dest);
}

// What was uploaded is on the site now: the browser lists it without a new scan.
void NetworkStorage::indexUploaded()
{
    if (!m_index.isRead() && QFile::exists(CloudIndex::fileName()))
        m_index.read();
    for (const QString &folder : qAsConst(m_uploadDirs)) {
        const QString below = filterPath(folder, true);
        if (below.isEmpty() || below.count(QLatin1Char('/')) > 1 || m_index.paths().contains(below))
            continue;
        updateNetworkPaths(m_host + folder, below.count(QLatin1Char('/')) + 1);
    }
}

void NetworkStorage::copyFinished()
{
    if (!m_copying)
        return;
    m_copying = false;
    if (!m_uploadDirs.isEmpty() && isCloudPath(dest))
        indexUploaded();
    m_uploadDirs.clear();
    updateWirelessLog(kcopysuccess);
    emit copyDone(kCopyDoneCode, QProcess::NormalExit);
}

void NetworkStorage::copyQuit()
{
    if (!m_copying)
        return;
    m_copying = false;
    m_preparingDownload = false;
    m_uploadDirs.clear();
    updateWirelessLog(kcopyfailure);
    emit copyAborted(-1);
}

void NetworkStorage::cancelCopy()
{
    requestcancel = true;
    updateWirelessLog(kcopycancel);
    if (m_wincanweb)
        m_wcw->cancelCopy();
    else
        m_ftp->cancelCopy();
}

void NetworkStorage::updateWirelessLog(CloudState state)
{
    WirelessLog::append(state, serverRoot(), m_username, wifiState());
}
