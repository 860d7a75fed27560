#pragma once

#include <QObject>
#include <QStringList>

class QAuthenticator;
class QFile;
class QNetworkAccessManager;
class QNetworkReply;
class QSslError;
class QTimer;
class QUrl;

template <typename T>
class Singleton;

// Carries a list of files to or from the FTP cloud site, one file at a time,
// over ftp:// URLs. A file that makes no progress between two ticks of the stall
// timer is abandoned and the whole copy with it.
class FTPClient : public QObject
{
    Q_OBJECT
public:
    static constexpr int kStallIntervalMs = 120000;

    static FTPClient *instance(QObject *parent = nullptr);

    void setCredentials(const QString &user, const QString &password);
    // Names relative to the folders given to startDownload/startUpload.
    void clearFiles();
    void addFile(const QString &relativeName);
    QStringList files() const { return m_files; }
    bool isActive() const { return m_active; }
    bool isStallTimerRunning() const;

    // Turns a cloud path "host[:port]/folder/file" into its ftp:// URL, without credentials.
    static QUrl urlOf(const QString &cloudPath);
    // A text from the network layer with the password blotted out.
    QString withoutPassword(const QString &text) const;

public slots:
    void startDownload(QString remoteDir, QString localDir);
    void startUpload(QString localDir, QString remoteDir);
    void cancelCopy();
    // The stall timer's tick.
    void checkProgress();

signals:
    void done();
    void quitclicked();
    void downloadfinished();

private slots:
    void httpReadyRead();
    void httpFinished();
    void httpUploadFinished();
    void updateProgress(qint64 bytes, qint64 total);
    void slotAuthenticationRequired(QNetworkReply *reply, QAuthenticator *authenticator);
    void sslErrors(QNetworkReply *reply, const QList<QSslError> &errors);

private:
    friend class Singleton<FTPClient>;
    explicit FTPClient(QObject *parent);

    void continueDownload();
    void continueUpload();
    void downloadFile(const QString &remotePath, const QString &localPath);
    void uploadFile(const QString &localPath, const QString &remotePath);
    void startFile();
    void watch(QNetworkReply *reply);
    void fail(const QString &what);
    void closeFile();

    QNetworkAccessManager *m_manager = nullptr;
    QTimer *m_stallTimer = nullptr;
    QNetworkReply *m_reply = nullptr;
    QFile *m_file = nullptr;
    QString m_user;
    QString m_password;
    QStringList m_files;
    QString m_remoteDir;
    QString m_localDir;
    int m_index = -1;
    bool m_active = false;
    bool m_downloading = false;
    qint64 m_currentProgress = 0;
    qint64 m_lastProgress = 0;
};
