#include "app/mainwindow.h"
#include "app/videoscreenwiring.h"
#include "app/afterfirstpaint.h"

#include "app/browser/report.h"
#include "app/controller.h"
#include "app/helpscreen.h"
#include "core/backgroundprocess.h"
#include "survey/ivideoscreen.h"
#include "app/login.h"
#include "widgets/pipescreen.h"
#include "app/splash.h"
#include "connectivity/appcommand.h"
#include "connectivity/external_control.h"
#include "core/uikeys.h"
#include "core/unitpaths.h"
#include "settings/iclock.h"
#include "settings/settings.h"
#include "survey/forms/baseinfo.h"
#include "survey/forms/engineersnotes.h"
#include "survey/forms/runinfo.h"
#include "survey/forms/siteinfo.h"
#include "survey/forms/wrcruninfo.h"
#include "survey/forms/wcprojectinfov4.h"
#include "survey/forms/wcsectioninfopage2.h"
#include "survey/forms/wcsectioninfov4.h"
#include "survey/forms/wrcsiteinfo.h"
#include "survey/surveymanager.h"
#include "video/video.h"
#include "widgets/indicators.h"
#include "widgets/wifiindicator.h"

#include <QApplication>
#include <QDateTime>
#include <QDebug>
#include <QElapsedTimer>
#include <QProcess>
#include <QStackedWidget>

namespace {
constexpr int kWindowWidth = 800;
constexpr int kWindowHeight = 600;
// The screen whose text is kept when it is shown again.
constexpr int kEngineersNotesPage = Controller::kScreenEngNote;
// A flood of garbage from the app must not flood the log as well.
constexpr int kLoggedCommandLength = 80;

SurveyManager *survey()
{
    return SurveyManager::instance();
}

PipeScreen *titled(PipeScreen *page, const QString &whatsThis)
{
    page->setWhatsThis(whatsThis);
    return page;
}
} // namespace

MainWindow::MainWindow(QWidget *parent)
    : QMainWindow(parent),
      upevent(QEvent::KeyPress, Ui::Key_LampUp, Qt::NoModifier),
      downevent(QEvent::KeyPress, Ui::Key_LampDown, Qt::NoModifier),
      stopevent(QEvent::KeyRelease, Ui::Key_MediaStop, Qt::NoModifier),
      recevent(QEvent::KeyRelease, Ui::Key_MediaRecord, Qt::NoModifier),
      coilevent(QEvent::KeyPress, Ui::Key_ZeroCounter, Qt::ControlModifier),
      streamstartevent(QEvent::KeyRelease, Ui::Key_Rotate, Qt::ControlModifier),
      streamstopevent(QEvent::KeyRelease, 83, Qt::ControlModifier),
      okevent(QEvent::KeyRelease, Qt::Key_Enter, Qt::NoModifier),
      key_press(QEvent::KeyRelease, Qt::Key_F25, Qt::NoModifier),
      port(QStringLiteral("8081")),
      ip(QStringLiteral("192.168.1.100"))
{
    QElapsedTimer setupTime;
    setupTime.start();
    buildPages();
    qInfo() << "Screens built in" << setupTime.elapsed() << "ms";
    connect(m_video, &Video::stopRecord, this, &MainWindow::stopRecord);

    setWindowFlags(windowFlags() | Qt::FramelessWindowHint);
    setFixedSize(kWindowWidth, kWindowHeight);
    setWindowTitle(QStringLiteral("Corvane - Sewer Console"));
    m_external = external_control::instance(this);
    connect(m_external, &external_control::updateOstraState, this, &MainWindow::updateOstraIcon);
    connect(m_external, &external_control::sendKeyPress, this, &MainWindow::handleExternalControl);
    connect(m_external, &external_control::mapTransferStatus, this, &MainWindow::mapTransferBox);

    AfterFirstPaint::run(this, this, [this] {
        setDisplayMode();
        // Built while the splash counts down, so its status tab follows the camera from the first poll.
        settings();
    });

    connect(qApp, &QApplication::focusChanged, this, &MainWindow::focusChanged);
}

