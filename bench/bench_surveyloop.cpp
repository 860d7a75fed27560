// An operator who never stops: the real main window and controller on the simulated
// unit in $DUCTLINE_ROOT, walking ostra surveys by keys (as tst_corvaneonunit does),
// section after section, a snapshot with a comment every few seconds while recording.
// Run by bench/powercut.sh and bench/soak.sh, which kill it, start it again and
// check what it left on the stick against what it says here, one line per fact on
// standard output, each starting "BENCH":
//   BENCH opened <epoch ms> <project> <sections on disk>   the console opened the project
//   BENCH recording <epoch ms> <section dir>     the section's video file is growing
//   BENCH observation <epoch ms> <section dir> <comment>   the comment was accepted
//   BENCH stopped <epoch ms> <section dir>       Stop pressed
//   BENCH section <epoch ms> <section dir>       the section is closed and saved
//   BENCH failed <epoch ms> <why>                the operator could not go on
//   bench_surveyloop [--observations N] [--every MS] [--idle MS] [--sections N]
// --idle waits that long on the main screen between sections, not recording.
#include "app/controller.h"
#include "app/mainwindow.h"
#include "core/messagehandler.h"
#include "core/uikeys.h"
#include "core/unitpaths.h"
#include "support/keypadoperator.h"
#include "survey/surveymanager.h"
#include "survey/surveyrig.h"

#include <QApplication>
#include <QCommandLineParser>
#include <QDateTime>
#include <QDir>
#include <QtTest>
#include <cstdio>

namespace {

const QString kSite = QStringLiteral("Powercut Lane");
const QString kProjectFolder = QStringLiteral("powercut_lane.sur");

void report(const QString &fact, const QString &rest)
{
    printf("BENCH %s %lld %s\n", qPrintable(fact), QDateTime::currentMSecsSinceEpoch(), qPrintable(rest));
    fflush(stdout);
}

class SurveyLoop
{
public:
    SurveyLoop(MainWindow *window, int observations, int everyMs)
        : m_window(window), m_operator(window), m_observations(observations), m_everyMs(everyMs)
    {
    }

    bool start()
    {
        if (!QTest::qWaitFor([this] { return m_window->screen() == Controller::kScreenLogin; }, 30000))
            return fail(QStringLiteral("no login screen"));
        m_operator.key(Qt::Key_Return);
        if (!QTest::qWaitFor([this] { return m_window->screen() == Controller::kScreenVideo; }, 10000))
            return fail(QStringLiteral("no main screen"));
        m_operator.key(Ui::Key_Survey);
        if (QDir(projectPath()).exists(QStringLiteral(".project.sdb"))) {
            if (!m_operator.answerMenu(QStringLiteral("Select:"), 2)
                || !m_operator.answerMenu(QStringLiteral("Select Project To Open:"), 1))
                return fail(QStringLiteral("could not open the project"));
            // The opened project offers its menu: a new section.
            if (!m_operator.answerMenu(QStringLiteral("Select:"), 1))
                return fail(QStringLiteral("no new section in the opened project"));
            report(QStringLiteral("opened"), projectPath() + QLatin1Char(' ') + QString::number(sections().size()));
            return true;
        }
        if (!m_operator.answerMenu(QStringLiteral("Select:"), 1)
            || !m_operator.answerMenu(
                QStringLiteral("Welcome to ostra reporting. What report format would you like to create?"), 1))
            return fail(QStringLiteral("no new project"));
        if (!QTest::qWaitFor([this] { return m_window->screen() == Controller::kScreenSiteInfo; }, 10000))
            return fail(QStringLiteral("no project form"));
        m_operator.type(kSite);
        m_operator.key(Ui::Key_Survey);
        if (!QTest::qWaitFor([this] { return m_window->screen() == Controller::kScreenVideo; }, 10000))
            return fail(QStringLiteral("project form not saved"));
        return true;
    }

