#include "settings/settings.h"

Settings::Settings(QWidget *parent) : PipeScreen(parent)
{
    setWhatsThis(QStringLiteral("Settings screen"));
}

IStatus *Settings::statusScreen() const
{
    return nullptr;
}

IClock *Settings::clockScreen() const
{
    return nullptr;
}
