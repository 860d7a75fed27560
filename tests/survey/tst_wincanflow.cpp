// The WinCan mode against the fake screen, the unit's real catalogues and real
// files on the simulated USB stick: the mode key's menus, projects and
// time-stamped sections, the status bar, the catalogue tree, codes by letter,
// the node questions on Record and Stop per catalogue, continuous defects and
// the exchange export. Answers are given by calling the slot each menu or entry
// answers to, as the dialogs do.
#include "surveyrig.h"

#include "survey/wincan/cddatabase.h"
#include "survey/wincan/wccataloguemanager.h"
#include "survey/wincan/wcparams.h"
#include "survey/wincan/wincanchain.h"
#include "survey/wincan/wincancontroller.h"

#include <QRegularExpression>
#include <QSettings>
#include <QSignalSpy>
#include <QXmlStreamReader>

namespace {

const QString kObservationMenu =
    QStringLiteral("showMenu Select:|Cancel|Add Observation|Add by Code|End Section|Continuous Defects");

// The last dialog the flow put up.
QString lastShown(const FakeVideoScreen &screen)
{
    for (int i = screen.calls.size() - 1; i >= 0; --i) {
        if (screen.calls[i].startsWith(QLatin1String("show")) && !screen.calls[i].startsWith(QLatin1String("showStatusBar")))
            return screen.calls[i];
    }
    return QString();
}

QString fileValue(const QString &path, const QString &key)
{
    return QSettings(path, QSettings::IniFormat).value(key).toString();
}

} // namespace

class TestWinCanFlow : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void newProjectMakesFolderAndFile_data();
    void newProjectMakesFolderAndFile();
    void sectionsAreNamedByTheirTimeStamp();
    void modeMenusFollowTheProject();
    void statusBarShowsTheSection_data();
    void statusBarShowsTheSection();
    void newSectionClearsNodesAndContinuousDefects();
    void openProjectListsWinCanProjects();

    void treeCancelGoesOneLevelUp();
    void baseCodeWithoutExtensionsAsksItsParameters();
    void addByCode();
    void startQuestionsPerCatalogue_data();
    void startQuestionsPerCatalogue();
    void stopOnMscc3GoesThroughTheEndHeader();
    void stopOnMscc5AsksServiceabilityClosesDefectsAndEnds_data();
    void stopOnMscc5AsksServiceabilityClosesDefectsAndEnds();
    void stopOnMscc4HasNoServiceability();
    void continuousDefectClosedFromTheMenu();
    void exportProjectWritesTheExchangeFile();

private:
    void newProject(const QString &name);
    void openSection();
    void record();
    // Fills the parameter dialog in hand and declines the snapshot.
    void answerParams(const QStringList &values);
    QString projectDir(const QString &folder) const;

    SurveyRig m_rig;
    BoxAnswerer m_answerer;
    WinCanController *m_wincan = nullptr;
};

void TestWinCanFlow::initTestCase()
{
    QVERIFY(m_rig.unit.isValid());
    m_wincan = WinCanController::instance();
    QVERIFY(m_rig.manager);
}

void TestWinCanFlow::init()
{
    m_rig.screen.recording = false;
    m_rig.resetSurvey();
    m_wincan->setEnabled(false);
    m_wincan->setSectionOpen(false);
    m_wincan->surveyData()->clear();
    CDDatabase::instance()->reset();
    WCCatalogueManager::instance()->setSpecification(WCCatalogueManager::kWCCat_MSCC_5);
    m_rig.plugStorage();
    m_rig.screen.onSaveJpeg = [this](const QString &path, bool) {
        QFile(path).open(QIODevice::WriteOnly);
        m_rig.manager->appendObservation(0, m_rig.screen.counter, ObservationLine::kJpeg, QFileInfo(path).fileName());
    };
    m_rig.screen.calls.clear();
}

QString TestWinCanFlow::projectDir(const QString &folder) const
{
    return m_rig.device + QStringLiteral("/corvane/") + folder + QLatin1Char('/');
}

// Key_WinCan, "New Project", the project form saved.
void TestWinCanFlow::newProject(const QString &name)
{
    m_wincan->button_push();
    m_wincan->menuSelected(1);
    m_wincan->surveyData()->set(QStringLiteral("WCProject"), name);
    m_wincan->surveyData()->set(QStringLiteral("WCProjectDate"), QStringLiteral("23/11/2026"));
    m_wincan->setProjectPath();
}