    // One section: its start questions, a recording with observations, its end.
    bool section()
    {
        const int number = int(sections().size()) + 1;
        if (!m_operator.answerText(QStringLiteral("Note:"), QString()))
            return fail(QStringLiteral("no note before the section"));
        const QStringList before = sections();
        m_operator.key(Ui::Key_MediaRecord);
        const QString node = QStringLiteral("MH%1").arg(number);
        if (!(m_operator.answerText(QStringLiteral("Surveyed By?"), QStringLiteral("Jo"))
              && m_operator.answerText(QStringLiteral("Enter Start Node Information (Mandatory)"), node)
              && m_operator.answerText(QStringLiteral("Enter Start Node Invert Depth"), QStringLiteral("1.5"))
              && m_operator.answerMenu(QStringLiteral("Enter Pipe Material"), 2)
              && m_operator.answerText(QStringLiteral("Enter Pipe Size"), QStringLiteral("150"))
              && m_operator.answerText(QStringLiteral("Enter Water Level %"), QStringLiteral("10"))
              && m_operator.answerMenu(QStringLiteral("Enter Flow Direction"), 1)
              && m_operator.answerText(QStringLiteral("Note:"), QString())))
            return fail(QStringLiteral("start questions"));
        QString dir;
        const auto growing = [&] {
            for (const QString &name : sections()) {
                if (before.contains(name))
                    continue;
                dir = projectPath() + name;
                return QFileInfo(dir + QStringLiteral("/video.mp4")).size() > 0;
            }
            return false;
        };
        if (!QTest::qWaitFor(growing, 20000))
            return fail(QStringLiteral("the recording did not start"));
        report(QStringLiteral("recording"), dir);
        for (int i = 1; i <= m_observations; ++i) {
            QTest::qWait(m_everyMs);
            const QString comment = QStringLiteral("obs-%1-%2").arg(number).arg(i);
            m_operator.key(Ui::Key_Snapshot);
            if (!m_operator.answerText(QStringLiteral("Please add a comment"), comment))
                return fail(QStringLiteral("no comment box"));
            report(QStringLiteral("observation"), dir + QLatin1Char(' ') + comment);
        }
        QTest::qWait(m_everyMs);
        m_operator.key(Ui::Key_MediaStop);
        report(QStringLiteral("stopped"), dir);
        if (!(m_operator.answerText(QStringLiteral("Enter End Node Information (Mandatory)"),
                                    QStringLiteral("MH%1").arg(number + 1))
              && m_operator.answerMenu(QStringLiteral("Please enter the pipe's usage"), 2)
              && QTest::qWaitFor([] { return SurveyManager::instance()->status() == SurveyManager::Idle; }, 20000)))
            return fail(QStringLiteral("section end"));
        report(QStringLiteral("section"), dir);
        // The note that the section is over; the mode key's menu opens the next.
        if (!m_operator.waitForDialog(QStringLiteral("Note:")))
            return fail(QStringLiteral("no note after the section"));
        m_operator.key(Ui::Key_Survey);
        return m_operator.answerMenu(QStringLiteral("Select:"), 1) || fail(QStringLiteral("no new section"));
    }

private:
    QString projectPath() const { return unitPath(QStringLiteral("/media/usb1/corvane/")) + kProjectFolder + QLatin1Char('/'); }
    QStringList sections() const
    {
        return QDir(projectPath()).entryList({QStringLiteral("section_*")}, QDir::Dirs, QDir::Name);
    }
    bool fail(const QString &why)
    {
        report(QStringLiteral("failed"), why);
        return false;
    }

    MainWindow *m_window;
    KeypadOperator m_operator;
    BoxAnswerer m_answerer;
    int m_observations;
    int m_everyMs;
};

} // namespace

int main(int argc, char *argv[])
{
    QCoreApplication::setAttribute(Qt::AA_DisableHighDpiScaling, true);
    qInstallMessageHandler(MessageHandler);
    QApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("Ductline"));
    QCoreApplication::setOrganizationName(QStringLiteral("Harbinger Instruments Limited"));

    QCommandLineParser parser;
    const QCommandLineOption observations("observations", "Observations a section.", "N", "4");
    const QCommandLineOption every("every", "Milliseconds between observations.", "MS", "2000");
    const QCommandLineOption idle("idle", "Milliseconds between sections, not recording.", "MS", "0");
    const QCommandLineOption count("sections", "Sections before ending, 0 for no end.", "N", "0");
    parser.addOptions({observations, every, idle, count});
    parser.addHelpOption();
    parser.process(app);

    auto *window = new MainWindow;
    Controller::create(window, window);
    window->show();
    window->activateWindow();

    SurveyLoop loop(window, parser.value(observations).toInt(), parser.value(every).toInt());
    if (!loop.start())
        return 1;
    const int sections = parser.value(count).toInt();
    for (int done = 0; sections == 0 || done < sections; ++done) {
        if (!loop.section())
            return 1;
        QTest::qWait(parser.value(idle).toInt());
    }
    return 0;
}
