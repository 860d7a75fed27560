#include "survey/surveymanager.h"

#include "app/ivideoscreen.h"
#include "survey/corvane/corvanedata.h"
#include "survey/wincan/wincandata.h"

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

void SurveyManager::handleText(QChar key)
{
    qDebug() << "Survey text key" << key << "- survey modes not built yet";
}

void SurveyManager::appendObservation(quint64 position, float counter, QString type, QString text)
{
    if (m_state != Ready && m_state != Recording)
        return;
    qInfo().noquote() << "Observation" << type << text << counter << position << "- no section file yet";
}

SurveyData *SurveyManager::getSurveyData()
{
    static CorvaneData corvaneData;
    static WinCanData winCanData;
    if (m_type == kSurveyType_WINCAN)
        return &winCanData;
    return &corvaneData;
}

void SurveyManager::reset()
{
    m_state = Idle;
}

QString SurveyManager::getDirectory()
{
    return QString(QLatin1String(""));
}