// Nothing drawn depends on the mode being in place yet, so start-up does not wait for it.
void MainWindow::setDisplayMode()
{
    startInBackground(unitPath(QStringLiteral("/usr/sbin/fbset")), {QStringLiteral("srd10")}, this);
}

MainWindow::~MainWindow()
{
    delete Controller::instance();
}

PipeScreen *MainWindow::addPage(PipeScreen *page)
{
    m_stack->addWidget(page);
    return page;
}

PipeScreen *MainWindow::addPlaceholderPage(const QString &whatsThis)
{
    auto *page = new PipeScreen(m_stack);
    page->setWhatsThis(whatsThis);
    return addPage(page);
}

// Only the pages of the first minute are built before the window shows; the others
// cost more than all of start-up's own work and most sessions never open them.
void MainWindow::buildPages()
{
    m_stack = new QStackedWidget(this);
    setCentralWidget(m_stack);
    m_splash = new Splash(m_stack);
    addPage(m_splash);
    m_login = new Login(m_stack);
    addPage(m_login);
    m_video = new Video(m_stack);
    m_video->setWhatsThis(QStringLiteral("Main screen"));
    addPage(m_video);
    addPageOnDemand(QStringLiteral("Report Screen"), [this] { return m_report = new Report(m_stack); });
    addPageOnDemand(QStringLiteral("Settings screen"), [this] { return m_settings = new Settings(m_stack); });
    m_diagnostics = addPlaceholderPage(QStringLiteral("Diagnostics"));
    addPageOnDemand(QStringLiteral("Help Screen"), [this] { return m_help = new HelpScreen(m_stack); });
    addPageOnDemand(QStringLiteral("Site Info Screen"), [this] { return m_siteInfo = new SiteInfo(m_stack); });
    addPageOnDemand(QStringLiteral("Run Info Screen"), [this] { return m_runInfo = new RunInfo(m_stack); });
    addPageOnDemand(QStringLiteral("WinCan Project Info Screen"),
                    [this] { return m_wcProjectInfo = new WCProjectInfoV4(m_stack); });
    addPageOnDemand(QStringLiteral("WinCan Section Info Screen"),
                    [this] { return m_wcSectionInfo = new WCSectionInfoV4(m_stack); });
    addPageOnDemand(QStringLiteral("WinCan Section Info Screen 2"),
                    [this] { return m_wcSectionInfoPage2 = new wcsectioninfopage2(m_stack); });
    addPageOnDemand(QStringLiteral("Engineers Note Screen"), [this] { return m_engNote = new engineersNotes(m_stack); });
    addPageOnDemand(QStringLiteral("WRC Site Info Screen"), [this] { return m_wrcSiteInfo = new wrcsiteinfo(m_stack); });
    addPageOnDemand(QStringLiteral("WRC Run Info Screen"), [this] { return m_wrcRunInfo = new wrcruninfo(m_stack); });
}

void MainWindow::addPageOnDemand(const QString &whatsThis, std::function<PipeScreen *()> make)
{
    addPlaceholderPage(whatsThis);
    m_pagesOnDemand.insert(m_stack->count() - 1, [whatsThis, make] { return titled(make(), whatsThis); });
}

void MainWindow::buildPageIfWanted(int n)
{
    const auto make = m_pagesOnDemand.take(n);
    if (!make)
        return;
    QElapsedTimer buildTime;
    buildTime.start();
    QWidget *placeholder = m_stack->widget(n);
    PipeScreen *built = make();
    m_stack->insertWidget(n, built);
    m_stack->removeWidget(placeholder);
    delete placeholder;
    if (m_control)
        connectPageTo(built, m_control);
    qInfo().noquote() << QStringLiteral("%1 built in %2 ms").arg(built->whatsThis()).arg(buildTime.elapsed());
}

