#include "app/browser/surveyscreen.h"

#include "storage/folderscan.h"

#include <QFileInfo>

SurveyScreen::SurveyScreen(QWidget *parent) : FolderPage(parent) {}

void SurveyScreen::setPath(const QString &device, const QString &path)
{
    m_current_path = path;
    setHeading(device + QStringLiteral("://") + QFileInfo(path).fileName());
}

bool SurveyScreen::canOpen(const QString &name) const
{
    return !FolderScan::isExportFile(name);
}