// The section form's second page saved.
void TestWinCanFlow::openSection()
{
    m_wincan->surveyData()->set(QStringLiteral("PCDStartNode"), QStringLiteral("MH1"));
    m_wincan->surveyData()->set(QStringLiteral("PCDEndNode"), QStringLiteral("MH2"));
    m_wincan->setSectionOpen(true);
}

void TestWinCanFlow::record()
{
    m_rig.manager->handleAction(SurveyManager::kActionRecord, 0);
    QCOMPARE(m_rig.manager->status(), SurveyManager::Recording);
    m_rig.screen.recording = true;
}

void TestWinCanFlow::answerParams(const QStringList &values)
{
    auto *params = m_wincan->findChildren<WCParams *>().last();
    params->process_params(values);
    params->menuSnapshot(0);
}

void TestWinCanFlow::newProjectMakesFolderAndFile_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<QString>("folder");
    QTest::addColumn<int>("specification");
    QTest::addColumn<QString>("catalogue");
    // Unlike an ostra site, a WinCan project keeps its capitals.
    QTest::newRow("words") << "Mill Lane 3" << "Mill_Lane_3.wcs" << int(WCCatalogueManager::kWCCat_MSCC_5) << "MSCC-5";
    QTest::newRow("blanks") << "  " << "unnamed.wcs" << int(WCCatalogueManager::kWCCat_MSCC_3) << "MSCC-3";
    QTest::newRow("domestic") << "Drains" << "Drains.wcs" << int(WCCatalogueManager::kWCCat_MSCC_5_Domestic)
                              << "MSCC-5-Domestic";
}

void TestWinCanFlow::newProjectMakesFolderAndFile()
{
    QFETCH(QString, name);
    QFETCH(QString, folder);
    QFETCH(int, specification);
    QFETCH(QString, catalogue);
    WCCatalogueManager::instance()->setSpecification(specification);
    ConsoleSettings().setValue(QStringLiteral("Project/ID"), QStringLiteral("J-42"));
    QSignalSpy projectForm(m_wincan, &WinCanController::selectWCProjectInfoScreen);
    QSignalSpy sectionForm(m_wincan, &WinCanController::selectWCSectionInfoScreen);

    m_wincan->button_push();
    QCOMPARE(lastShown(m_rig.screen), QStringLiteral("showMenu Select:|Cancel|New Project|Open Project"));
    QCOMPARE(m_rig.manager->type(), SurveyManager::kSurveyType_WINCAN);
    QVERIFY(m_rig.screen.calls.contains(QStringLiteral("setLogo 3")));
    QCOMPARE(ConsoleSettings().value(QStringLiteral("General/survey_mode")).toString(), QStringLiteral("WinCan"));
    m_wincan->menuSelected(1);
    QCOMPARE(projectForm.count(), 1);
    m_wincan->surveyData()->set(QStringLiteral("WCProject"), name);
    m_wincan->surveyData()->set(QStringLiteral("WCProjectDate"), QStringLiteral("23/11/2026"));
    m_wincan->setProjectPath();

    const QString file = projectDir(folder) + QStringLiteral(".project.wdb");
    QCOMPARE(m_wincan->prjDirectory(), projectDir(folder));
    QCOMPARE(fileValue(file, QStringLiteral("Project/ID")), QStringLiteral("J-42"));
    QCOMPARE(fileValue(file, QStringLiteral("Project/cdname")), name);
    QCOMPARE(fileValue(file, QStringLiteral("Project/cddate")), QStringLiteral("23/11/2026"));
    QCOMPARE(fileValue(file, QStringLiteral("Project/catalogcustom")), catalogue);
    QCOMPARE(fileValue(file, QStringLiteral("Project/catalogbase")), QStringLiteral("WRC"));
    QCOMPARE(sectionForm.count(), 1);
    QVERIFY(m_wincan->isEnabled());
}

