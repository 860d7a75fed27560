#pragma once

#include "app/browser/folderpage.h"

// The surveys of one site, and the site's exchange files, which cannot be opened.
class SurveyScreen : public FolderPage
{
    Q_OBJECT
public:
    explicit SurveyScreen(QWidget *parent = nullptr);

    void setPath(const QString &device, const QString &path) override;

protected:
    bool canOpen(const QString &name) const override;
};