void MainWindow::setController(Controller *controller)
{
    m_control = controller;
    m_splash->setController(controller);
    m_login->setController(controller);
    VideoScreenWiring::connect(controller, m_video);
    connect(controller, &Controller::setActiveScreen, this, [this](int tab) { settings()->setActiveScreen(tab); });
    connectFormsTo(controller);
}

void MainWindow::connectFormsTo(Controller *controller)
{
    for (int n = 0; n < m_stack->count(); ++n)
        connectPageTo(m_stack->widget(n), controller);
}

void MainWindow::connectPageTo(QWidget *page, Controller *controller)
{
    if (auto *form = qobject_cast<BaseInfo *>(page)) {
        connect(form, &BaseInfo::selectVideoScreen, controller, &Controller::selectVideoScreen);
        connect(form, &BaseInfo::selectWCSectionInfoScreen, controller, &Controller::selectWCSectionInfoScreen);
        connect(form, &BaseInfo::selectWCSectionInfoScreen2, controller, &Controller::selectWCSectionInfoScreen2);
    } else if (auto *notes = qobject_cast<engineersNotes *>(page))
        connect(notes, &engineersNotes::selectVideoScreen, controller, &Controller::selectVideoScreen);
    else if (page == m_report && m_report)
        m_report->setController(controller);
    else if (page == m_settings && m_settings)
        connectSettingsTo(controller);
}

void MainWindow::connectSettingsTo(Controller *controller)
{
    connect(m_settings, &Settings::settingChanged, controller, [controller](const QString &key, const QString &value) {
        if (key == QLatin1String("Backlight/Level"))
            controller->setNewBacklight(value.toInt() * 255 / 100);
    });
    m_settings->clockScreen()->setControl(controller->clockControl());
}

Settings *MainWindow::settings()
{
    buildPageIfWanted(Controller::kScreenSettings);
    return m_settings;
}

int MainWindow::pageCount() const
{
    return m_stack->count();
}

PipeScreen *MainWindow::page(int n)
{
    buildPageIfWanted(n);
    return qobject_cast<PipeScreen *>(m_stack->widget(n));
}

void MainWindow::selectScreen(int n)
{
    if (n < 0 || n >= m_stack->count())
        return;
    PipeScreen *current = page(n);
    m_stack->setCurrentIndex(n);
    setWindowTitle(current->whatsThis());
    qInfo().noquote() << QStringLiteral("Screen %1: %2").arg(n).arg(current->whatsThis());
    // The engineer's notes keep what was typed when the page is shown again.
    if (n != kEngineersNotesPage)
        current->initialise();
    // Keys go to the page shown, even when nothing on it asked for the focus:
    // the main screen's Stop and Pause keys are its own.
    QWidget *focused = focusWidget();
    if (focused != current && !current->isAncestorOf(focused))
        current->setFocus();
}

int MainWindow::screen()
{
    return m_stack->currentIndex();
}

ISplashScreen *MainWindow::splashScreen() { return m_splash; }
ILoginScreen *MainWindow::loginScreen() { return m_login; }
IReportScreen *MainWindow::reportScreen()
{
    buildPageIfWanted(Controller::kScreenReport);
    return m_report;
}

IVideoScreen *MainWindow::videoScreen() { return dynamic_cast<IVideoScreen *>(m_video); }
IHelpScreen *MainWindow::helpScreen()
{
    buildPageIfWanted(Controller::kScreenHelp);
    return m_help;
}

IStatus *MainWindow::statusScreen() { return settings()->statusScreen(); }

// Until the settings screen is built, the controller's clock reaches it as it is built.
IClock *MainWindow::clockScreen() { return m_settings ? m_settings->clockScreen() : nullptr; }

bool MainWindow::currentPageIsOneOf(std::initializer_list<PipeScreen *> pages) const
{
    QWidget *current = m_stack->currentWidget();
    for (PipeScreen *candidate : pages) {
        if (candidate == current)
            return true;
    }
    return false;
}

