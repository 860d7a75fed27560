// The ostra mode against the fake screen, real files and the unit's scripts: the
// mode key's menus, new and reopened projects, sections, the standard start and
// end questions and the text export. The operator's answers are given by calling
// the slot each menu or entry answers to, as the dialogs do.
#include "surveyrig.h"

#include "reports/exportpdf.h"
#include "survey/corvane/corvanecontroller.h"
#include "survey/corvane/corvanedata.h"
#include "survey/corvane/corvanequestions.h"

#include <QSettings>

namespace {

const QString kStartNodeQuestion = QStringLiteral("showTextEntry Enter Start Node Information (Mandatory)|");

QString sectionValue(const QString &sectionDir, const QString &key)
{
    return QSettings(sectionDir + QStringLiteral("/.section.sdb"), QSettings::IniFormat)
        .value(QStringLiteral("Section/") + key)
        .toString();
}

// The last dialog the flow put up.
QString lastShown(const FakeVideoScreen &screen)
{
    for (int i = screen.calls.size() - 1; i >= 0; --i) {
        if (screen.calls[i].startsWith(QLatin1String("show")))
            return screen.calls[i];
    }
    return QString();
}

QString setting(const QString &key)
{
    return ConsoleSettings().value(key).toString();
}

} // namespace

class TestCorvaneFlow : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void welcomeMenuOffersWrcOnlyInEnglishUk_data();
    void welcomeMenuOffersWrcOnlyInEnglishUk();
    void projectFolderFromSiteName_data();
    void projectFolderFromSiteName();
    void projectMenusFollowTheProject();
    void modeKeyWhileBasicRecordingIsRefused();

    void startQuestionsFillTheSectionFile();
    void endQuestions_data();
    void endQuestions();
    void endSectionFromTheMenuAsksTheEndQuestions();
    void cleanUpAlwaysLeavesOstra_data();
    void cleanUpAlwaysLeavesOstra();

    void reopenedProjectRestoresItsFields();
    void secondSectionAndFinalisedReport();
    void wrcProjectFinalisedGivesItsWrcFile();

private:
    void newProject(const QString &siteName);
    void recordSection();
    void answerStartQuestions();
    void stopSection(const QString &endNode);
    QString projectDir(const QString &folder) const;

    SurveyRig m_rig;
    BoxAnswerer m_answerer;
    CorvaneController *m_ostra = nullptr;
    CorvaneData m_data;
};

void TestCorvaneFlow::initTestCase()
{
    QVERIFY(m_rig.unit.isValid());
    m_ostra = CorvaneController::instance();
    m_rig.screen.onSaveJpeg = nullptr;
}

void TestCorvaneFlow::init()
{
    m_ostra->stop();
    m_rig.resetSurvey();
    m_ostra->setEnabled(false);
    m_ostra->setSectionOpen(false);
    m_rig.plugStorage();
    m_rig.screen.onSaveJpeg = [this](const QString &path, bool) {
        QFile(path).open(QIODevice::WriteOnly);
        m_rig.manager->appendObservation(0, m_rig.screen.counter, ObservationLine::kJpeg, QFileInfo(path).fileName());
    };
    m_rig.screen.calls.clear();
}

QString TestCorvaneFlow::projectDir(const QString &folder) const
{
    return m_rig.device + QStringLiteral("/corvane/") + folder + QLatin1Char('/');
}

// Key_Survey, "New Project", "Standard ostra", the project form saved.
void TestCorvaneFlow::newProject(const QString &siteName)
{
    m_ostra->button_push();
    m_ostra->menuSelected(1);
    m_ostra->menuWRC(1);
    m_data.set(QStringLiteral("SiteName"), siteName);
    m_ostra->setProjectPath();
}

void TestCorvaneFlow::recordSection()
{
    m_rig.manager->handleAction(SurveyManager::kActionRecord, 0);
    QCOMPARE(m_rig.manager->status(), SurveyManager::Recording);
    m_rig.screen.recording = true;
}

