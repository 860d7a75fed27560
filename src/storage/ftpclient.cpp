#include "storage/ftpclient.h"

#include "core/singleton.h"

#include <QAuthenticator>
#include <QDebug>
#include <QFile>
#include <QNetworkAccessManager>
#include <QNetworkReply>
#include <QNetworkRequest>
#include <QTimer>
#include <QUrl>

FTPClient::FTPClient(QObject *parent) : QObject(parent)
{
    m_manager = new QNetworkAccessManager(this);
    connect(m_manager, &QNetworkAccessManager::authenticationRequired, this,
            &FTPClient::slotAuthenticationRequired);
    connect(m_manager, &QNetworkAccessManager::sslErrors, this, &FTPClient::sslErrors);
    m_stallTimer = new QTimer(this);
    m_stallTimer->setInterval(kStallIntervalMs);
    connect(m_stallTimer, &QTimer::timeout, this, &FTPClient::checkProgress);
}

FTPClient *FTPClient::instance(QObject *parent)
{
    static FTPClient *theInstance = nullptr;
    return Singleton<FTPClient>::instance(theInstance, parent);
}

void FTPClient::setCredentials(const QString &user, const QString &password)
{
    m_user = user;
    m_password = password;
}

void FTPClient::clearFiles()
{
    m_files.clear();
}

void FTPClient::addFile(const QString &relativeName)
{
    m_files << relativeName;
}

bool FTPClient::isStallTimerRunning() const
{
    return m_stallTimer->isActive();
}

QUrl FTPClient::urlOf(const QString &cloudPath)
{
    const int slash = cloudPath.indexOf(QLatin1Char('/'));
    QUrl url;
    url.setScheme(QStringLiteral("ftp"));
    url.setAuthority(slash < 0 ? cloudPath : cloudPath.left(slash));
    url.setPath(slash < 0 ? QStringLiteral("/") : cloudPath.mid(slash), QUrl::DecodedMode);
    return url;
}

// The network layer names the URL it failed on, and a URL may carry the password.
QString FTPClient::withoutPassword(const QString &text) const
{
    if (m_password.isEmpty())
        return text;
    QString clean = text;
    clean.replace(m_password, QStringLiteral("****"));
    return clean.replace(QString::fromUtf8(QUrl::toPercentEncoding(m_password)), QStringLiteral("****"));
}

void FTPClient::startDownload(QString remoteDir, QString localDir)
{
    if (m_active) {
        qWarning() << "ftp client already active";
        return;
    }
    m_active = true;
    m_downloading = true;
    m_remoteDir = remoteDir;
    m_localDir = localDir;
    m_index = -1;
    continueDownload();
}

void FTPClient::startUpload(QString localDir, QString remoteDir)
{
    if (m_active) {
        qWarning() << "ftp client already active";
        return;
    }
    m_active = true;
    m_downloading = false;
    m_remoteDir = remoteDir;
    m_localDir = localDir;
    m_index = -1;
    continueUpload();
}

void FTPClient::continueDownload()
{
    m_stallTimer->stop();
    if (!m_active) {
        emit quitclicked();
        return;
    }
    if (++m_index < m_files.size()) {
        startFile();
        const QString name = m_files.at(m_index);
        downloadFile(m_remoteDir + QLatin1Char('/') + name, m_localDir + QLatin1Char('/') + name);
        return;
    }
    m_active = false;
    qInfo() << "Finished Downloading All Files";
    emit downloadfinished();
    emit done();
}

void FTPClient::continueUpload()
{
    m_stallTimer->stop();
    if (!m_active) {
        qInfo() << "Cancelled Uploading All Files";
        emit quitclicked();
        return;
    }
    if (++m_index < m_files.size()) {
        startFile();
        const QString name = m_files.at(m_index);
        uploadFile(m_localDir + QLatin1Char('/') + name, m_remoteDir + QLatin1Char('/') + name);
        return;
    }
    m_active = false;
    qInfo() << "Finished Uploading All Files";
    emit done();
}

void FTPClient::startFile()
{
    m_currentProgress = 0;
    m_lastProgress = 0;
    m_stallTimer->start();
}

