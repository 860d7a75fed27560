#pragma once

#include "app/imainwindow.h"
#include "widgets/keyhold.h"

#include <QKeyEvent>
#include <QMainWindow>
#include <QHash>
#include <QVector>
#include <functional>

class Controller;
class external_control;
class HelpScreen;
class PipeScreen;
class Report;
class Splash;
class Login;
class Settings;
class Video;
class QStackedWidget;

// The one top-level window: all screens as pages of a stack, and the last stop
// of every key no screen took.
class MainWindow : public QMainWindow, public IMainWindow
{
    Q_OBJECT
public:
    explicit MainWindow(QWidget *parent = nullptr);
    ~MainWindow() override;

    void selectScreen(int n) override;
    int screen() override;
    QWidget *widget() override { return this; }
    ISplashScreen *splashScreen() override;
    ILoginScreen *loginScreen() override;
    IReportScreen *reportScreen() override;
    IVideoScreen *videoScreen() override;
    IHelpScreen *helpScreen() override;
    IStatus *statusScreen() override;
    IClock *clockScreen() override;

    int pageCount() const;
    // Builds the page first when it has not been shown yet.
    PipeScreen *page(int n);

public slots:
    void setController(Controller *controller);
    void handleExternalControl(QString command);
    void handleComment(QKeyEvent &event);
    void updateOstraIcon(int state);
    void updateWifiIcon(int state);
    void setTethered(bool tethered);
    void mapTransferBox(bool ok);
    void openOstraMenu(int answer);
    void stopRecord();
    void focusChanged(QWidget *old, QWidget *now);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;

private:
    void buildPages();
    void setDisplayMode();
    // The survey forms ask to leave by signal; the screen controller decides.
    void connectFormsTo(Controller *controller);
    PipeScreen *addPage(PipeScreen *page);
    PipeScreen *addPlaceholderPage(const QString &whatsThis);
    // A page made only when first wanted; a placeholder of the same title holds its place.
    void addPageOnDemand(const QString &whatsThis, std::function<PipeScreen *()> make);
    void buildPageIfWanted(int n);
    void connectPageTo(QWidget *page, Controller *controller);
    void connectSettingsTo(Controller *controller);
    Settings *settings();
    bool currentPageIsOneOf(std::initializer_list<PipeScreen *> pages) const;
    bool handleShiftedRelease(QKeyEvent *event);
    void handleSurveyKeyPress(QKeyEvent *event);
    void handleZeroCounterPress(QKeyEvent *event);
    void saveChildScreenshots();
    // The mobile app's transfers, as the operator sees them.
    void closeOpenNote();
    void showOstraNote(const QString &title, const QString &text, bool answered);
    void receiveImage(const QString &size, const QString &type, const QString &dest);
    void sendReport();
    void sendXml();
    void finishSend(int kind);

    Controller *m_control = nullptr;
    external_control *m_external = nullptr;
    QStackedWidget *m_stack = nullptr;
    QHash<int, std::function<PipeScreen *()>> m_pagesOnDemand;
    QKeyEvent upevent;
    QKeyEvent downevent;
    QKeyEvent stopevent;
    QKeyEvent recevent;
    QKeyEvent coilevent;
    QKeyEvent streamstartevent;
    QKeyEvent streamstopevent;
    QKeyEvent okevent;
    QKeyEvent key_press;
    QString port;
    QString ip;
    int OstraPressTime = 11;
    int Ostra_count = 0;
    // A deliberate hold of Key_ZeroCounter: the real press and seven repeats.
    static constexpr int kZeroCounterHoldEvents = 7;
    KeyHold m_zeroCounterHold{kZeroCounterHoldEvents};

    Splash *m_splash = nullptr;
    Login *m_login = nullptr;
    Video *m_video = nullptr;
    Report *m_report = nullptr;
    Settings *m_settings = nullptr;
    PipeScreen *m_diagnostics = nullptr;
    HelpScreen *m_help = nullptr;
    PipeScreen *m_siteInfo = nullptr;
    PipeScreen *m_runInfo = nullptr;
    PipeScreen *m_wcProjectInfo = nullptr;
    PipeScreen *m_wcSectionInfo = nullptr;
    PipeScreen *m_wcSectionInfoPage2 = nullptr;
    PipeScreen *m_engNote = nullptr;
    PipeScreen *m_wrcSiteInfo = nullptr;
    PipeScreen *m_wrcRunInfo = nullptr;
};
