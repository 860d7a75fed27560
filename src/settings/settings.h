#pragma once

#include "app/pipescreen.h"

class IStatus;
class IClock;
class SettingsStatus;

// The tabbed settings screen. Its tabs arrive with the subsystems they configure.
class Settings : public PipeScreen
{
    Q_OBJECT
public:
    explicit Settings(QWidget *parent = nullptr);

    IStatus *statusScreen() const;
    IClock *clockScreen() const;

private:
    SettingsStatus *m_status = nullptr;
};
