#include "app/screenstack.h"

#include "app/controller.h"
#include "app/ihelpscreen.h"
#include "app/imainwindow.h"
#include "core/consolesettings.h"
#include "core/unitpaths.h"
#include "survey/ivideoscreen.h"
#include "storage/reportmanager.h"
#include "survey/surveymanager.h"

#include <QDebug>
#include <QFile>

ScreenStack::ScreenStack(IMainWindow *window) : m_window(window) {}

ScreenStack::~ScreenStack() = default;

int ScreenStack::current() const
{
    return m_window->screen();
}

void ScreenStack::push(int n)
{
    const int shown = current();
    if (shown == n)
        return;
    if (configure(n))
        m_screenStack.push(shown);
}

void ScreenStack::pop()
{
    int n = Controller::kScreenVideo;
    if (m_screenStack.isEmpty())
        qInfo() << "Screen stack is empty";
    else
        n = m_screenStack.pop();
    // The splash and login pages are never gone back to.
    if (n < Controller::kScreenLogin || n > Controller::kScreenWRCRunInfo)
        n = Controller::kScreenVideo;
    if (n != current() && !configure(n))
        qInfo() << "Screen pop failed!!!!";
}

QString ScreenStack::helpPageFor(const QString &firstPage, const QString &language)
{
    if (firstPage.contains(language))
        return firstPage;
    const QString page = unitPath(QStringLiteral("/opt/hbi/languages/%1/help/index.html").arg(language));
    if (QFile::exists(page))
        return page;
    return unitPath(QStringLiteral("/opt/hbi/languages/en-GB/help/index.html"));
}

bool ScreenStack::configure(int n)
{
    IVideoScreen *video = m_window->videoScreen();
    const bool recording = video && video->isRecording();
    switch (n) {
    case Controller::kScreenSplash:
    case Controller::kScreenLogin:
        break;
    case Controller::kScreenVideo:
        SurveyManager::instance()->handleAction(SurveyManager::kActionStart, 0);
        m_screenStack.clear();
        break;
    case Controller::kScreenReport:
        if (recording) {
            qInfo() << "Can't show report while recording!";
            return false;
        }
        if (IReportScreen *screen = m_window->reportScreen()) {
            m_reportManager.reset();
            m_reportManager.reset(new ReportManager(screen));
        }
        break;
    case Controller::kScreenHelp: {
        ConsoleSettings settings;
        const QString language = ConsoleSettings::languageCode();
        const QString page =
            helpPageFor(settings.value(QStringLiteral("Help/FirstPage"), QStringLiteral("en-GB")).toString(), language);
        settings.setValue(QStringLiteral("Help/FirstPage"), page);
        if (IHelpScreen *help = m_window->helpScreen())
            help->setPage(page);
        break;
    }
    case Controller::kScreenSettings:
    case Controller::kScreenDiagnostics:
    case Controller::kScreenSiteInfo:
    case Controller::kScreenRunInfo:
    case Controller::kScreenWCProjectInfo:
    case Controller::kScreenWCSectionInfo:
    case Controller::kScreenWCSectionInfo2:
    case Controller::kScreenEngNote:
    case Controller::kScreenWRCSiteInfo:
    case Controller::kScreenWRCRunInfo:
        if (recording) {
            qInfo() << "Can't select while recording!";
            return false;
        }
        break;
    default:
        qInfo() << "Unrecognised screen value - ignoring";
        return false;
    }
    m_window->selectScreen(n);
    return true;
}
