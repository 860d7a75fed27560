#pragma once

#include <QObject>
#include <QStringList>
#include <QUrl>

#include "wcwebapi.h"

class QTimer;

template <typename T>
class Singleton;

// The WinCan Web service as the network storage sees it: a login, a list of
// project names, and the upload of an exported project. An upload that makes no
// progress between two ticks of its timer is abandoned.
class WCWClient : public QObject
{
    Q_OBJECT
public:
    static constexpr int kStallIntervalMs = 120000;
    // What upload() returns for a project that was never exported.
    static constexpr int kNotExported = -2;

    static WCWClient *instance(QObject *parent = nullptr);

    void setServer(const QUrl &server);
    bool isLoggedIn() const;
    bool isCopyActive() const { return copyActive; }

public slots:
    void loginToWeb(QString user, QString password);
    void logout();
    void loadProjects();
    int upload(QString path);
    void download(QString project, QString path);
    void cancelCopy();
    // The stall timer's tick.
    void checkProgress();

signals:
    void loggedin();
    void newpaths(bool ok, QStringList names);
    void done();
    void quitclicked();

private slots:
    void handleLoginStatus();
    void onProjectInfoReceived(QList<WinCan::Web::CProjectInfo> projects);
    void handleUploadProgress(quint32 id, int percent);
    void handleUploadError(quint32 id, WinCan::Web::CWinCanWebApi::UploadError error);
    void handleDownloadError(quint32 id, WinCan::Web::CWinCanWebApi::DownloadError error);
    void onUploadFinished(quint32 id);

private:
    friend class Singleton<WCWClient>;
    explicit WCWClient(QObject *parent);
    void endCopy(bool ok);

    WinCan::Web::CWinCanWebApi *m_WebApi = nullptr;
    QList<WinCan::Web::CProjectInfo> m_Projects;
    QString m_ProjectPath;
    QString m_ProjectName;
    bool loginStatus = false;
    bool copyActive = false;
    int currentProgress = 0;
    int lastProgress = 0;
    QTimer *timeoutTimer = nullptr;
};