void TestWinCanFlow::sectionsAreNamedByTheirTimeStamp()
{
    newProject(QStringLiteral("Stamps"));
    openSection();
    m_wincan->surveyData()->set(QStringLiteral("PCDPipeMaterial"), QStringLiteral("Clay"));
    QCOMPARE(m_wincan->prepareDirectory(), 0);

    const QString name = m_wincan->sectionName();
    QVERIFY2(QRegularExpression(QStringLiteral("^\\d{8}-\\d{6}$")).match(name).hasMatch(), qPrintable(name));
    QCOMPARE(m_wincan->directory(), projectDir(QStringLiteral("Stamps.wcs")) + name);
    QCOMPARE(m_wincan->mpg4Path(), m_wincan->directory() + QLatin1Char('/') + name + QStringLiteral("-video.mp4"));
    QCOMPARE(m_wincan->snapshotPath(), m_wincan->directory() + QLatin1Char('/') + name + QStringLiteral("-snap0000.jpg"));
    QCOMPARE(m_wincan->snapshotPath(), m_wincan->directory() + QLatin1Char('/') + name + QStringLiteral("-snap0001.jpg"));
    QCOMPARE(m_wincan->observationfilePath(), m_wincan->directory() + QStringLiteral("/.observations.wdb"));

    const QString section = m_wincan->directory() + QStringLiteral("/.section.wdb");
    QCOMPARE(fileValue(section, QStringLiteral("Section/PCDStartNode")), QStringLiteral("MH1"));
    QCOMPARE(fileValue(section, QStringLiteral("Section/PCDPipeMaterial")), QStringLiteral("Clay"));
    // Empty values are left out.
    QVERIFY(!QSettings(section, QSettings::IniFormat).contains(QStringLiteral("Section/PIDDirection")));
    m_wincan->updateEndNodeRef(QStringLiteral("MH9"));
    QCOMPARE(fileValue(section, QStringLiteral("Section/PCDEndNode")), QStringLiteral("MH9"));
}

void TestWinCanFlow::modeMenusFollowTheProject()
{
    // Not in a project, recording a basic survey: the mode cannot start.
    m_rig.screen.recording = true;
    m_wincan->button_push();
    QCOMPARE(lastShown(m_rig.screen), QStringLiteral("showMessage Note:|Not available while recording"));
    m_rig.screen.recording = false;

    newProject(QStringLiteral("Menus"));
    m_wincan->button_push();
    QCOMPARE(lastShown(m_rig.screen), QStringLiteral("showMenu Select:|Cancel|New Section|Close Project"));

    m_wincan->setSectionOpen(false);
    m_wincan->button_push();
    QCOMPARE(lastShown(m_rig.screen), QStringLiteral("showMenu Select:|Cancel|New Section|Close Project|Insert Map "
                                                     "Overview|Export Project|Finalise Report"));
    QFile(projectDir(QStringLiteral("Menus.wcs")) + QStringLiteral("ReportMap.png")).open(QIODevice::WriteOnly);
    m_wincan->button_push();
    QVERIFY(lastShown(m_rig.screen).contains(QLatin1String("|Replace Map|")));
    m_wincan->menuDeselected(3);
    QCOMPARE(lastShown(m_rig.screen),
             QStringLiteral("showMessage Note:|Follow Instructions in the ostra App to add the Site Overview Map"));

    m_rig.screen.recording = true;
    m_wincan->button_push();
    QCOMPARE(lastShown(m_rig.screen), kObservationMenu);
    m_rig.screen.recording = false;

    // Close Project leaves the mode.
    m_wincan->menuDeselected(2);
    QVERIFY(!m_wincan->isEnabled());
    QCOMPARE(m_rig.manager->type(), SurveyManager::kSurveyType_BASIC);
    QVERIFY(m_rig.screen.calls.contains(QStringLiteral("setLogo 1")));
}

void TestWinCanFlow::statusBarShowsTheSection_data()
{
    QTest::addColumn<QString>("start");
    QTest::addColumn<QString>("direction");
    QTest::addColumn<QString>("end");
    QTest::addColumn<QString>("size");
    QTest::addColumn<QString>("shape");
    QTest::addColumn<bool>("imperial");
    QTest::addColumn<QString>("call");
    QTest::newRow("nothing entered") << "" << "" << "" << "" << "Circular" << false << "showStatusBar |start?|---|end?";
    QTest::newRow("downstream") << "MH1" << "Downstream (D)" << "MH2" << "150" << "Circular" << false
                                << "showStatusBar |MH1|>>>|MH2|150mm|Circular";
    QTest::newRow("upstream in inches") << "MH1" << "Upstream (U)" << "MH2" << "6" << "" << true
                                        << "showStatusBar |MH1|<<<|MH2|6inch|";
    QTest::newRow("unknown direction") << "A" << "Sideways" << "B" << "" << "" << false << "showStatusBar |A|---|B";
}

