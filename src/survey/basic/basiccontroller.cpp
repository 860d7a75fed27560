#include "survey/basic/basiccontroller.h"

#include "core/singleton.h"
#include "storage/externalstorage.h"
#include "survey/surveypaths.h"

#include <QDateTime>
#include <QDebug>

BasicController::BasicController(QObject *parent) : SurveyController(parent) {}

BasicController *BasicController::instance(QObject *parent)
{
    static BasicController *theInstance = nullptr;
    return Singleton<BasicController>::instance(theInstance, parent);
}

int BasicController::prepareDirectory()
{
    ExternalStorage *storage = ExternalStorage::instance();
    const QString device = storage->getSaveToPath();
    if (device.isEmpty()) {
        qInfo() << "prepareDirectory failed because there is no directory set";
        return kNoStorage;
    }
    QString path = SurveyPaths::basicSectionDirectory(device, QDateTime::currentDateTime());
    if (storage->mkdir(path) != 0)
        return kDirectoryFailed;
    m_directory = path;
    m_snapshotCount = 0;
    return kPrepared;
}
