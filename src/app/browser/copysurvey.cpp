#include "app/browser/copysurvey.h"

#include "core/unitpaths.h"
#include "storage/networkstorage.h"
#include "widgets/hbimessagebox.h"

#include <QDebug>
#include <QDir>
#include <QFileInfo>
#include <QFrame>
#include <QProgressDialog>

namespace {
const QByteArray kProgressWord = "PROGRESS ";
} // namespace

CopySurvey::CopySurvey(const QString &source, const QString &destination, QWidget *parent)
    : QObject(parent), m_parent(parent)
{
    m_progress = new QProgressDialog(parent, Qt::FramelessWindowHint | Qt::Dialog);
    // Frameless: what the operator must read goes into the label, not the title.
    m_progress->setLabelText(tr("<strong>Copy in Progress...</strong><br>Please do not remove the media"));
    m_progress->setCancelButton(nullptr);
    m_progress->setRange(0, 0);
    m_progress->setAutoClose(false);
    m_progress->setAutoReset(false);
    m_progress->setMinimumDuration(0);
    m_progress->setModal(true);
    m_frame = new QFrame(m_progress);
    m_frame->setFrameShape(QFrame::Box);
    m_frame->setLineWidth(2);
    m_frame->setFocusPolicy(Qt::NoFocus);
    m_frame->setAttribute(Qt::WA_TransparentForMouseEvents);
    m_frame->hide();
    m_cloud = NetworkStorage::instance();
    if (m_cloud->isCloudPath(source))
        Transfer(false, source, destination);
    else if (m_cloud->isCloudPath(destination))
        Transfer(true, source, destination);
    else
        Copy(source, destination);
    delete m_progress;
    m_progress = nullptr;
}

int CopySurvey::progress() const
{
    return m_progress ? m_progress->value() : 100;
}

void CopySurvey::Copy(const QString &source, const QString &destination)
{
    const QString parentFolder = QFileInfo(destination).path();
    if (!QDir().mkpath(parentFolder)) {
        qWarning() << "Cannot make" << parentFolder << "- copy of" << source << "not started";
        tellOperator(false);
        return;
    }
    m_process = new QProcess(this);
    connect(m_process, &QProcess::started, this, &CopySurvey::handleStarted);
    connect(m_process, QOverload<int, QProcess::ExitStatus>::of(&QProcess::finished), this,
            &CopySurvey::handleFinished);
    connect(m_process, &QProcess::errorOccurred, this, &CopySurvey::handleError);
    connect(m_process, &QProcess::readyReadStandardOutput, this, &CopySurvey::readProgress);
    qInfo() << "Copying" << source << "into" << parentFolder;
    m_process->start(QStringLiteral("/bin/sh"), {unitScriptPath(QStringLiteral("copy_file.sh")), source, parentFolder});
    m_process->waitForStarted(-1);
    // The dialog holds the screen until the copy ends: handleFinished closes it.
    if (m_running)
        m_progress->exec();
    if (!m_told && m_process && m_process->state() != QProcess::NotRunning) {
        qWarning() << "Copy dialog closed while the copy still runs; waiting for it";
        m_process->waitForFinished(-1);
    }
}

void CopySurvey::Transfer(bool upload, const QString &source, const QString &destination)
{
    const auto unique = Qt::UniqueConnection;
    QList<QMetaObject::Connection> wires{
        connect(m_cloud, &NetworkStorage::copyStarted, this, &CopySurvey::handleStartDialog, unique),
        connect(m_cloud, &NetworkStorage::copyDone, this, &CopySurvey::handleNetworkDone, unique),
        connect(m_cloud, &NetworkStorage::copyAborted, this, &CopySurvey::handleErrorDialog, unique),
        connect(m_progress, &QProgressDialog::canceled, m_cloud, &NetworkStorage::cancelCopy, unique),
        upload ? connect(this, &CopySurvey::startupload, m_cloud, &NetworkStorage::uploadFiles, unique)
               : connect(this, &CopySurvey::startdownload, m_cloud, &NetworkStorage::downloadFiles, unique)};
    qInfo().noquote() << (upload ? "Uploading" : "Downloading") << source << "to" << destination;
    if (upload)
        emit startupload(source, destination);
    else
        emit startdownload(source, destination);
    // The network side answers through the event loop of the dialog; a copy
    // refused at once has told the operator already.
    if (!m_told)
        m_progress->exec();
    // The network storage outlives this copy: nothing of it may call back here.
    for (const QMetaObject::Connection &wire : qAsConst(wires))
        disconnect(wire);
}