void TestWinCanFlow::statusBarShowsTheSection()
{
    QFETCH(QString, start);
    QFETCH(QString, direction);
    QFETCH(QString, end);
    QFETCH(QString, size);
    QFETCH(QString, shape);
    QFETCH(bool, imperial);
    QFETCH(QString, call);
    WinCanData *data = m_wincan->surveyData();
    data->set(QStringLiteral("PCDStartNode"), start);
    data->set(QStringLiteral("PIDDirection"), direction);
    data->set(QStringLiteral("PCDEndNode"), end);
    data->set(QStringLiteral("PCDPipeDimension1"), size);
    data->set(QStringLiteral("PCDPipeShape"), shape);
    ConsoleSettings().setValue(QStringLiteral("Coiler/Imperial"), imperial);

    m_wincan->setSectionOpen(true);
    QCOMPARE(m_rig.screen.calls.last(), call);
    m_wincan->setSectionOpen(false);
    QCOMPARE(m_rig.screen.calls.last(), QStringLiteral("hideStatusBar"));
}

void TestWinCanFlow::newSectionClearsNodesAndContinuousDefects()
{
    newProject(QStringLiteral("Again"));
    openSection();
    m_wincan->surveyData()->set(QStringLiteral("PIDDirection"), QStringLiteral("Downstream (D)"));
    m_wincan->setSectionOpen(false);
    CDDatabase::instance()->addEntry(QStringLiteral("DES"), QStringLiteral("5,y"));
    QSignalSpy sectionForm(m_wincan, &WinCanController::selectWCSectionInfoScreen);

    m_wincan->menuDeselected(1);
    QCOMPARE(sectionForm.count(), 1);
    WinCanData *data = m_wincan->surveyData();
    QCOMPARE(data->get(QStringLiteral("PCDStartNode")), QString());
    QCOMPARE(data->get(QStringLiteral("PIDDirection")), QString());
    QCOMPARE(data->get(QStringLiteral("PCDStartDepth")), QStringLiteral("0.0"));
    QCOMPARE(CDDatabase::instance()->getLength(), 0);
    QCOMPARE(ConsoleSettings().value(QStringLiteral("counter/text")).toString(), QStringLiteral("0.00"));
    // The form left with Escape: no section to record into.
    m_wincan->setSectionOpen(false);
    QVERIFY(!m_wincan->sectionOpen());
}

void TestWinCanFlow::openProjectListsWinCanProjects()
{
    const QString root = m_rig.device + QStringLiteral("/corvane/");
    QVERIFY(QDir().mkpath(root + QStringLiteral("North.wcs")));
    QVERIFY(QDir().mkpath(root + QStringLiteral("site.sur")));
    m_wincan->button_push();
    m_wincan->menuSelected(2);
    QCOMPARE(lastShown(m_rig.screen), QStringLiteral("showMenu Select Project To Open:|Cancel|North.wcs"));
    m_wincan->openWCProject(1);
    QVERIFY(m_wincan->isEnabled());
    QCOMPARE(m_wincan->prjDirectory(), root + QStringLiteral("North.wcs/"));
    QCOMPARE(m_wincan->surveyData()->get(QStringLiteral("WCProject")), QStringLiteral("North"));
    QCOMPARE(m_rig.manager->type(), SurveyManager::kSurveyType_WINCAN);

    m_wincan->setEnabled(false);
    m_wincan->button_push();
    m_wincan->menuSelected(2);
    m_wincan->openWCProject(0);
    QVERIFY(!m_wincan->isEnabled());
    QCOMPARE(m_rig.manager->type(), SurveyManager::kSurveyType_BASIC);
}

