#include "settings/settings.h"

#include "instrument/cameracontroller.h"
#include "settings/settingscloud.h"
#include "settings/settingsstatus.h"
#include "settings/settingssurvey.h"

#include <QTabWidget>
#include <QVBoxLayout>

Settings::Settings(QWidget *parent) : PipeScreen(parent)
{
    setWhatsThis(QStringLiteral("Settings screen"));
    auto *tabs = new QTabWidget(this);
    m_survey = new SettingsSurvey(tabs);
    m_status = new SettingsStatus(tabs);
    m_status->followCamera(CameraController::instance());
    tabs->addTab(m_survey, tr("Coiler and Camera"));
    tabs->addTab(m_status, tr("Status"));
    tabs->addTab(new SettingsCloud(tabs), tr("Cloud"));
    auto *layout = new QVBoxLayout(this);
    layout->addWidget(tabs);
}

IStatus *Settings::statusScreen() const
{
    return m_status;
}

IClock *Settings::clockScreen() const
{
    return nullptr;
}
