#pragma once

#include "survey/surveycontroller.h"

template <typename T>
class Singleton;

// A plain recording: no project, no questions. Each recording gets a folder
// named after the time it started.
class BasicController : public SurveyController
{
    Q_OBJECT
public:
    static BasicController *instance(QObject *parent = nullptr);

    int prepareDirectory() override;
    void button_push() override {}

protected:
    QString dbExt() const override { return QStringLiteral(".bdb"); }

private:
    friend class Singleton<BasicController>;
    explicit BasicController(QObject *parent);
};