void TestCorvaneFlow::answerStartQuestions()
{
    m_ostra->questions()->handleSurveyedBy(1, QStringLiteral("Jo Pike"));
    m_ostra->questions()->handleStartNode(1, QStringLiteral("MH1"));
    m_ostra->questions()->handleInvertDepth(1, QStringLiteral("1.2"));
    m_ostra->questions()->handleMaterial(2);
    m_ostra->questions()->handlePipeSize(1, QStringLiteral("150"));
    m_ostra->questions()->handleWaterLevel(1, QStringLiteral("10"));
    m_ostra->questions()->handleFlowDirection(1);
}

void TestCorvaneFlow::stopSection(const QString &endNode)
{
    m_rig.manager->handleAction(SurveyManager::kActionStop, 0);
    m_ostra->questions()->handleEndNode(endNode.isEmpty() ? 0 : 1, endNode);
    m_ostra->questions()->handleUsage(2);
    m_rig.screen.recording = false;
}

void TestCorvaneFlow::welcomeMenuOffersWrcOnlyInEnglishUk_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<QString>("menu");
    const QString title = QStringLiteral(
        "showMenu Welcome to ostra reporting. What report format would you like to create?|Cancel|Standard ostra");
    QTest::newRow("en-GB") << "en-GB" << title + QStringLiteral("|Standard ostra + WRC");
    QTest::newRow("en-US") << "en-US" << title;
}

void TestCorvaneFlow::welcomeMenuOffersWrcOnlyInEnglishUk()
{
    QFETCH(QString, language);
    QFETCH(QString, menu);
    ConsoleSettings().setValue(QStringLiteral("Language/code"), language);

    m_ostra->button_push();
    QCOMPARE(lastShown(m_rig.screen), QStringLiteral("showMenu Select:|Cancel|New Project|Open Project"));
    QCOMPARE(m_rig.manager->type(), SurveyManager::kSurveyType_CORVANE);
    m_ostra->menuSelected(1);
    QCOMPARE(lastShown(m_rig.screen), menu);

    // Cancel leaves the mode and shows the first menu again.
    m_ostra->menuWRC(0);
    QCOMPARE(lastShown(m_rig.screen), QStringLiteral("showMenu Select:|Cancel|New Project|Open Project"));
    QVERIFY(!m_ostra->isEnabled());
}

void TestCorvaneFlow::projectFolderFromSiteName_data()
{
    QTest::addColumn<QString>("siteName");
    QTest::addColumn<QString>("folder");
    QTest::newRow("words") << "Site 1/B" << "site_1_b.sur";
    QTest::newRow("only symbols") << "#!?" << "___.sur";
    QTest::newRow("empty") << "" << "unnamed.sur";
    QTest::newRow("blanks") << "   " << "unnamed.sur";
}

void TestCorvaneFlow::projectFolderFromSiteName()
{
    QFETCH(QString, siteName);
    QFETCH(QString, folder);
    newProject(siteName);

    QCOMPARE(m_ostra->prjDirectory(), projectDir(folder));
    QVERIFY(QFile::exists(projectDir(folder) + QStringLiteral(".project.sdb")));
    QVERIFY(m_ostra->isEnabled());
    QCOMPARE(setting(QStringLiteral("counter/text")), QStringLiteral("0.00"));
    QTRY_COMPARE(lastShown(m_rig.screen),
                 QStringLiteral("showMessage Note:|Press record to start survey or press ostra key for further options"));
}

