#pragma once

#include "widgets/pipescreen.h"

class IStatus;
class IClock;
class SettingsStatus;
class SettingsSurvey;

// The tabbed settings screen. Its tabs arrive with the subsystems they configure.
class Settings : public PipeScreen
{
    Q_OBJECT
public:
    explicit Settings(QWidget *parent = nullptr);

    IStatus *statusScreen() const;
    IClock *clockScreen() const;
    SettingsSurvey *surveyScreen() const { return m_survey; }

private:
    SettingsStatus *m_status = nullptr;
    SettingsSurvey *m_survey = nullptr;
};
