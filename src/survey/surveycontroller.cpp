#include "survey/surveycontroller.h"

#include "survey/ivideoscreen.h"
#include "survey/observationline.h"
#include "survey/surveymanager.h"

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
        qInfo() << "Continuous-defect database not built yet: nothing to reset on leaving WinCan";
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
