#include "survey/surveymanager.h"

#include "app/ivideoscreen.h"

#include <QDebug>
#include <QMutex>
#include <QMutexLocker>

SurveyManager::SurveyManager(IVideoScreen *video, QObject *parent) : QObject(parent), m_video(video) {}

SurveyManager *SurveyManager::instance(IVideoScreen *video, QObject *parent)
{
    static QMutex mutex;
    static SurveyManager *theInstance = nullptr;
    QMutexLocker lock(&mutex);
    if (!theInstance)
        theInstance = new SurveyManager(video, parent);
    return theInstance;
}

void SurveyManager::handleAction(ActionType action, int value)
{
    qDebug() << "Survey action" << action << value << "- survey modes not built yet";
}

void SurveyManager::handlestreamRecord(QString ip, QString port)
{
    if (m_video)
        m_video->streamRecord(ip, port);
}

void SurveyManager::handlestreamStop()
{
    if (m_video)
        m_video->streamStop();
}

void SurveyManager::openOstraMenu()
{
    qInfo() << "Corvane menu not available yet";
}

void SurveyManager::takeSnapshot(bool comment)
{
    qDebug() << "Snapshot requested, comment" << comment << "- survey modes not built yet";
}

void SurveyManager::takeSnapshot()
{
    takeSnapshot(false);
}
