#pragma once

#include "projectinfo.h"

#include <QList>
#include <QObject>
#include <QStringList>
#include <QUrl>

class QJsonObject;
class QNetworkAccessManager;
class QNetworkReply;

namespace WinCan {
namespace Web {

// Our client of the WinCan Web service, speaking the small HTTP and JSON
// protocol described in README.md. Every request has a time limit, so a server
// that answers nothing ends in an error, never in a wait.
class CWinCanWebApi : public QObject
{
    Q_OBJECT
public:
    enum LoginStatus { kLoggedIn = 0, kLoggedOut = 1, kLoginFailed = 2, kLoggingIn = 3 };
    Q_ENUM(LoginStatus)
    enum UploadError { NoUploadError, NotLoggedIn, FileError, ServerRefused, BadAnswer, NoAnswer };
    Q_ENUM(UploadError)
    enum DownloadError { NoDownloadError, DownloadNotOffered, DownloadNotLoggedIn, DownloadBadAnswer, DownloadNoAnswer };
    Q_ENUM(DownloadError)

    static constexpr int kDefaultTimeoutMs = 30000;

    explicit CWinCanWebApi(const QUrl &server, QObject *parent = nullptr);

    void setTimeout(int milliseconds) { m_timeoutMs = milliseconds; }
    int loginStatus() const { return m_status; }
    QString currentUser() const { return m_user; }

    void login(const QString &user, const QString &password);
    void logout();
    void requestProjectInfo();
    // Sends every file of the project folder, then marks the project complete.
    quint32 upload(const QString &projectPath);
    quint32 download(const QString &project, const QString &localPath);

    // Readers of the service's answers, whatever bytes arrive.
    // The session token of a login answer; empty when the login was refused or the answer is not one.
    static QByteArray tokenFrom(const QByteArray &body);
    // The named projects of a project list; false when the body is not a project list.
    static bool projectsFrom(const QByteArray &body, QList<CProjectInfo> *projects);
    // The body as a JSON object; false when it is not one.
    static bool objectFrom(const QByteArray &body, QJsonObject *out);

signals:
    void loginStatusChanged();
    void projectInfoReceived(QList<WinCan::Web::CProjectInfo> projects);
    void projectInfoFailed(QString reason);
    void uploadFinished(quint32 id);
    void uploadErrorOccurred(quint32 id, WinCan::Web::CWinCanWebApi::UploadError error);
    void uploadTotalProgressChanged(quint32 id, int percent);
    void downloadFinished(quint32 id);
    void downloadErrorOccurred(quint32 id, WinCan::Web::CWinCanWebApi::DownloadError error);

private:
    QNetworkReply *send(const QByteArray &verb, const QString &path, const QByteArray &body = QByteArray());
    void sendNextFile();
    void finishUpload(UploadError error);
    static bool readJson(QNetworkReply *reply, QJsonObject *out);

    QNetworkAccessManager *m_manager = nullptr;
    QUrl m_server;
    int m_timeoutMs = kDefaultTimeoutMs;
    int m_status = kLoggedOut;
    QString m_user;
    QByteArray m_token;
    quint32 m_nextId = 1;
    // The upload under way.
    quint32 m_uploadId = 0;
    QString m_uploadRoot;
    QString m_uploadProject;
    QStringList m_uploadFiles;
    int m_uploadIndex = 0;
};

} // namespace Web
} // namespace WinCan
