#include "settings/settings.h"

#include "instrument/cameracontroller.h"
#include "settings/serviceconsole.h"
#include "settings/settingscloud.h"
#include "settings/settingsclock.h"
#include "settings/settingsform.h"
#include "settings/settingsnetwork.h"
#include "settings/settingspages.h"
#include "settings/settingsstatus.h"
#include "settings/settingssurvey.h"

#include <QEvent>
#include <QKeyEvent>
#include <QTabBar>
#include <QTabWidget>
#include <QVBoxLayout>

namespace {
const char *const kTabTitles[Settings::kTabCount] = {
    QT_TRANSLATE_NOOP("Settings", "Coiler"), QT_TRANSLATE_NOOP("Settings", "Overlay"), QT_TRANSLATE_NOOP("Settings", "General"),
    QT_TRANSLATE_NOOP("Settings", "Clock"),             QT_TRANSLATE_NOOP("Settings", "WinCan"),            QT_TRANSLATE_NOOP("Settings", "Status"),
    QT_TRANSLATE_NOOP("Settings", "Wi-Fi"),             QT_TRANSLATE_NOOP("Settings", "Cloud"),             QT_TRANSLATE_NOOP("Settings", "Service"),
};
} // namespace

Settings::Settings(QWidget *parent) : PipeScreen(parent)
{
    setWhatsThis(QStringLiteral("Settings screen"));
    m_tabs = new QTabWidget(this);
    m_tabs->tabBar()->setFocusPolicy(Qt::NoFocus);

    auto *coiler = new QWidget(m_tabs);
    auto *coilerLayout = new QVBoxLayout(coiler);
    coilerLayout->setContentsMargins(0, 0, 0, 0);
    m_survey = new SettingsSurvey(coiler);
    coilerLayout->addWidget(m_survey);
    coilerLayout->addWidget(SettingsPages::coilerAndCamera(coiler));
    m_tabs->addTab(coiler, QString());
    m_tabs->addTab(SettingsPages::textAndGraphics(m_tabs), QString());
    m_tabs->addTab(SettingsPages::general(m_tabs), QString());
    m_clock = new SettingsClock(m_tabs);
    m_tabs->addTab(m_clock, QString());
    m_tabs->addTab(SettingsPages::wincan(m_tabs), QString());
    m_status = new SettingsStatus(m_tabs);
    m_status->followCamera(CameraController::instance());
    m_tabs->addTab(m_status, QString());
    m_network = new settingsnetwork(m_tabs);
    m_tabs->addTab(m_network, QString());
    m_tabs->addTab(new SettingsCloud(m_tabs), QString());
    m_service = new ServiceConsole(m_tabs);
    m_tabs->addTab(m_service, QString());
    connect(m_tabs, &QTabWidget::currentChanged, this, &Settings::focusTab);
    for (SettingsForm *form : forms())
        connect(form, &SettingsForm::valueChanged, this, &Settings::settingChanged);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(m_tabs);
    retranslate();
}

IStatus *Settings::statusScreen() const
{
    return m_status;
}

IClock *Settings::clockScreen() const
{
    return m_clock;
}

QList<SettingsForm *> Settings::forms() const
{
    return m_tabs->findChildren<SettingsForm *>();
}

int Settings::activeTab() const
{
    return m_tabs->currentIndex();
}

QString Settings::tabTitle(int tab) const
{
    return m_tabs->tabText(tab);
}

void Settings::setActiveScreen(int tab)
{
    if (tab < 0 || tab >= m_tabs->count())
        return;
    m_tabs->setCurrentIndex(tab);
    focusTab();
}

void Settings::initialise()
{
    focusTab();
}

void Settings::focusTab()
{
    QWidget *page = m_tabs->currentWidget();
    if (!page || !isVisible())
        return;
    // The first field of the tab takes the keys, or the tab itself when it has none.
    QWidget *first = page;
    for (QWidget *child : page->findChildren<QWidget *>()) {
        if (child->focusPolicy() & Qt::TabFocus && child->isVisibleTo(page) && child->isEnabled()) {
            first = child;
            break;
        }
    }
    if (first == page)
        page->setFocusPolicy(Qt::StrongFocus);
    first->setFocus();
}

void Settings::keyPressEvent(QKeyEvent *event)
{
    const int count = m_tabs->count();
    switch (event->key()) {
    case Qt::Key_PageDown:
        m_tabs->setCurrentIndex((m_tabs->currentIndex() + 1) % count);
        return;
    case Qt::Key_PageUp:
        m_tabs->setCurrentIndex((m_tabs->currentIndex() + count - 1) % count);
        return;
    default:
        PipeScreen::keyPressEvent(event);
    }
}

void Settings::retranslate()
{
    for (int tab = 0; tab < kTabCount; ++tab)
        m_tabs->setTabText(tab, tr(kTabTitles[tab]));
}

void Settings::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    PipeScreen::changeEvent(event);
}
