#pragma once

#include "app/browser/folderpage.h"

// The sites of one device.
class SiteScreen : public FolderPage
{
    Q_OBJECT
public:
    explicit SiteScreen(QWidget *parent = nullptr);

    void setPath(const QString &device, const QString &path) override;
};