void TestCorvaneFlow::projectMenusFollowTheProject()
{
    newProject(QStringLiteral("Menus"));
    QTRY_VERIFY(lastShown(m_rig.screen).startsWith(QLatin1String("showMessage Note:")));

    // The instruction note is still up: the key dismisses it before the menu.
    m_ostra->button_push();
    QCOMPARE(m_rig.screen.calls.mid(m_rig.screen.calls.size() - 2),
             (QStringList{QStringLiteral("keyPressEvent %1").arg(Qt::Key_Return),
                          QStringLiteral("showMenu Select:|Cancel|Close Project|Add Site Image")}));

    m_ostra->setSectionOpen(false);
    QFile(m_ostra->prjDirectory() + QStringLiteral("ReportSite.png")).open(QIODevice::WriteOnly);
    m_ostra->button_push();
    QCOMPARE(lastShown(m_rig.screen),
             QStringLiteral("showMenu Select:|Cancel|New Section|Close Project|Finalise Report|Replace Site Image"
                            "|Insert Map Overview|Add Engineer's Notes"));

    m_ostra->menuDeselected(5);
    QCOMPARE(lastShown(m_rig.screen), QStringLiteral("showMessage Note:|connect your mobile device via the USB port "
                                                       "and follow the instructions on the ostra app"));

    // "Close Project" leaves the mode and offers the first menu again.
    m_ostra->menuDeselected(2);
    QVERIFY(!m_ostra->isEnabled());
    QCOMPARE(lastShown(m_rig.screen), QStringLiteral("showMenu Select:|Cancel|New Project|Open Project"));
}

void TestCorvaneFlow::modeKeyWhileBasicRecordingIsRefused()
{
    m_rig.screen.recording = true;
    m_ostra->button_push();
    QCOMPARE(lastShown(m_rig.screen), QStringLiteral("showMessage Note:|Not available while recording"));
    QCOMPARE(m_rig.manager->type(), SurveyManager::kSurveyType_BASIC);
}

void TestCorvaneFlow::startQuestionsFillTheSectionFile()
{
    newProject(QStringLiteral("Start Chain"));
    m_data.set(QStringLiteral("Start"), QStringLiteral("from the form"));
    recordSection();
    const QString section = m_ostra->directory();
    QCOMPARE(section, projectDir(QStringLiteral("start_chain.sur")) + QStringLiteral("section_1"));
    QVERIFY(QFile::exists(section + QStringLiteral("/Snap0000.jpg")));
    QCOMPARE(lastShown(m_rig.screen), QStringLiteral("showTextEntry Surveyed By?\t\t||Press OK to Accept"));

    m_ostra->questions()->handleSurveyedBy(1, QStringLiteral("Jo Pike"));
    for (int escape = 0; escape < 2; ++escape) {
        QVERIFY(lastShown(m_rig.screen).startsWith(kStartNodeQuestion));
        m_ostra->questions()->handleStartNode(0, QString());
    }
    QVERIFY(lastShown(m_rig.screen).startsWith(kStartNodeQuestion));
    m_ostra->questions()->handleStartNode(1, QStringLiteral("MH1"));
    m_ostra->questions()->handleInvertDepth(1, QStringLiteral("1.2"));
    m_ostra->questions()->handleMaterial(7);
    m_ostra->questions()->handleOtherMaterial(1, QStringLiteral("Steel"));
    m_ostra->questions()->handlePipeSize(0, QStringLiteral("ignored"));
    m_ostra->questions()->handleWaterLevel(1, QStringLiteral("10"));
    m_ostra->questions()->handleFlowDirection(1);

    QVERIFY(m_rig.screen.calls.contains(QStringLiteral("showStatusBar |Start Point: MH1|Water Level: 10%")));
    QCOMPARE(m_rig.screen.calls.mid(m_rig.screen.calls.size() - 2),
             (QStringList{QStringLiteral("createNewSurveyText"),
                          QStringLiteral("showMessage Note:|Please begin the survey press the Snapshot key at any "
                                         "time to add an observation")}));
    const QStringList expected = {QStringLiteral("Jo Pike"), QStringLiteral("MH1"), QStringLiteral("1.2"),
                                  QStringLiteral("Steel"), QString(), QStringLiteral("Downstream (D)")};
    const QStringList keys = {QStringLiteral("SEngineer"), QStringLiteral("Start"), QStringLiteral("Invert"),
                              QStringLiteral("Material"), QStringLiteral("Size"), QStringLiteral("Direction")};
    for (int i = 0; i < keys.size(); ++i)
        QCOMPARE(sectionValue(section, keys[i]), expected[i]);
    // The answers reach the file only; the live value of a key stays the form's.
    QCOMPARE(m_data.get(QStringLiteral("Start")), QStringLiteral("from the form"));
    QCOMPARE(m_data.get(QStringLiteral("tag")), QStringLiteral("Downstream (D)"));
}

