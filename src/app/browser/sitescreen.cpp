#include "app/browser/sitescreen.h"

SiteScreen::SiteScreen(QWidget *parent) : FolderPage(parent) {}

void SiteScreen::setPath(const QString &device, const QString &path)
{
    if (!path.isEmpty())
        m_current_path = path;
    setHeading(device + QStringLiteral("://"));
}
