#pragma once

#include "storage/lister.h"

// The surveys of one site, newest first, then the site's exchange files. The
// exchange files are shown but lead nowhere: they have no path behind them.
class SurveyLister : public Lister
{
    Q_OBJECT
public:
    explicit SurveyLister(const QString &path, QObject *parent = nullptr);

protected:
    void addItem(const ListerItem &item) override;
};
