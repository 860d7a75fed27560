#include "wcwebapi.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>

namespace WinCan {
namespace Web {

namespace {
const QString kApi = QStringLiteral("/api/v1");
const QByteArray kJson = "application/json";
} // namespace

CWinCanWebApi::CWinCanWebApi(const QUrl &server, QObject *parent)
    : QObject(parent), m_manager(new QNetworkAccessManager(this)), m_server(server)
{
    qRegisterMetaType<QList<CProjectInfo>>();
    qRegisterMetaType<UploadError>();
    qRegisterMetaType<DownloadError>();
}

QNetworkReply *CWinCanWebApi::send(const QByteArray &verb, const QString &path, const QByteArray &body)
{
    QUrl url = m_server;
    url.setPath(kApi + path, QUrl::DecodedMode);
    QNetworkRequest request(url);
    request.setTransferTimeout(m_timeoutMs);
    request.setHeader(QNetworkRequest::ContentTypeHeader, verb == "PUT" ? QByteArray("application/octet-stream") : kJson);
    if (!m_token.isEmpty())
        request.setRawHeader("Authorization", "Bearer " + m_token);
    return m_manager->sendCustomRequest(request, verb, body);
}

// The answer's JSON object; false for a transport error, an HTTP error or a body
// that is not a JSON object.
bool CWinCanWebApi::readJson(QNetworkReply *reply, QJsonObject *out)
{
    return objectFrom(reply->readAll(), out) && reply->error() == QNetworkReply::NoError;
}

bool CWinCanWebApi::objectFrom(const QByteArray &body, QJsonObject *out)
{
    QJsonParseError parsed;
    const QJsonDocument document = QJsonDocument::fromJson(body, &parsed);
    if (parsed.error != QJsonParseError::NoError || !document.isObject())
        return false;
    *out = document.object();
    return true;
}

QByteArray CWinCanWebApi::tokenFrom(const QByteArray &body)
{
    QJsonObject answer;
    return objectFrom(body, &answer) ? answer.value("token").toString().toUtf8() : QByteArray();
}

bool CWinCanWebApi::projectsFrom(const QByteArray &body, QList<CProjectInfo> *projects)
{
    QJsonObject answer;
    if (!objectFrom(body, &answer) || !answer.value("projects").isArray())
        return false;
    projects->clear();
    for (const QJsonValue &value : answer.value("projects").toArray()) {
        const QJsonObject entry = value.toObject();
        const QString name = entry.value("name").toString();
        if (!name.isEmpty())
            *projects << CProjectInfo{entry.value("id").toString(), name, entry.value("files").toInt()};
    }
    return true;
}

void CWinCanWebApi::login(const QString &user, const QString &password)
{
    m_token.clear();
    m_user.clear();
    m_status = kLoggingIn;
    const QByteArray body = QJsonDocument(QJsonObject{{"user", user}, {"password", password}}).toJson(QJsonDocument::Compact);
    QNetworkReply *reply = send("POST", QStringLiteral("/login"), body);
    connect(reply, &QNetworkReply::finished, this, [this, reply, user]() {
        reply->deleteLater();
        const QByteArray body = reply->readAll();
        const QByteArray token = reply->error() == QNetworkReply::NoError ? tokenFrom(body) : QByteArray();
        m_status = token.isEmpty() ? kLoginFailed : kLoggedIn;
        if (!token.isEmpty()) {
            m_token = token;
            m_user = user;
        }
        emit loginStatusChanged();
    });
}

void CWinCanWebApi::logout()
{
    if (m_status == kLoggedIn) {
        QNetworkReply *reply = send("POST", QStringLiteral("/logout"));
        connect(reply, &QNetworkReply::finished, reply, &QObject::deleteLater);
    }
    m_token.clear();
    m_user.clear();
    m_status = kLoggedOut;
}

void CWinCanWebApi::requestProjectInfo()
{
    QNetworkReply *reply = send("GET", QStringLiteral("/projects"));
    connect(reply, &QNetworkReply::finished, this, [this, reply]() {
        reply->deleteLater();
        QList<CProjectInfo> projects;
        if (reply->error() != QNetworkReply::NoError || !projectsFrom(reply->readAll(), &projects)) {
            emit projectInfoFailed(reply->error() == QNetworkReply::NoError ? QStringLiteral("unreadable answer")
                                                                            : reply->errorString());
            return;
        }
        emit projectInfoReceived(projects);
    });
}

quint32 CWinCanWebApi::upload(const QString &projectPath)
{
    const quint32 id = m_nextId++;
    if (m_uploadId != 0) {
        emit uploadErrorOccurred(id, ServerRefused);
        return id;
    }
    m_uploadId = id;
    m_uploadRoot = QDir(projectPath).absolutePath();
    m_uploadProject = QDir(projectPath).dirName();
    m_uploadFiles.clear();
    m_uploadIndex = 0;
    QDirIterator it(m_uploadRoot, QDir::Files | QDir::Hidden, QDirIterator::Subdirectories);
    while (it.hasNext())
        m_uploadFiles << it.next().mid(m_uploadRoot.size() + 1);
    m_uploadFiles.sort();
    if (m_status != kLoggedIn) {
        finishUpload(NotLoggedIn);
        return id;
    }
    sendNextFile();
    return id;
}

void CWinCanWebApi::sendNextFile()
{
    const bool allSent = m_uploadIndex >= m_uploadFiles.size();
    QByteArray content;
    QString path = QStringLiteral("/projects/%1/complete").arg(m_uploadProject);
    if (!allSent) {
        const QString name = m_uploadFiles.at(m_uploadIndex);
        QFile file(m_uploadRoot + QLatin1Char('/') + name);
        if (!file.open(QIODevice::ReadOnly)) {
            finishUpload(FileError);
            return;
        }
        content = file.readAll();
        path = QStringLiteral("/projects/%1/files/%2").arg(m_uploadProject, name);
    }
    QNetworkReply *reply = send(allSent ? "POST" : "PUT", path, content);
    connect(reply, &QNetworkReply::finished, this, [this, reply, allSent]() {
        reply->deleteLater();
        QJsonObject answer;
        if (!readJson(reply, &answer)) {
            const bool silent = reply->error() == QNetworkReply::OperationCanceledError
                || reply->error() == QNetworkReply::TimeoutError || reply->error() == QNetworkReply::RemoteHostClosedError
                || reply->error() == QNetworkReply::ConnectionRefusedError;
            const bool refused = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt() >= 400;
            finishUpload(silent ? NoAnswer : refused ? ServerRefused : BadAnswer);
            return;
        }
        if (allSent) {
            finishUpload(NoUploadError);
            return;
        }
        ++m_uploadIndex;
        emit uploadTotalProgressChanged(m_uploadId, m_uploadIndex * 100 / qMax(1, m_uploadFiles.size()));
        sendNextFile();
    });
}

void CWinCanWebApi::finishUpload(UploadError error)
{
    const quint32 id = m_uploadId;
    m_uploadId = 0;
    if (error == NoUploadError)
        emit uploadFinished(id);
    else
        emit uploadErrorOccurred(id, error);
}

quint32 CWinCanWebApi::download(const QString &project, const QString &localPath)
{
    Q_UNUSED(localPath)
    const quint32 id = m_nextId++;
    QNetworkReply *reply = send("GET", QStringLiteral("/projects/%1/download").arg(project));
    connect(reply, &QNetworkReply::finished, this, [this, reply, id]() {
        reply->deleteLater();
        const int status = reply->attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt();
        if (status == 401)
            emit downloadErrorOccurred(id, DownloadNotLoggedIn);
        else if (status == 501)
            emit downloadErrorOccurred(id, DownloadNotOffered);
        else if (status == 0)
            emit downloadErrorOccurred(id, DownloadNoAnswer);
        else
            emit downloadErrorOccurred(id, DownloadBadAnswer);
    });
    return id;
}

} // namespace Web
} // namespace WinCan
