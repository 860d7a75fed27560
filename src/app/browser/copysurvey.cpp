#include "app/browser/copysurvey.h"

#include "core/unitpaths.h"
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
    if (m_told)
        return;
    m_told = true;
    m_succeeded = ok;
    HBIMessageBox box(ok ? QMessageBox::NoIcon : QMessageBox::Critical,
                      ok ? tr("<p align='center'><strong>Copy Success</strong></p>")
                         : tr("<p align='center'><strong>Copy Failed</strong></p>"),
                      QMessageBox::Ok, m_parent);
    box.setInformativeText(ok ? tr("<p align='center'>Successfully Copied Survey.</p>")
                              : tr("<p align='center'>Error: Copy Aborted.</p><p align='center'>"
                                   "The copy on the target is incomplete; the original is unchanged.</p>"));
    box.setDefaultButton(QMessageBox::Ok);
    box.exec();
}
