#pragma once

#include "survey/surveydata.h"

// The fields of a WinCan survey, in the settings group "WinCanData".
class WinCanData : public SurveyData
{
    Q_OBJECT
public:
    explicit WinCanData(QObject *parent = nullptr) : SurveyData(parent) {}

    QString get(QString key) override;
    QStringList toStringList() override;
    void clear() override;

public slots:
    void set(QString key, QString value) override;
};
