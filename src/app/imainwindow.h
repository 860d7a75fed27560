#pragma once

class QWidget;
class ISplashScreen;
class ILoginScreen;
class IReportScreen;
class IVideoScreen;
class IHelpScreen;
class IStatus;
class IClock;

// What the controller and the survey code need of the window. A screen whose
// subsystem is not built yet answers nullptr; callers check before use.
class IMainWindow
{
public:
    virtual ~IMainWindow() = default;
    virtual void selectScreen(int n) = 0;
    virtual int screen() = 0;
    virtual QWidget *widget() = 0;
    virtual ISplashScreen *splashScreen() = 0;
    virtual ILoginScreen *loginScreen() = 0;
    virtual IReportScreen *reportScreen() = 0;
    virtual IVideoScreen *videoScreen() = 0;
    virtual IHelpScreen *helpScreen() = 0;
    virtual IStatus *statusScreen() = 0;
    virtual IClock *clockScreen() = 0;
};
