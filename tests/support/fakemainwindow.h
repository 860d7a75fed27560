#pragma once

#include "app/imainwindow.h"
#include "app/isplashscreen.h"

#include <QKeyEvent>
#include <QList>
#include <QWidget>

class Controller;
class IVideoScreen;
class IStatus;

// A window that records which screen the controller selects, for testing the
// controller's rules without the real pages.
class FakeMainWindow : public QWidget, public IMainWindow, public ISplashScreen
{
    Q_OBJECT
public:
    void selectScreen(int n) override { m_current = n; selected << n; }
    int screen() override { return m_current; }
    QWidget *widget() override { return this; }
    ISplashScreen *splashScreen() override { return this; }
    ILoginScreen *loginScreen() override { return nullptr; }
    IReportScreen *reportScreen() override { return nullptr; }
    IVideoScreen *videoScreen() override { return video; }
    IHelpScreen *helpScreen() override { return nullptr; }
    IStatus *statusScreen() override { return status; }
    IClock *clockScreen() override { return nullptr; }

    void setProgress(const QString &, int) override {}

    IVideoScreen *video = nullptr;
    IStatus *status = nullptr;
    QList<int> selected;
    Controller *controller = nullptr;

public slots:
    void setController(Controller *c) { controller = c; }
    void handleComment(QKeyEvent &) {}
    // The link state the controller hands to the real window's status strip.
    void updateWifiIcon(int) {}
    void setTethered(bool) {}

private:
    int m_current = -1;
};