// ---- Keys -----------------------------------------------------------------------

void MainWindow::handleSurveyKeyPress(QKeyEvent *event)
{
    if (!event->isAutoRepeat()) {
        Ostra_count = 1;
        return;
    }
    if (Ostra_count == 0)
        return;
    if (++Ostra_count > OstraPressTime) {
        // A long press links the mobile app instead of opening the survey menu.
        if (IVideoScreen *video = videoScreen())
            video->keyPressEvent(&key_press);
        qInfo() << "Mobile app link requested";
        Ostra_count = 0;
        m_external->doConnect();
    }
}

void MainWindow::handleZeroCounterPress(QKeyEvent *event)
{
    if (event->modifiers() & Qt::ControlModifier) {
        survey()->handleAction(SurveyManager::kActionResetCounter, 0);
        return;
    }
    // Zeroing the distance needs a deliberate hold; a tap does nothing.
    if (m_zeroCounterHold.press(event)) {
        survey()->handleAction(SurveyManager::kActionResetCounter, 0);
        qInfo() << "Reset meterage counter";
    }
}

void MainWindow::keyPressEvent(QKeyEvent *event)
{
    const int key = event->key();
    const Qt::KeyboardModifiers mods = event->modifiers();
    if (!m_control) {
        QMainWindow::keyPressEvent(event);
        return;
    }
    if (key == Ui::Key_Help) {
        m_control->selectHelpScreen();
        return;
    }
    if (key == Ui::Key_Survey)
        handleSurveyKeyPress(event);
    // Survey falls through to the counter-mode row on purpose: Shift with the
    // survey key also puts the lamp out.
    if (key == Ui::Key_Survey || key == Ui::Key_CounterMode) {
        if (mods & Qt::ShiftModifier)
            m_control->lampOff();
    } else if (key == Ui::Key_LampOff) {
        m_control->lampOff();
    } else if ((key == Ui::Key_Report && (mods & Qt::ShiftModifier)) || key == Ui::Key_LampDown) {
        m_control->lampDown();
    } else if (key == Ui::Key_LampUp) {
        m_control->lampUp();
    } else if ((key == Ui::Key_F1 && (mods & Qt::ShiftModifier)) || key == Ui::Key_ZeroCounter) {
        handleZeroCounterPress(event);
    }
}

bool MainWindow::handleShiftedRelease(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Insert:
    case Ui::Key_Sonde:
        if (event->modifiers() & Qt::AltModifier)
            m_control->takeScreenshot();
        else
            survey()->takeSnapshot(true);
        return true;
    case Ui::Key_Survey:
        survey()->handleAction(SurveyManager::kActionPause, 0);
        return true;
    case Ui::Key_WinCan:
        survey()->handleAction(SurveyManager::kActionRecord, 0);
        return true;
    case Ui::Key_Style:
        survey()->handleAction(SurveyManager::kActionPlay, 0);
        return true;
    case Ui::Key_Size:
        survey()->handleAction(SurveyManager::kActionStop, 0);
        return true;
    default:
        return false;
    }
}