void TestWinCanFlow::treeCancelGoesOneLevelUp()
{
    newProject(QStringLiteral("Tree"));
    openSection();
    m_rig.screen.recording = true;
    WinCanChain *chain = m_wincan->findChild<WinCanChain *>();
    QVERIFY(chain);
    const QString categories = QStringLiteral("showMenu Catagories:|Cancel|Construction features|Structural|"
                                              "Joints and connections|Service|Survey");

    m_wincan->menuObservation(1);
    QVERIFY2(lastShown(m_rig.screen).startsWith(categories), qPrintable(lastShown(m_rig.screen)));
    chain->menuCatagories(1);
    QVERIFY2(lastShown(m_rig.screen).startsWith(QLatin1String("showMenu Basecodes:|Cancel|Junction|Connection|")),
             qPrintable(lastShown(m_rig.screen)));
    chain->menuBasecodes(7);
    QVERIFY2(lastShown(m_rig.screen).startsWith(QLatin1String("showMenu Char Ext:|Cancel|Start node|Finish node")),
             qPrintable(lastShown(m_rig.screen)));
    chain->menuCharExt1(1);
    QVERIFY2(lastShown(m_rig.screen).startsWith(QLatin1String("showMenu Char Ext:|Cancel|Manhole|Inspection chamber")),
             qPrintable(lastShown(m_rig.screen)));
    chain->menuCharExt2(0);
    QVERIFY(lastShown(m_rig.screen).startsWith(QLatin1String("showMenu Char Ext:|Cancel|Start node|Finish node")));
    chain->menuCharExt1(0);
    QVERIFY(lastShown(m_rig.screen).startsWith(QLatin1String("showMenu Basecodes:|Cancel|Junction|")));
    chain->menuBasecodes(0);
    QVERIFY(lastShown(m_rig.screen).startsWith(categories));
    // At the top the mode menu comes back, which offers the tree again.
    chain->menuCatagories(0);
    QCOMPARE(lastShown(m_rig.screen), kObservationMenu);
}

void TestWinCanFlow::baseCodeWithoutExtensionsAsksItsParameters()
{
    newProject(QStringLiteral("Tree"));
    openSection();
    m_rig.screen.recording = true;
    WinCanChain *chain = m_wincan->findChild<WinCanChain *>();
    m_wincan->menuObservation(1);
    chain->menuCatagories(2);
    chain->menuBasecodes(1);
    QCOMPARE(lastShown(m_rig.screen), QStringLiteral("showParamEntry Code: CC|from o'clock [1-12] *|to o'clock [1-12] *|Remarks "));
}

void TestWinCanFlow::addByCode()
{
    newProject(QStringLiteral("Codes"));
    openSection();
    record();
    m_rig.screen.calls.clear();
    m_wincan->menuObservation(2);
    QCOMPARE(lastShown(m_rig.screen), QStringLiteral("showTextEntry Enter Defect Code||Press Enter to Accept"));
    m_wincan->findChild<WinCanChain *>()->menuCode(1, QStringLiteral("jn"));
    QCOMPARE(lastShown(m_rig.screen), QStringLiteral("showParamEntry Code: JN|at o'clock [1-12] *|Diameter mm|Remarks "));
    answerParams({QStringLiteral("3"), QStringLiteral("100"), QString()});

    // A letter key while recording starts the same entry with that letter.
    m_wincan->text_key(QLatin1Char('C'));
    QCOMPARE(lastShown(m_rig.screen), QStringLiteral("showTextEntry Enter Defect Code|C|Press Enter to Accept"));

    const QStringList lines = SurveyRig::readLines(m_wincan->observationfilePath());
    QVERIFY2(lines.contains(QStringLiteral("0m, CODE, JN, (@0)")), qPrintable(lines.join(QLatin1Char('\n'))));
    QVERIFY2(lines.join(QLatin1Char('\n')).contains(QLatin1String("0m, TEXT, Junction at 3 o'clock diameter 100 mm")),
             qPrintable(lines.join(QLatin1Char('\n'))));
}

void TestWinCanFlow::startQuestionsPerCatalogue_data()
{
    QTest::addColumn<int>("specification");
    QTest::addColumn<QString>("menu");
    QTest::newRow("MSCC-5") << int(WCCatalogueManager::kWCCat_MSCC_5)
                            << "showMenu Start Node Type:|Cancel|Manhole|Inspection chamber|Rodding eye";
    QTest::newRow("MSCC-4") << int(WCCatalogueManager::kWCCat_MSCC_4) << "showMenu Start Node Type:|Cancel|";
    QTest::newRow("MSCC-5 domestic") << int(WCCatalogueManager::kWCCat_MSCC_5_Domestic)
                                     << "showMenu Start Node Type:|Cancel|";
    QTest::newRow("MSCC-3 asks nothing") << int(WCCatalogueManager::kWCCat_MSCC_3) << "";
}

