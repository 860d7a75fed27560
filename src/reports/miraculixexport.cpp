#include "reports/miraculixexport.h"

#include <utility>

MiraculIXExport::MiraculIXExport(QString projectPath, QString savePath)
    : SurveyExport(std::move(projectPath), std::move(savePath))
{
}

bool MiraculIXExport::startExport()
{
    return false;
}
