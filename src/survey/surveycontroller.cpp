#include "survey/surveycontroller.h"

#include "survey/ivideoscreen.h"
#include "survey/observationline.h"
#include "survey/surveymanager.h"
#include "survey/surveypaths.h"
#include "survey/wincan/cddatabase.h"
#include "storage/folderscan.h"

#include <QDebug>

SurveyController::SurveyController(QObject *parent) : QObject(parent)
{
    connect(this, &SurveyController::exit, this, &SurveyController::handleExit);
    connect(this, &SurveyController::enabled, this, &SurveyController::handleWasEnabled);
}

int SurveyController::surveyfileInit()
{
    const float counter = m_video ? m_video->getCounter() : 0.0f;
    SurveyManager::instance()->appendObservation(0, counter, ObservationLine::kText, ObservationLine::kRecordText);
    return 0;
}

QString SurveyController::mpg4Path()
{
    return m_directory + QStringLiteral("/video.mp4");
}

QString SurveyController::snapshotPath()
{
    return m_directory + QStringLiteral("/Snap") + QStringLiteral("%1").arg(m_snapshotCount++, 4, 10, QLatin1Char('0'))
           + QStringLiteral(".jpg");
}

QString SurveyController::observationfilePath() const
{
    return m_directory + QStringLiteral("/.observations") + dbExt();
}

void SurveyController::setEnabled(bool enabled)
{
    m_enabled = enabled;
    emit this->enabled(enabled);
}

void SurveyController::handleExit()
{
    SurveyManager *manager = SurveyManager::instance();
    if (manager->type() == SurveyManager::kSurveyType_WINCAN)
        CDDatabase::instance()->reset();
    manager->setType(SurveyManager::kSurveyType_BASIC);
    if (m_video)
        m_video->setLogo(SurveyManager::kSurveyType_BASIC);
}

void SurveyController::menuCancel(int)
{
    emit exit();
}

void SurveyController::handleWasEnabled(bool enabled)
{
    if (enabled && m_video)
        m_video->hidePageOverlay();
}

void SurveyController::showMenu(const QString &title, const QStringList &rows, const char *slot)
{
    if (m_video)
        m_video->showMenu(title, rows, this, slot, false);
}

void SurveyController::showNote(const QString &text, const char *slot)
{
    if (m_video)
        m_video->showMessage(tr("Note:"), {text}, slot ? this : nullptr, slot);
}

QStringList SurveyController::projectFolders(const QString &devicePath, const QString &suffix)
{
    // The media browser's order for projects: the one worked on last comes first.
    const QVector<ListerItem> folders =
        FolderScan::entries(SurveyPaths::surveyRoot(devicePath), FolderScan::kFolders, FolderScan::kNewestFirst);
    QStringList names;
    for (const ListerItem &folder : folders) {
        if (folder.name.endsWith(suffix))
            names << folder.name;
    }
    return names;
}
