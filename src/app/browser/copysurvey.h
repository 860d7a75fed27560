#pragma once

#include <QObject>
#include <QMessageBox>
#include <QProcess>

class NetworkStorage;
class QFrame;
class QProgressDialog;
class QWidget;

// Carries out one copy of a site or survey directory between two storage
// devices while a progress dialog holds the screen. The constructor runs the
// whole copy and returns when it is over; the operator is told how it ended.
class CopySurvey : public QObject
{
    Q_OBJECT
public:
    CopySurvey(const QString &source, const QString &destination, QWidget *parent);

    bool succeeded() const { return m_succeeded; }
    // The percent the copy script last reported.
    int progress() const;

signals:
    void startdownload(QString source, QString destination);
    void startupload(QString source, QString destination);

private slots:
    void handleStarted();
    void handleStartDialog();
    void handleNetworkDone(int code, QProcess::ExitStatus status);
    void handleErrorDialog(int code);
    void handleFinished(int code, QProcess::ExitStatus status);
    void handleError(QProcess::ProcessError error);
    void readProgress();

private:
    void Copy(const QString &source, const QString &destination);
    // To or from the cloud site, through the network storage.
    void Transfer(bool upload, const QString &source, const QString &destination);
    void closeProgress();
    void tellOperator(bool ok);
    void showResult(bool ok, QMessageBox::Icon icon, const QString &text, const QString &informative);

    QWidget *m_parent = nullptr;
    QProcess *m_process = nullptr;
    bool m_running = false;
    bool m_succeeded = false;
    bool m_told = false;
    QProgressDialog *m_progress = nullptr;
    QFrame *m_frame = nullptr;
    NetworkStorage *m_cloud = nullptr;
};