void MainWindow::keyReleaseEvent(QKeyEvent *event)
{
    // A held key acts once, when it is let go, not on every repeat.
    if (event->isAutoRepeat() || !m_control) {
        QMainWindow::keyReleaseEvent(event);
        return;
    }
    const int key = event->key();
    const Qt::KeyboardModifiers mods = event->modifiers();
    const bool control = mods & Qt::ControlModifier;
    const bool alt = mods & Qt::AltModifier;
    if ((mods & Qt::ShiftModifier) && handleShiftedRelease(event))
        return;

    switch (key) {
    case Ui::Key_WinCan:
        if (currentPageIsOneOf({m_wcProjectInfo, m_wcSectionInfo, m_video, m_wcSectionInfoPage2}))
            survey()->handleAction(SurveyManager::kActionWincan, 0);
        break;
    case Ui::Key_Survey:
        if (Ostra_count == 1
            && currentPageIsOneOf({m_siteInfo, m_runInfo, m_video, m_engNote, m_wrcRunInfo, m_wrcSiteInfo}))
            survey()->handleAction(SurveyManager::kActionCorvane, 0);
        break;
    case Qt::Key_V:
        if (control && alt)
            saveChildScreenshots();
        break;
    case Qt::Key_R:
        if (control)
            survey()->handlestreamRecord(ip, port);
        break;
    case Qt::Key_S:
        if (control) {
            survey()->handleAction(SurveyManager::kActionStop, 0);
            survey()->handlestreamStop();
        }
        break;
    case Qt::Key_P:
        if (control && alt)
            survey()->handleAction(SurveyManager::kActionPDF, 0);
        break;
    case Qt::Key_Return:
        if (m_stack->currentWidget() == m_login)
            m_control->selectVideoScreen();
        else if (alt || (mods & Qt::ShiftModifier))
            keyPressEvent(&okevent);
        break;
    case Qt::Key_Escape:
        if (currentPageIsOneOf({m_help, m_settings}))
            m_control->popScreen();
        break;
    case Ui::Key_MediaPlay:
        survey()->handleAction(SurveyManager::kActionPlay, 0);
        break;
    case Ui::Key_Sonde:
        if (m_control->getPowerBoardID())
            m_control->toggleSonde();
        break;
    case Ui::Key_F1:
        if (m_stack->currentWidget() == m_report) {
            m_control->setSettingsScreen(Controller::kScreenSettings);
            m_control->selectSettingsScreen();
        }
        break;
    case Ui::Key_Settings:
        if (m_stack->currentWidget() == m_report)
            m_control->selectSettingsScreen();
        break;
    case Ui::Key_MediaRecord:
        if (m_stack->currentWidget() == m_video)
            survey()->handleAction(SurveyManager::kActionRecord, 0);
        break;
    case Ui::Key_MediaPause:
        break;
    case Ui::Key_Snapshot:
        if (alt)
            m_control->takeScreenshot();
        else
            survey()->takeSnapshot(true);
        break;
    case Ui::Key_CameraControls:
        m_control->showCameraSettings();
        break;
    default:
        QMainWindow::keyReleaseEvent(event);
        break;
    }
}

void MainWindow::saveChildScreenshots()
{
    const auto children = findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    for (QWidget *child : children) {
        const QString stamp = QDateTime::currentDateTime().toString(QStringLiteral("ddMMyyyyhhmmsszzz"));
        const QString path = unitPath(QStringLiteral("/media/sda1/screenshot%1.png").arg(stamp));
        if (!child->grab().save(path))
            qInfo() << "Could not save screenshot" << path;
    }
}

// ---- Slots ------------------------------------------------------------------------

void MainWindow::handleExternalControl(QString command)
{
    const AppCommand app = AppCommand::parse(command);
    switch (app.kind()) {
    case AppCommand::kLampUp:
        keyPressEvent(&upevent);
        break;
    case AppCommand::kLampDown:
        keyPressEvent(&downevent);
        break;
    case AppCommand::kRecord:
        keyReleaseEvent(&recevent);
        break;
    case AppCommand::kStop:
        stopRecord();
        break;
    case AppCommand::kCoilerSet:
        keyPressEvent(&coilevent);
        break;
    case AppCommand::kStartStream:
        keyReleaseEvent(&streamstartevent);
        break;
    case AppCommand::kStopStream:
        keyReleaseEvent(&streamstopevent);
        break;
    case AppCommand::kIdentify:
        m_external->writeIDN();
        return;
    case AppCommand::kGetReport:
        sendReport();
        return;
    case AppCommand::kGetXML:
        sendXml();
        return;
    case AppCommand::kPort:
        port = app.word(1);
        break;
    case AppCommand::kIP:
        ip = app.word(1);
        break;
    case AppCommand::kTransferReceive:
        receiveImage(app.word(1), app.word(2), app.word(3));
        return;
    case AppCommand::kTransferSend:
        m_external->fileWrite();
        return;
    case AppCommand::kFileErrorSuccess:
    case AppCommand::kFileErrorFailure:
    case AppCommand::kFileErrorOther:
        finishSend(app.kind());
        return;
    case AppCommand::kGetProjects:
    case AppCommand::kSetProject:
    case AppCommand::kTransferOther:
    case AppCommand::kOstraApp:
        qInfo().noquote() << "Mobile app:" << command.left(kLoggedCommandLength);
        return;
    case AppCommand::kUnknown:
        qInfo().noquote() << "Mobile app: unknown command" << command.left(kLoggedCommandLength);
        m_external->doWrite(QStringLiteral("ERROR"));
        return;
    }
    m_external->doWrite(app.word(0));
}

