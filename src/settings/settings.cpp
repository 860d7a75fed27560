#include "settings/settings.h"

#include "settings/settingsstatus.h"

#include <QVBoxLayout>

Settings::Settings(QWidget *parent) : PipeScreen(parent)
{
    setWhatsThis(QStringLiteral("Settings screen"));
    m_status = new SettingsStatus(this);
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(m_status);
}

IStatus *Settings::statusScreen() const
{
    return m_status;
}

IClock *Settings::clockScreen() const
{
    return nullptr;
}