void TestWinCanFlow::startQuestionsPerCatalogue()
{
    QFETCH(int, specification);
    QFETCH(QString, menu);
    WCCatalogueManager::instance()->setSpecification(specification);
    newProject(QStringLiteral("Start"));
    openSection();
    m_rig.screen.calls.clear();
    record();
    QVERIFY(m_rig.screen.calls.contains(QLatin1String("record ") + m_wincan->mpg4Path()));
    if (menu.isEmpty()) {
        QVERIFY2(!m_rig.screen.calls.join(QLatin1Char('\n')).contains(QLatin1String("Node Type")),
                 qPrintable(m_rig.screen.calls.join(QLatin1Char('\n'))));
        return;
    }
    QVERIFY2(lastShown(m_rig.screen).startsWith(menu), qPrintable(lastShown(m_rig.screen)));
    if (specification != WCCatalogueManager::kWCCat_MSCC_5)
        return;
    // A start node type, then the water level.
    m_wincan->findChild<WinCanChain *>()->menuStartUpExt2(1);
    QVERIFY2(lastShown(m_rig.screen).startsWith(QLatin1String("showParamEntry Code: MH|")),
             qPrintable(lastShown(m_rig.screen)));
    answerParams({QStringLiteral("MH1"), QString()});
    QVERIFY2(lastShown(m_rig.screen).startsWith(QLatin1String("showParamEntry Code: WL|")),
             qPrintable(lastShown(m_rig.screen)));
}

void TestWinCanFlow::stopOnMscc3GoesThroughTheEndHeader()
{
    WCCatalogueManager::instance()->setSpecification(WCCatalogueManager::kWCCat_MSCC_3);
    ConsoleSettings().setValue(QStringLiteral("End_Header/Enabled"), true);
    newProject(QStringLiteral("Three"));
    openSection();
    record();
    CDDatabase::instance()->addEntry(QStringLiteral("CL"), QStringLiteral("3,y"));
    m_rig.screen.calls.clear();

    m_wincan->menuObservation(3);
    QVERIFY2(m_rig.screen.calls.contains(QStringLiteral("createEndHeader")), qPrintable(m_rig.screen.calls.join('\n')));
    QVERIFY(!m_rig.screen.calls.join(QLatin1Char('\n')).contains(QLatin1String("Are you sure")));
    QVERIFY(!m_rig.screen.calls.join(QLatin1Char('\n')).contains(QLatin1String("End Node Type")));
    // The header's time runs out: the recording ends, the open defect is not closed.
    QTRY_COMPARE_WITH_TIMEOUT(m_rig.manager->status(), SurveyManager::Idle, 5000);
    QVERIFY(m_rig.screen.calls.contains(QStringLiteral("stop")));
    QCOMPARE(CDDatabase::instance()->getLength(), 1);
    QVERIFY(!m_wincan->sectionOpen());
}

void TestWinCanFlow::stopOnMscc5AsksServiceabilityClosesDefectsAndEnds_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("endText");
    // The finish node's sentence carries the phrase of the row after the one picked; kept.
    QTest::newRow("flowing fine") << 0 << "manhole reference number: MH2  the Pipe is Flowing Fine ,";
    QTest::newRow("failing to discharge") << 1 << "manhole reference number: MH2  there is Evidence of Leakage ,";
    QTest::newRow("unserviceable prints nothing") << 6 << "manhole reference number: MH2  , (@0)";
}

void TestWinCanFlow::stopOnMscc5AsksServiceabilityClosesDefectsAndEnds()
{
    QFETCH(int, row);
    QFETCH(QString, endText);
    newProject(QStringLiteral("Five"));
    openSection();
    record();
    WinCanChain *chain = m_wincan->findChild<WinCanChain *>();
    chain->menuCode(1, QStringLiteral("CL"));
    answerParams({QStringLiteral("3"), QStringLiteral("y"), QString()});
    QCOMPARE(CDDatabase::instance()->getLength(), 1);

    m_rig.manager->handleAction(SurveyManager::kActionStop, 0);
    QCOMPARE(lastShown(m_rig.screen), QStringLiteral("showDialogue Are you sure you want to stop the recording?|No|Yes"));
    // "No": the recording goes on.
    chain->stopDialogue(0);
    QCOMPARE(m_rig.manager->status(), SurveyManager::Recording);
    chain->stopDialogue(1);
    QCOMPARE(lastShown(m_rig.screen), QStringLiteral("showMenu Enter Pipe Serviceability|") +
                                          WinCanChain::serviceabilityRows().join(QLatin1Char('|')));
    chain->serviceabilityDialogue(row);
    QCOMPARE(ConsoleSettings().value(QStringLiteral("WinCan/Serviceability")).toInt(), row);
    QCOMPARE(CDDatabase::instance()->getLength(), 0);
    QVERIFY2(lastShown(m_rig.screen).startsWith(QLatin1String("showMenu End Node Type:|Cancel|Survey Abandon|Manhole|")),
             qPrintable(lastShown(m_rig.screen)));
    chain->menuStopExt2(2);
    QVERIFY2(lastShown(m_rig.screen).startsWith(QLatin1String("showParamEntry Code: MHF|")),
             qPrintable(lastShown(m_rig.screen)));
    answerParams({QStringLiteral("MH2"), QString()});
    QTRY_COMPARE_WITH_TIMEOUT(m_rig.manager->status(), SurveyManager::Idle, 5000);

    const QStringList lines = SurveyRig::readLines(m_wincan->observationfilePath());
    const QString all = lines.join(QLatin1Char('\n'));
    QVERIFY2(all.contains(QLatin1String("CDEF, S1,")) && all.contains(QLatin1String("CDEF, F1,")), qPrintable(all));
    QVERIFY2(all.indexOf(QLatin1String("CDEF, F1,")) < all.indexOf(QLatin1String("CODE, MHF,")), qPrintable(all));
    QVERIFY2(all.contains(endText), qPrintable(all));
}

