// The WRC question chains of the ostra mode on the fake screen: which menus and
// entries they show, and what each answer leads to.
#include "surveyrig.h"

#include "survey/basic/basiccontroller.h"
#include "survey/corvane/wrcchain.h"
#include "survey/wincan/cddatabase.h"
#include "survey/wincan/wccataloguemanager.h"
#include "survey/wincan/wcparams.h"

#include <QSignalSpy>

class TestWrcChain : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void startNodeRowGivesItsCode_data();
    void startNodeRowGivesItsCode();
    void startNodeLeadsToWaterLevel();
    void endNodeMenu();
    void endNodeRows_data();
    void endNodeRows();
    void lettersAskForACodeOnlyInWrc();
    void typedCodes_data();
    void typedCodes();
    void continuousDefectMenu();
    void missingCatalogueStillEndsTheRecording();

private:
    SurveyRig m_rig;
    WrcChain *m_chain = nullptr;
};

void TestWrcChain::initTestCase()
{
    QVERIFY(m_rig.unit.isValid());
    m_chain = new WrcChain(this);
    m_chain->setVideoScreen(&m_rig.screen);
}

void TestWrcChain::init()
{
    m_rig.resetSurvey();
    m_rig.plugStorage();
    QCOMPARE(m_rig.manager->getReady(), 0);
    CDDatabase::instance()->reset();
    ConsoleSettings settings;
    settings.setValue(QStringLiteral("General/survey_mode"), QStringLiteral("Ostra"));
    settings.setValue(QStringLiteral("SurveyData/WRC"), true);
    WCCatalogueManager::instance()->setSpecification(WCCatalogueManager::kWCCat_MSCC_4);
    m_rig.screen.calls.clear();
}

void TestWrcChain::startNodeRowGivesItsCode_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("title");
    QTest::newRow("manhole") << 0 << "Code: MH";
    QTest::newRow("rodding eye, spelled as the menu has it") << 2 << "Code: RE";
    QTest::newRow("catchpit") << 10 << "Code: CP";
}

void TestWrcChain::startNodeRowGivesItsCode()
{
    QFETCH(int, row);
    QFETCH(QString, title);
    m_chain->startNodeList();
    QCOMPARE(m_rig.screen.calls.value(0), QStringLiteral("dummyEscape"));
    QVERIFY(m_rig.screen.calls.value(1).startsWith(QLatin1String("showMenu Start Node Type:|Manhole(MH)|")));
    m_chain->handleStartNode(row);
    QCOMPARE(m_rig.screen.calls.last(), QStringLiteral("showParamEntry ") + title + QStringLiteral("|Node reference  *|Remarks "));
    QCOMPARE(ConsoleSettings().value(QStringLiteral("SurveyData/startNode")).toString(), WrcChain::nodeList().at(row));
}

void TestWrcChain::startNodeLeadsToWaterLevel()
{
    m_chain->handleStartNode(0);
    auto *params = m_chain->findChildren<WCParams *>().last();
    params->process_params({QStringLiteral("MH7"), QString()});
    params->menuSnapshot(0);
    QCOMPARE(m_rig.screen.calls.last(),
             QStringLiteral("showParamEntry Code: WL|Water level % *|Continuous Defect Y/N|Remarks "));
}

void TestWrcChain::endNodeMenu()
{
    m_chain->showEndQuestions();
    QCOMPARE(m_rig.screen.calls.last(),
             QStringLiteral("showMenu End Node Type:|Cancel|Survey Abandon|Manhole|Inspection Chamber|Rodding Eye|"
                            "Lamphole|Outfall to Watercourse|Catchput|Gully|Oil Seperator|Soakway|Winser Interceptor|"
                            "Major Connection without Manhole|Other Special Chamber"));
}

