#pragma once

#include "survey/surveydata.h"

// The fields of a Corvane survey, in the settings group "SurveyData".
class CorvaneData : public SurveyData
{
    Q_OBJECT
public:
    explicit CorvaneData(QObject *parent = nullptr) : SurveyData(parent) {}

    QString get(QString key) override;
    QStringList toStringList() override;
    void clear() override;

public slots:
    void set(QString key, QString value) override;
};
