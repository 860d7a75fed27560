#include "storage/wcwclient.h"

#include "core/singleton.h"

#include <QDebug>
#include <QDir>
#include <QMetaEnum>
#include <QTimer>

using WinCan::Web::CProjectInfo;
using WinCan::Web::CWinCanWebApi;

namespace {
template <typename E>
QString getEnumKey(E value)
{
    return QString::fromLatin1(QMetaEnum::fromType<E>().valueToKey(int(value)));
}
} // namespace

WCWClient::WCWClient(QObject *parent) : QObject(parent)
{
    timeoutTimer = new QTimer(this);
    timeoutTimer->setInterval(kStallIntervalMs);
    connect(timeoutTimer, &QTimer::timeout, this, &WCWClient::checkProgress);
}

WCWClient *WCWClient::instance(QObject *parent)
{
    static WCWClient *theInstance = nullptr;
    return Singleton<WCWClient>::instance(theInstance, parent);
}

void WCWClient::setServer(const QUrl &server)
{
    if (m_WebApi)
        m_WebApi->deleteLater();
    m_WebApi = new CWinCanWebApi(server, this);
    connect(m_WebApi, &CWinCanWebApi::loginStatusChanged, this, &WCWClient::handleLoginStatus);
    connect(m_WebApi, &CWinCanWebApi::projectInfoReceived, this, &WCWClient::onProjectInfoReceived);
    connect(m_WebApi, &CWinCanWebApi::projectInfoFailed, this, [this](const QString &reason) {
        qWarning().noquote() << "WinCan Web projects not loaded:" << reason;
        emit newpaths(false, QStringList());
    });
    connect(m_WebApi, &CWinCanWebApi::uploadFinished, this, &WCWClient::onUploadFinished);
    connect(m_WebApi, &CWinCanWebApi::uploadErrorOccurred, this, &WCWClient::handleUploadError);
    connect(m_WebApi, &CWinCanWebApi::uploadTotalProgressChanged, this, &WCWClient::handleUploadProgress);
    connect(m_WebApi, &CWinCanWebApi::downloadErrorOccurred, this, &WCWClient::handleDownloadError);
    loginStatus = false;
}

bool WCWClient::isLoggedIn() const
{
    return m_WebApi && m_WebApi->loginStatus() == CWinCanWebApi::kLoggedIn;
}

void WCWClient::loginToWeb(QString user, QString password)
{
    if (!m_WebApi) {
        qWarning() << "WinCan Web server not set";
        emit loggedin();
        return;
    }
    if (isLoggedIn() && m_WebApi->currentUser() == user) {
        qInfo() << "do not log in again";
        emit loggedin();
        return;
    }
    logout();
    m_WebApi->login(user, password);
}

void WCWClient::logout()
{
    if (m_WebApi)
        m_WebApi->logout();
    loginStatus = false;
}

void WCWClient::handleLoginStatus()
{
    qInfo() << "Login Status Changed";
    loginStatus = isLoggedIn();
    emit loggedin();
}

void WCWClient::loadProjects()
{
    if (!isLoggedIn()) {
        emit newpaths(false, QStringList());
        return;
    }
    m_WebApi->requestProjectInfo();
}

void WCWClient::onProjectInfoReceived(QList<CProjectInfo> projects)
{
    m_Projects = projects;
    QStringList names;
    for (const CProjectInfo &project : projects)
        names << project.name;
    emit newpaths(true, names);
}

int WCWClient::upload(QString path)
{
    currentProgress = 0;
    lastProgress = 0;
    copyActive = false;
    m_ProjectPath = path;
    m_ProjectName = path.section(QLatin1Char('/'), -1);
    if (path.isEmpty() || !m_WebApi) {
        qWarning() << "Incorrect project to upload path.";
        return -1;
    }
    // The service reads the project's exchange file: a project never exported has none.
    if (QDir(path).entryList({QStringLiteral("*.xml")}, QDir::Files).isEmpty())
        return kNotExported;
    copyActive = true;
    m_WebApi->upload(path);
    timeoutTimer->start();
    return 0;
}

void WCWClient::download(QString project, QString path)
{
    if (m_Projects.isEmpty()) {
        qWarning() << "Projects not loaded.";
        return;
    }
    if (path.isEmpty()) {
        qWarning() << "Incorrect download path.";
        return;
    }
    qInfo() << "Downloading...";
    m_WebApi->download(project, path);
}

void WCWClient::handleUploadProgress(quint32 id, int percent)
{
    Q_UNUSED(id)
    currentProgress = percent;
    qInfo().noquote() << "Progress:\t" + QString::number(percent) + "%";
}

void WCWClient::checkProgress()
{
    if (!copyActive)
        return;
    if (currentProgress == lastProgress) {
        qWarning() << "Copy Aborted";
        cancelCopy();
        return;
    }
    lastProgress = currentProgress;
}

void WCWClient::cancelCopy()
{
    if (copyActive)
        endCopy(false);
}

void WCWClient::onUploadFinished(quint32 id)
{
    Q_UNUSED(id)
    if (copyActive)
        endCopy(true);
}

void WCWClient::handleUploadError(quint32 id, CWinCanWebApi::UploadError error)
{
    Q_UNUSED(id)
    qWarning().noquote() << "Upload failed. Error: " + getEnumKey(error);
    if (copyActive)
        endCopy(false);
}

void WCWClient::handleDownloadError(quint32 id, CWinCanWebApi::DownloadError error)
{
    Q_UNUSED(id)
    qWarning().noquote() << "Download failed. Error: " + getEnumKey(error);
    emit quitclicked();
}

void WCWClient::endCopy(bool ok)
{
    copyActive = false;
    timeoutTimer->stop();
    if (ok)
        emit done();
    else
        emit quitclicked();
}
