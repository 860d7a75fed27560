#pragma once

#include "widgets/pipescreen.h"

class IStatus;
class IClock;
class QTabWidget;
class SettingsClock;
class SettingsForm;
class SettingsStatus;
class SettingsSurvey;
class ServiceConsole;
class settingsnetwork;

// The tabbed settings screen. Page Up and Page Down go from tab to tab, Up and
// Down from row to row, Left and Right change a value; Escape leaves.
class Settings : public PipeScreen
{
    Q_OBJECT
public:
    enum Tab { kTabCoiler, kTabText, kTabGeneral, kTabClock, kTabWinCan, kTabStatus, kTabNetwork, kTabCloud, kTabService, kTabCount };

    explicit Settings(QWidget *parent = nullptr);

    IStatus *statusScreen() const;
    IClock *clockScreen() const;
    SettingsSurvey *surveyScreen() const { return m_survey; }
    SettingsClock *clockTab() const { return m_clock; }
    settingsnetwork *networkTab() const { return m_network; }
    ServiceConsole *serviceTab() const { return m_service; }
    // The rows of keys on every tab.
    QList<SettingsForm *> forms() const;
    int activeTab() const;
    QString tabTitle(int tab) const;

    void initialise() override;

public slots:
    void setActiveScreen(int tab);

signals:
    // A row changed a key; the backlight, for one, follows at once.
    void settingChanged(const QString &key, const QString &value);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void retranslate();
    void focusTab();

    QTabWidget *m_tabs = nullptr;
    SettingsStatus *m_status = nullptr;
    SettingsSurvey *m_survey = nullptr;
    SettingsClock *m_clock = nullptr;
    settingsnetwork *m_network = nullptr;
    ServiceConsole *m_service = nullptr;
};