void TestCorvaneFlow::endQuestions_data()
{
    QTest::addColumn<QString>("endNode");
    QTest::addColumn<int>("usageRow");
    QTest::addColumn<QString>("duty");
    QTest::newRow("answered") << "MH2" << 3 << "Storm";
    QTest::newRow("end node skipped, Cancel row") << "" << 0 << "Cancel";
    QTest::newRow("other usage") << "MH2" << 7 << "Sewage";
}

void TestCorvaneFlow::endQuestions()
{
    QFETCH(QString, endNode);
    QFETCH(int, usageRow);
    QFETCH(QString, duty);
    newProject(QStringLiteral("End Chain"));
    recordSection();
    answerStartQuestions();
    const QString section = m_ostra->directory();

    m_rig.manager->handleAction(SurveyManager::kActionStop, 0);
    QCOMPARE(lastShown(m_rig.screen),
             QStringLiteral("showTextEntry Enter End Node Information (Mandatory)||Press OK to Accept"));
    m_ostra->questions()->handleEndNode(endNode.isEmpty() ? 0 : 1, endNode);
    QVERIFY(lastShown(m_rig.screen).startsWith(QLatin1String("showMenu Please enter the pipe's usage|Cancel|")));
    m_ostra->questions()->handleUsage(usageRow);
    if (usageRow == 7)
        m_ostra->questions()->handleOtherUsage(1, duty);

    QCOMPARE(sectionValue(section, QStringLiteral("End")), endNode);
    QCOMPARE(sectionValue(section, QStringLiteral("Duty")), duty);
    // A given end node is pictured before the recording closes.
    QCOMPARE(QFile::exists(section + QStringLiteral("/Snap0001.jpg")), !endNode.isEmpty());
    QVERIFY(m_rig.screen.calls.contains(QStringLiteral("stop")));
    QCOMPARE(m_rig.manager->status(), SurveyManager::Idle);
    QCOMPARE(lastShown(m_rig.screen), QStringLiteral("showMessage Note:|Press record to survey new section or "
                                                       "press ostra key for further options"));
}

void TestCorvaneFlow::endSectionFromTheMenuAsksTheEndQuestions()
{
    ConsoleSettings().setValue(QStringLiteral("End_Header/Enabled"), true);
    newProject(QStringLiteral("Menu Stop"));
    recordSection();
    m_ostra->button_push();
    QCOMPARE(lastShown(m_rig.screen), QStringLiteral("showMenu Select:|Cancel|End section"));
    m_ostra->menuObservation(1);
    QCOMPARE(lastShown(m_rig.screen),
             QStringLiteral("showDialogue Are you sure you want to stop the recording?|No|Yes"));
    m_ostra->menuEndSection(1);
    m_ostra->questions()->handleEndNode(1, QStringLiteral("MH9"));
    m_ostra->questions()->handleUsage(1);
    // With the end header on, the recording runs on under it until the header's time is up.
    QCOMPARE(m_rig.screen.calls.last(), QStringLiteral("createEndHeader"));
    QCOMPARE(m_rig.manager->status(), SurveyManager::Recording);
    QTRY_COMPARE(m_rig.manager->status(), SurveyManager::Idle);
    QVERIFY(m_rig.screen.calls.contains(QStringLiteral("stop")));
}