void CopySurvey::handleStartDialog()
{
    m_progress->setLabelText(m_cloud->isWinCanWeb()
                                 ? tr("<p align=' center'><strong>WinCan Web Copy in Progress...</strong></p>"
                                      "<p align='center'>Do Not Remove the WiFi Dongle during Copy!</p>")
                                 : tr("<p align='center'><strong>Copy in Progress...</strong></p>"
                                      "<p align='center'>Do Not Remove the WiFi Dongle during Copy!</p>"));
    m_progress->setCancelButtonText(tr("Cancel"));
    m_running = true;
}

void CopySurvey::handleNetworkDone(int code, QProcess::ExitStatus status)
{
    m_running = false;
    closeProgress();
    if (code != NetworkStorage::kCopyDoneCode || status != QProcess::NormalExit)
        return;
    if (m_cloud->isWinCanWeb())
        showResult(true, QMessageBox::NoIcon, tr("<p align='center'><strong>WinCan Web Copy Success</strong></p>"),
                   tr("<p align='center'>Successfully Copied Project.</p><p align='center'>You will receive an email "
                      "when your project has been processed and is ready to view on the Web.</p>"));
    else
        showResult(true, QMessageBox::NoIcon, tr("<p align='center'><strong>Cloud Copy Success</strong></p>"),
                   tr("<p align='center'>Successfully Copied Survey.</p>"));
}

void CopySurvey::handleErrorDialog(int code)
{
    m_running = false;
    closeProgress();
    qWarning() << "Cloud copy aborted with code" << code;
    const QString wincanFailed = tr("<p align='center'><strong>WinCan Web Copy Failed</strong></p>");
    if (code == -3)
        showResult(false, QMessageBox::Information, wincanFailed,
                   tr("<p align='center'>Downloading WinCan projects is not supported.</p>"));
    else if (code == -2)
        showResult(false, QMessageBox::Warning, wincanFailed,
                   tr("<p align='center'>Please export your WinCan project before uploading.</p>"));
    else
        showResult(false, QMessageBox::Critical,
                   m_cloud->isWinCanWeb() ? wincanFailed : tr("<p align='center'><strong>Cloud Copy Failed</strong></p>"),
                   tr("<p align='center'>Error: Copy Aborted.</p>"));
}

void CopySurvey::handleStarted()
{
    m_running = true;
    m_frame->setGeometry(m_progress->rect());
    m_frame->show();
}

void CopySurvey::readProgress()
{
    while (m_process && m_process->canReadLine()) {
        const QByteArray line = m_process->readLine().trimmed();
        if (!line.startsWith(kProgressWord))
            continue;
        bool ok = false;
        const int percent = line.mid(kProgressWord.size()).toInt(&ok);
        if (!ok)
            continue;
        m_progress->setRange(0, 100);
        m_progress->setValue(qBound(0, percent, 100));
    }
}

void CopySurvey::handleFinished(int code, QProcess::ExitStatus status)
{
    m_running = false;
    readProgress();
    const QByteArray rest = m_process->readAll();
    if (!rest.isEmpty())
        qInfo().noquote() << "Copy script said:" << rest.trimmed();
    const bool ok = status == QProcess::NormalExit && code == 0;
    qInfo() << "Copy ended with code" << code << (ok ? "- done" : "- failed");
    closeProgress();
    m_process->deleteLater();
    m_process = nullptr;
    QProcess::startDetached(QStringLiteral("/bin/sh"), {unitScriptPath(QStringLiteral("clear_cache.sh"))});
    tellOperator(ok);
}

void CopySurvey::handleError(QProcess::ProcessError error)
{
    if (error != QProcess::FailedToStart)
        return;
    qWarning() << "Copy script could not start";
    m_running = false;
    closeProgress();
    m_process->deleteLater();
    m_process = nullptr;
    tellOperator(false);
}

void CopySurvey::closeProgress()
{
    m_progress->cancel();
    m_progress->done(QDialog::Accepted);
}

// A copy that silently stopped halfway would leave the operator believing the
// target holds the survey; both endings are told.
void CopySurvey::tellOperator(bool ok)
{
    showResult(ok, ok ? QMessageBox::NoIcon : QMessageBox::Critical,
               ok ? tr("<p align='center'><strong>Copy Success</strong></p>")
                  : tr("<p align='center'><strong>Copy Failed</strong></p>"),
               ok ? tr("<p align='center'>Successfully Copied Survey.</p>")
                  : tr("<p align='center'>Error: Copy Aborted.</p><p align='center'>"
                       "The copy on the target is incomplete; the original is unchanged.</p>"));
}

void CopySurvey::showResult(bool ok, QMessageBox::Icon icon, const QString &text, const QString &informative)
{
    if (m_told)
        return;
    m_told = true;
    m_succeeded = ok;
    HBIMessageBox box(icon, text, QMessageBox::Ok, m_parent);
    box.setInformativeText(informative);
    box.setDefaultButton(QMessageBox::Ok);
    box.exec();
}