void TestWinCanFlow::stopOnMscc4HasNoServiceability()
{
    WCCatalogueManager::instance()->setSpecification(WCCatalogueManager::kWCCat_MSCC_4);
    newProject(QStringLiteral("Four"));
    openSection();
    record();
    m_wincan->stopQuestions();
    m_wincan->findChild<WinCanChain *>()->stopDialogue(1);
    QVERIFY2(lastShown(m_rig.screen).startsWith(QLatin1String("showMenu End Node Type:|Cancel|Survey Abandon|")),
             qPrintable(lastShown(m_rig.screen)));
    // Cancel: back to the mode menu while the recording goes on.
    m_wincan->findChild<WinCanChain *>()->menuStopExt2(0);
    QCOMPARE(lastShown(m_rig.screen), kObservationMenu);
    QCOMPARE(m_rig.manager->status(), SurveyManager::Recording);
}

void TestWinCanFlow::continuousDefectClosedFromTheMenu()
{
    newProject(QStringLiteral("Defects"));
    openSection();
    record();
    WinCanChain *chain = m_wincan->findChild<WinCanChain *>();
    chain->menuCode(1, QStringLiteral("CL"));
    answerParams({QStringLiteral("3"), QStringLiteral("y"), QString()});

    m_wincan->menuObservation(4);
    QCOMPARE(lastShown(m_rig.screen), QStringLiteral("showMenu Continuous Defect To End|Cancel|CD1 - CL"));
    chain->CDSelected(1);
    QCOMPARE(CDDatabase::instance()->getLength(), 0);
    const QStringList shown = m_rig.screen.calls;
    QVERIFY2(shown.contains(QStringLiteral("showMessage Note:|Defect Ended")), qPrintable(shown.join('\n')));
    const QString all = SurveyRig::readLines(m_wincan->observationfilePath()).join(QLatin1Char('\n'));
    QVERIFY2(all.contains(QLatin1String("CDEF, F1,")), qPrintable(all));
}

void TestWinCanFlow::exportProjectWritesTheExchangeFile()
{
    newProject(QStringLiteral("Export 1"));
    openSection();
    record();
    m_wincan->findChild<WinCanChain *>()->menuCode(1, QStringLiteral("JN"));
    answerParams({QStringLiteral("3"), QStringLiteral("100"), QString()});
    m_rig.manager->stop();
    m_rig.screen.recording = false;

    m_wincan->button_push();
    m_wincan->menuDeselected(4);
    QCOMPARE(lastShown(m_rig.screen), QStringLiteral("showMessage Note:|WinCan Export Successful"));
    QFile xml(projectDir(QStringLiteral("Export_1.wcs")) + QStringLiteral("Export_1.xml"));
    QVERIFY(xml.open(QIODevice::ReadOnly));
    QXmlStreamReader reader(&xml);
    bool junction = false;
    while (!reader.atEnd()) {
        reader.readNext();
        if (reader.isCharacters() && reader.text().contains(QLatin1String("Junction")))
            junction = true;
    }
    QVERIFY2(!reader.hasError(), qPrintable(reader.errorString()));
    QVERIFY(junction);
}

QTEST_MAIN(TestWinCanFlow)
#include "tst_wincanflow.moc"