void TestCorvaneFlow::cleanUpAlwaysLeavesOstra_data()
{
    QTest::addColumn<int>("type");
    QTest::newRow("basic") << int(SurveyManager::kSurveyType_BASIC);
    QTest::newRow("ostra") << int(SurveyManager::kSurveyType_CORVANE);
    QTest::newRow("wincan") << int(SurveyManager::kSurveyType_WINCAN);
}

void TestCorvaneFlow::cleanUpAlwaysLeavesOstra()
{
    QFETCH(int, type);
    ConsoleSettings().setValue(QStringLiteral("General/survey_mode"), QStringLiteral("WinCan"));
    m_rig.manager->setType(SurveyManager::SurveyType(type));
    m_rig.manager->cleanUp();
    QCOMPARE(setting(QStringLiteral("General/survey_mode")), QStringLiteral("Ostra"));
}

void TestCorvaneFlow::reopenedProjectRestoresItsFields()
{
    m_ostra->button_push();
    m_ostra->menuSelected(1);
    m_ostra->menuWRC(1);
    const QList<QPair<QString, QString>> form = {
        {QStringLiteral("SiteName"), QStringLiteral("Kent Road")}, {QStringLiteral("TownName"), QStringLiteral("Ashford")},
        {QStringLiteral("ClientRef#"), QStringLiteral("R-7")},     {QStringLiteral("ParkingRestrictions"), QStringLiteral("Permit")},
        {QStringLiteral("Operator"), QStringLiteral("Sam")},
    };
    for (const auto &field : form)
        m_data.set(field.first, field.second);
    m_ostra->setProjectPath();
    QVERIFY(QDir().mkpath(projectDir(QStringLiteral("other.txt"))));
    m_ostra->menuDeselected(2);
    m_data.clear();

    m_ostra->menuSelected(2);
    QCOMPARE(lastShown(m_rig.screen), QStringLiteral("showMenu Select Project To Open:|Cancel|kent_road.sur"));
    m_ostra->openCVProject(1);

    QCOMPARE(m_ostra->prjDirectory(), projectDir(QStringLiteral("kent_road.sur")));
    QCOMPARE(m_rig.manager->type(), SurveyManager::kSurveyType_CORVANE);
    QCOMPARE(m_data.get(QStringLiteral("SiteName")), QStringLiteral("Kent Road"));
    QCOMPARE(m_data.get(QStringLiteral("Operator")), QStringLiteral("Sam"));
    QCOMPARE(m_data.get(QStringLiteral("TownName")), QString());
    // Two fields come back under other names, so the project form shows them empty.
    QCOMPARE(m_data.get(QStringLiteral("Ref#")), QStringLiteral("R-7"));
    QCOMPARE(m_data.get(QStringLiteral("Parking")), QStringLiteral("Permit"));
    QCOMPARE(m_data.get(QStringLiteral("ClientRef#")), QString());
    QCOMPARE(m_data.get(QStringLiteral("ParkingRestrictions")), QString());
    QVERIFY(lastShown(m_rig.screen).startsWith(QLatin1String("showMenu Select:|Cancel|New Section|")));
}