void FTPClient::downloadFile(const QString &remotePath, const QString &localPath)
{
    if (QFile::exists(localPath))
        QFile::remove(localPath);
    m_file = new QFile(localPath, this);
    if (!m_file->open(QIODevice::WriteOnly)) {
        fail(QStringLiteral("Download failed: cannot write ") + localPath);
        return;
    }
    qInfo().noquote() << "Downloading" << remotePath << "to" << localPath;
    m_reply = m_manager->get(QNetworkRequest(urlOf(remotePath)));
    connect(m_reply, &QIODevice::readyRead, this, &FTPClient::httpReadyRead);
    connect(m_reply, &QNetworkReply::downloadProgress, this, &FTPClient::updateProgress);
    connect(m_reply, &QNetworkReply::finished, this, &FTPClient::httpFinished);
}

void FTPClient::uploadFile(const QString &localPath, const QString &remotePath)
{
    m_file = new QFile(localPath, this);
    if (!m_file->open(QIODevice::ReadOnly)) {
        qWarning() << "QFile Error: File not found!" << localPath;
        fail(QStringLiteral("Upload failed: cannot read ") + localPath);
        return;
    }
    qInfo().noquote() << "Uploading" << localPath << "to" << remotePath;
    m_reply = m_manager->put(QNetworkRequest(urlOf(remotePath)), m_file);
    connect(m_reply, &QNetworkReply::uploadProgress, this, &FTPClient::updateProgress);
    connect(m_reply, &QNetworkReply::finished, this, &FTPClient::httpUploadFinished);
}

void FTPClient::httpReadyRead()
{
    if (m_reply && m_file)
        m_file->write(m_reply->readAll());
}

void FTPClient::httpFinished()
{
    QNetworkReply *reply = m_reply;
    m_reply = nullptr;
    reply->deleteLater();
    if (reply->error() != QNetworkReply::NoError) {
        // What was written of a failed file is not the file.
        if (m_file)
            m_file->remove();
        fail(QStringLiteral("Download failed: ") + withoutPassword(reply->errorString()));
        return;
    }
    if (m_file)
        m_file->write(reply->readAll());
    closeFile();
    continueDownload();
}

void FTPClient::httpUploadFinished()
{
    QNetworkReply *reply = m_reply;
    m_reply = nullptr;
    reply->deleteLater();
    if (reply->error() != QNetworkReply::NoError) {
        fail(QStringLiteral("Upload failed: ") + withoutPassword(reply->errorString()));
        return;
    }
    closeFile();
    continueUpload();
}

void FTPClient::fail(const QString &what)
{
    qWarning().noquote() << what;
    closeFile();
    m_stallTimer->stop();
    m_active = false;
    emit quitclicked();
}

void FTPClient::closeFile()
{
    if (!m_file)
        return;
    m_file->close();
    m_file->deleteLater();
    m_file = nullptr;
}

void FTPClient::updateProgress(qint64 bytes, qint64 total)
{
    Q_UNUSED(total)
    m_currentProgress = bytes;
}

// Compared with what the previous tick saw, not with the previous progress
// report: a transfer that moved once and then froze must be caught too.
void FTPClient::checkProgress()
{
    if (!m_active)
        return;
    if (m_currentProgress == m_lastProgress) {
        qWarning() << "Copy Aborted: no progress for" << kStallIntervalMs / 1000 << "s";
        cancelCopy();
        return;
    }
    m_lastProgress = m_currentProgress;
}

void FTPClient::cancelCopy()
{
    if (!m_active)
        return;
    m_active = false;
    m_stallTimer->stop();
    if (m_reply) {
        // The reply ends with an error, and its finished handler quits the copy.
        m_reply->abort();
        return;
    }
    emit quitclicked();
}

void FTPClient::slotAuthenticationRequired(QNetworkReply *reply, QAuthenticator *authenticator)
{
    Q_UNUSED(reply)
    authenticator->setUser(m_user);
    authenticator->setPassword(m_password);
}

void FTPClient::sslErrors(QNetworkReply *reply, const QList<QSslError> &errors)
{
    Q_UNUSED(reply)
    qWarning() << "FTP transfer met" << errors.size() << "SSL error(s); the copy will fail";
}