void MainWindow::closeOpenNote()
{
    QKeyEvent closeNote(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
    if (IVideoScreen *video = videoScreen())
        video->keyPressEvent(&closeNote);
}

void MainWindow::showOstraNote(const QString &title, const QString &text, bool answered)
{
    if (IVideoScreen *video = videoScreen())
        video->showMessage(title, {text}, answered ? this : nullptr, answered ? SLOT(openOstraMenu(int)) : nullptr);
}

void MainWindow::receiveImage(const QString &size, const QString &type, const QString &dest)
{
    m_external->setFileType(type, dest);
    m_external->setFileSize(size.toInt());
    m_external->setMode(external_control::kImage);
    showOstraNote(tr("Note:"), dest == QLatin1String("Map") ? tr("Receiving a map file...") : tr("Receiving a site image..."),
                  false);
    m_external->doWrite(QStringLiteral("Transfer true"));
}

void MainWindow::sendReport()
{
    showOstraNote(tr("Note:"), tr("Transfering ostra Report to mobile..."), false);
    if (!m_external->getFileData()) {
        closeOpenNote();
        showOstraNote(tr("Note:"), tr("No PDF Report Found..."), false);
    }
}

void MainWindow::sendXml()
{
    showOstraNote(tr("Note:"), tr("Transfering XML File to Mobile..."), false);
    if (!m_external->getXmlData()) {
        closeOpenNote();
        showOstraNote(tr("Note:"), tr("No XML file in project..."), false);
    }
}

void MainWindow::finishSend(int kind)
{
    m_external->stopTimer();
    if (kind == AppCommand::kFileErrorSuccess) {
        closeOpenNote();
        showOstraNote(tr("Note:"), tr("Transfer Successful"), true);
    } else if (kind == AppCommand::kFileErrorFailure) {
        closeOpenNote();
        if (IVideoScreen *video = videoScreen())
            video->showDialogue(tr("Note:"), {tr("Transfer Failed")}, nullptr, nullptr);
    }
}

void MainWindow::handleComment(QKeyEvent &event)
{
    keyReleaseEvent(&event);
}

void MainWindow::updateWifiIcon(int state)
{
    m_video->indicators()->wifi()->updateWifiIcon(state);
}

void MainWindow::setTethered(bool tethered)
{
    m_video->indicators()->wifi()->setTethered(tethered);
}

void MainWindow::updateOstraIcon(int state)
{
    if (IVideoScreen *video = videoScreen())
        video->setOstraWifiLogo(state);
}

void MainWindow::mapTransferBox(bool ok)
{
    closeOpenNote();
    showOstraNote(tr("Note:"), ok ? tr("Transfer Successful") : tr("Transfer Failed"), true);
}

void MainWindow::openOstraMenu(int answer)
{
    if (answer == 1)
        survey()->openOstraMenu();
}

void MainWindow::stopRecord()
{
    survey()->handleAction(SurveyManager::kActionStop, 0);
}

void MainWindow::focusChanged(QWidget *old, QWidget *now)
{
    qDebug() << "Focus moved from" << old << "to" << now;
}