void TestWrcChain::endNodeRows_data()
{
    QTest::addColumn<int>("row");
    QTest::addColumn<QString>("call");
    QTest::newRow("survey abandoned") << 1 << "showParamEntry Code: SA|Remarks  *";
    QTest::newRow("manhole") << 2 << "showParamEntry Code: MHF|Node reference  *|Remarks ";
    QTest::newRow("other special chamber") << 13 << "showParamEntry Code: OCF|Node reference  *|Remarks ";
}

void TestWrcChain::endNodeRows()
{
    QFETCH(int, row);
    QFETCH(QString, call);
    m_chain->menuStop(row);
    QCOMPARE(m_rig.screen.calls.last(), call);
}

void TestWrcChain::lettersAskForACodeOnlyInWrc()
{
    m_chain->text_key(QLatin1Char('D'));
    QCOMPARE(m_rig.screen.calls.last(), QStringLiteral("showTextEntry Enter Defect Code|D|Press Enter to Accept"));
    m_rig.screen.calls.clear();
    ConsoleSettings().setValue(QStringLiteral("SurveyData/WRC"), false);
    m_chain->text_key(QLatin1Char('D'));
    QVERIFY(m_rig.screen.calls.isEmpty());
}

void TestWrcChain::typedCodes_data()
{
    QTest::addColumn<int>("key");
    QTest::addColumn<QString>("text");
    QTest::addColumn<QString>("call");
    QTest::newRow("lower case") << 1 << "des" << "showParamEntry Code: DES|Cross-sectional area loss %|Continuous Defect Y/N|Remarks ";
    QTest::newRow("nine letters cut to eight") << 1 << "abcdefghi"
        << "showMessage Error:|Can't find Defect code  'ABCDEFGH' (error: -7)[Press OK]";
    QTest::newRow("nothing typed") << 1 << "" << "showMessage Note:|Can't find Defect code ";
}

void TestWrcChain::typedCodes()
{
    QFETCH(int, key);
    QFETCH(QString, text);
    QFETCH(QString, call);
    m_chain->menuCode(key, text);
    QCOMPARE(m_rig.screen.calls.last(), call);
}

void TestWrcChain::continuousDefectMenu()
{
    QSignalSpy back(m_chain, &WrcChain::modeMenuWanted);
    m_chain->menuCode(1, QStringLiteral("DES"));
    auto *params = m_chain->findChildren<WCParams *>().last();
    params->process_params({QStringLiteral("5"), QStringLiteral("y"), QString()});
    params->menuSnapshot(0);
    m_chain->showContDefs();
    QCOMPARE(m_rig.screen.calls.last(), QStringLiteral("showMenu Continuous Defect To End|Cancel|CD1 - DES"));
    m_chain->CDSelected(0);
    QCOMPARE(back.count(), 1);
    m_chain->CDSelected(1);
    QCOMPARE(m_rig.screen.calls.last(), QStringLiteral("showDialogue Defect Ended:|CD1"));
    QCOMPARE(CDDatabase::instance()->getLength(), 0);
    const QStringList lines = SurveyRig::readLines(BasicController::instance()->observationfilePath());
    QVERIFY(lines.contains(QStringLiteral("0m, CDEF, F1, (@0)")));
}

void TestWrcChain::missingCatalogueStillEndsTheRecording()
{
    const QString path = WCCatalogueManager::cataloguePath(WCCatalogueManager::kWCCat_MSCC_5_Domestic);
    QVERIFY(QFile::rename(path, path + QStringLiteral(".away")));
    WCCatalogueManager::instance()->setSpecification(WCCatalogueManager::kWCCat_MSCC_5_Domestic);
    m_chain->showEndQuestions();
    QVERIFY(QFile::rename(path + QStringLiteral(".away"), path));
    QVERIFY(m_rig.screen.calls.contains(QStringLiteral("stop")));
    QCOMPARE(m_rig.manager->status(), SurveyManager::Idle);
}

QTEST_MAIN(TestWrcChain)
#include "tst_wrcchain.moc"