void TestCorvaneFlow::secondSectionAndFinalisedReport()
{
    newProject(QStringLiteral("Two Runs"));
    const QString project = projectDir(QStringLiteral("two_runs.sur"));
    recordSection();
    answerStartQuestions();
    stopSection(QStringLiteral("MH2"));

    m_ostra->button_push();
    m_ostra->menuDeselected(1);
    QVERIFY(m_ostra->sectionOpen());
    recordSection();
    QCOMPARE(m_ostra->directory(), project + QStringLiteral("section_2"));
    answerStartQuestions();
    stopSection(QStringLiteral("MH3"));

    m_ostra->menuDeselected(3);
    QCOMPARE(lastShown(m_rig.screen), QStringLiteral("showMessage Note:|Generating ostra Report"));
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(project + QStringLiteral("two_runs.txt")), 5000);
    QFile report(project + QStringLiteral("two_runs.txt"));
    QVERIFY(report.open(QIODevice::ReadOnly));
    const QString text = QString::fromLatin1(report.readAll());
    QVERIFY2(text.contains(QStringLiteral("Site Name = Two Runs\r\n")), qPrintable(text));
    QVERIFY2(text.contains(QStringLiteral("Job 2\r\nSection Video = section_2\\video.mp4\r\nStart = MH1")),
             qPrintable(text));
    QVERIFY2(text.contains(QStringLiteral("End = MH3")), qPrintable(text));
}

// The WRC section form and questions leave the section files as written here;
// "Finalise Report" then makes the WRC file beside the text export.
void TestCorvaneFlow::wrcProjectFinalisedGivesItsWrcFile()
{
    const auto reportRunning = [this] { return m_ostra->findChild<exportPDF *>() != nullptr; };
    QTRY_VERIFY_WITH_TIMEOUT(!reportRunning(), 30000);
    ConsoleSettings().setValue(QStringLiteral("Language/code"), QStringLiteral("en-GB"));
    m_ostra->button_push();
    m_ostra->menuSelected(1);
    m_ostra->menuWRC(2);
    m_data.set(QStringLiteral("SiteName"), QStringLiteral("Mill Lane"));
    m_data.set(QStringLiteral("TownName"), QStringLiteral("Leeds"));
    m_ostra->setProjectPath();
    const QString project = projectDir(QStringLiteral("mill_lane.sur"));
    QVERIFY(QFile::exists(project + QStringLiteral(".project.sdb")));
    QVERIFY(QDir().mkpath(project + QStringLiteral("section_1")));
    QSettings section(project + QStringLiteral("section_1/.section.sdb"), QSettings::IniFormat);
    section.setValue(QStringLiteral("Section/Start"), QStringLiteral("MH1"));
    section.setValue(QStringLiteral("Section/Duty"), QStringLiteral("Foul (F)"));
    section.sync();
    QFile observations(project + QStringLiteral("section_1/.observations.sdb"));
    QVERIFY(observations.open(QIODevice::WriteOnly));
    observations.write("4.1m, CODE, CC, (@65000)\r\n4.1m, CLKT, 12, (@65000)\r\n4.1m, END, , (@65000)\r\n");
    observations.close();

    m_ostra->menuDeselected(3);
    QCOMPARE(lastShown(m_rig.screen), QStringLiteral("showMessage Note:|Generating ostra Report"));
    QFile wrc(project + QStringLiteral("Mill_Lane.xml"));
    QTRY_VERIFY_WITH_TIMEOUT(wrc.exists(), 5000);
    QVERIFY(QFile::exists(project + QStringLiteral("mill_lane.txt")));
    QVERIFY(wrc.open(QIODevice::ReadOnly));
    const QString xml = QString::fromUtf8(wrc.readAll());
    for (const QString &element :
         {QStringLiteral("<LocationTown>Leeds</LocationTown>"), QStringLiteral("<StartNodeRef>MH1</StartNodeRef>"),
          QStringLiteral("<UseOfDrainSewer>F</UseOfDrainSewer>"), QStringLiteral("<Code>CC</Code>")})
        QVERIFY2(xml.contains(element), qPrintable(element + QStringLiteral(" missing in ") + xml));
    QVERIFY(!xml.contains(QStringLiteral("ClockRefTo")));
    // The next test finds no report still being made.
    QTRY_VERIFY_WITH_TIMEOUT(!reportRunning(), 30000);
    ConsoleSettings().setValue(QStringLiteral("OSTRA/wrc en"), false);
}

QTEST_MAIN(TestCorvaneFlow)
#include "tst_corvaneflow.moc"
