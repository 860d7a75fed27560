#pragma once

#include "app/pipescreen.h"

class IStatus;
class IClock;

// The tabbed settings screen. Its tabs arrive with the subsystems they configure.
class Settings : public PipeScreen
{
    Q_OBJECT
public:
    explicit Settings(QWidget *parent = nullptr);

    IStatus *statusScreen() const;
    IClock *clockScreen() const;
};
