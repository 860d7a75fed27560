// Coded observations with our real catalogues: the parameter dialog, the sentence
// builder, the block of observation lines and the continuous defects.
#include "surveyrig.h"

#include "core/uikeys.h"
#include "survey/basic/basiccontroller.h"
#include "survey/wincan/cddatabase.h"
#include "survey/wincan/wccatalogue.h"
#include "survey/wincan/wccataloguemanager.h"
#include "survey/wincan/wcparams.h"
#include "widgets/paramentrydialog.h"

#include <memory>

class TestObservationEntry : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void init();

    void unknownSpecificationMeansMscc4();
    void labelsOfTheDialog_data();
    void labelsOfTheDialog();
    void blockOfLines_data();
    void blockOfLines();
    void unknownCodeWritesNothing();
    void serviceabilityIsNotAskedButPrinted_data();
    void serviceabilityIsNotAskedButPrinted();
    void yesStartsAContinuousDefect();
    void fourthWrcContinuousDefectIsNotKept();
    void closingGivesFinishAtTheClosingMeterage();
    void closingTheFirstOfTwoNumbersTheNextThird();
    void openDefectsDoNotSurviveARestart();
    void groupsSortAsTheFileSortsThem();
    void foreignFileIsDroppedNotTrusted();
    void escapeWithOptionalFieldsStillWritesTheBlock();
    void escapeAndOkWaitForMandatoryFields();
    void mandatoryClockAndPercentRanges_data();
    void mandatoryClockAndPercentRanges();
    void nodeFieldsAreFilledIn();
    void sizeKeyStepsThroughThreeSizes();
    void virtualRecordsShiftTheMenuRows();
    void missingCatalogueFileGivesNoCatalogue();

private:
    // Enters `code` with these answers, "No" to the snapshot; returns the lines written.
    QStringList enter(const QString &code, const QStringList &values, int defCode = WCParams::kFreeDefect);
    QStringList lines() const { return SurveyRig::readLines(BasicController::instance()->observationfilePath()); }
    QStringList newLines(const QStringList &before) const { return lines().mid(before.size()); }
    void setMode(const QString &mode, bool wrc = false);

    SurveyRig m_rig;
};

void TestObservationEntry::initTestCase()
{
    QVERIFY(m_rig.unit.isValid());
    // Read once, when the manager is first made.
    ConsoleSettings().setValue(QStringLiteral("Wincan/specification"), 7);
    QCOMPARE(WCCatalogueManager::instance()->specification(), WCCatalogueManager::kWCCat_MSCC_4);
}

void TestObservationEntry::init()
{
    m_rig.resetSurvey();
    m_rig.plugStorage();
    QCOMPARE(m_rig.manager->getReady(), 0);
    CDDatabase::instance()->reset();
    WCCatalogueManager::instance()->setSpecification(WCCatalogueManager::kWCCat_MSCC_5);
    setMode(QStringLiteral("WinCan"));
    m_rig.screen.counter = 0.0f;
}

void TestObservationEntry::setMode(const QString &mode, bool wrc)
{
    ConsoleSettings settings;
    settings.setValue(QStringLiteral("General/survey_mode"), mode);
    settings.setValue(QStringLiteral("SurveyData/WRC"), wrc);
}

QStringList TestObservationEntry::enter(const QString &code, const QStringList &values, int defCode)
{
    const QStringList before = lines();
    QString name = code;
    WCParams params(name);
    params.setVideoScreen(&m_rig.screen);
    params.run(defCode);
    if (defCode < 0 && params.count() > 0) {
        params.process_params(values);
        params.menuSnapshot(0);
    }
    return newLines(before);
}

void TestObservationEntry::unknownSpecificationMeansMscc4()
{
    WCCatalogueManager *manager = WCCatalogueManager::instance();
    manager->setSpecification(9);
    QCOMPARE(manager->specification(), WCCatalogueManager::kWCCat_MSCC_4);
    QCOMPARE(ConsoleSettings().value(QStringLiteral("Wincan/specification")).toInt(), 9);
    manager->setSpecification(WCCatalogueManager::kWCCat_MSCC_5_Domestic);
    QCOMPARE(manager->specification(), WCCatalogueManager::kWCCat_MSCC_5_Domestic);
    QVERIFY(manager->catalogue() == manager->catalogue(WCCatalogueManager::kWCCat_MSCC_5_Domestic));
    QVERIFY(!manager->catalogue(WCCatalogueManager::kWCCat_NONE));
    QVERIFY(!manager->catalogue(WCCatalogueManager::Specification(7)));
}

void TestObservationEntry::labelsOfTheDialog_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("call");
    QTest::newRow("clock pair and continuous") << "B"
        << "showParamEntry Code: B|from o'clock [1-12] *|to o'clock [1-12] *|Continuous Defect Y/N|Remarks ";
    QTest::newRow("area loss") << "DES" << "showParamEntry Code: DES|Cross-sectional area loss %|Continuous Defect Y/N|Remarks ";
    QTest::newRow("unit") << "JN" << "showParamEntry Code: JN|at o'clock [1-12] *|Diameter mm|Remarks ";
    QTest::newRow("serviceability left out") << "MHF" << "showParamEntry Code: MHF|Node reference  *|Remarks ";
    QTest::newRow("water level") << "WL" << "showParamEntry Code: WL|Water level % *|Continuous Defect Y/N|Remarks ";
}

void TestObservationEntry::labelsOfTheDialog()
{
    QFETCH(QString, code);
    QFETCH(QString, call);
    WCParams params(code);
    params.setVideoScreen(&m_rig.screen);
    params.run(WCParams::kFreeDefect);
    QCOMPARE(m_rig.screen.calls.last(), call);
}

void TestObservationEntry::blockOfLines_data()
{
    QTest::addColumn<QString>("code");
    QTest::addColumn<QStringList>("values");
    QTest::addColumn<QStringList>("expected");
    QTest::newRow("template commas are dropped")
        << "DEG" << QStringList{"11", "2", "5", "", "greasy"}
        << QStringList{"0m, CODE, DEG, (@0)",
                       "0m, TEXT, Attached deposits grease from 11 o'clock  to 2 o'clock 5 % cross-sectional area loss  , (@0)",
                       "0m, REMS, greasy, (@0)", "0m, CLKT, 2, (@0)", "0m, CLKF, 11, (@0)", "0m, QANT, 5, (@0)",
                       "0m, QANT, , (@0)", "0m, END, , (@0)"};
    QTest::newRow("one placeholder without a value")
        << "D" << QStringList{"", ""}
        << QStringList{"0m, CODE, D, (@0)", "0m, TEXT, Deformed sewer or drain  , (@0)", "0m, REMS, , (@0)",
                       "0m, CLKT, , (@0)", "0m, CLKF, , (@0)", "0m, QANT, , (@0)", "0m, END, , (@0)"};
    QTest::newRow("start node reference")
        << "MH" << QStringList{"MH01", ""}
        << QStringList{"0m, CODE, MH, (@0)", "0m, TEXT, Start node type manhole reference number: MH01 , (@0)",
                       "0m, REMS, , (@0)", "0m, CLKT, , (@0)", "0m, CLKF, , (@0)", "0m, QANT, MH01, (@0)",
                       "0m, END, , (@0)"};
}

void TestObservationEntry::blockOfLines()
{
    QFETCH(QString, code);
    QFETCH(QStringList, values);
    QFETCH(QStringList, expected);
    QCOMPARE(enter(code, values), expected);
}

void TestObservationEntry::unknownCodeWritesNothing()
{
    QCOMPARE(enter(QStringLiteral("ZZZ"), {}), QStringList());
    QCOMPARE(m_rig.screen.calls.last(),
             QStringLiteral("showMessage Error:|Can't find Defect code  'ZZZ' (error: -7)[Press OK]"));
}

void TestObservationEntry::serviceabilityIsNotAskedButPrinted_data()
{
    QTest::addColumn<QString>("mode");
    QTest::addColumn<int>("stored");
    QTest::addColumn<QString>("sentence");
    // The menu's second row is "Failing to Discharge"; it prints the next phrase. Kept.
    QTest::newRow("second menu row") << "WinCan" << 1
        << "0m, TEXT, Finish node type manhole reference number: 7  there is Evidence of Leakage , (@0)";
    QTest::newRow("unserviceable row prints nothing") << "WinCan" << 6
        << "0m, TEXT, Finish node type manhole reference number: 7  , (@0)";
    QTest::newRow("ostra never prints it") << "Ostra" << 1
        << "0m, TEXT, Finish node type manhole reference number: 7  , (@0)";
}

void TestObservationEntry::serviceabilityIsNotAskedButPrinted()
{
    QFETCH(QString, mode);
    QFETCH(int, stored);
    QFETCH(QString, sentence);
    setMode(mode);
    ConsoleSettings().setValue(QStringLiteral("WinCan/Serviceability"), stored);
    const QStringList written = enter(QStringLiteral("MHF"), {"7", "left open"});
    QCOMPARE(written.value(1), sentence);
    QCOMPARE(written.value(2), QStringLiteral("0m, REMS, left open, (@0)"));
}

void TestObservationEntry::yesStartsAContinuousDefect()
{
    const QStringList written = enter(QStringLiteral("B"), {"10", "2", "y", ""});
    QCOMPARE(written.value(1), QStringLiteral("0m, CDEF, S1, (@0)"));
    QVERIFY2(written.value(2).contains(QLatin1String("to 2 o'clock S1")), qPrintable(written.value(2)));
    CDDatabase *db = CDDatabase::instance();
    QCOMPARE(db->getAllDefects(), QStringList{"CD1"});
    QCOMPARE(db->getCode(QStringLiteral("CD1")), QStringLiteral("B"));
    QCOMPARE(db->getSentence(1), QStringLiteral("from 10 o'clock,to 2 o'clock,S1,"));
}

void TestObservationEntry::fourthWrcContinuousDefectIsNotKept()
{
    setMode(QStringLiteral("Ostra"), true);
    for (int i = 0; i < WCParams::kMaxWrcContinuousDefects; ++i)
        enter(QStringLiteral("DES"), {"5", "Y", ""});
    QCOMPARE(CDDatabase::instance()->getLength(), 3);
    const QStringList fourth = enter(QStringLiteral("DES"), {"10", "Y", ""});
    QCOMPARE(fourth.value(1), QStringLiteral("0m, CDEF, S4, (@0)"));
    QCOMPARE(fourth.value(2), QStringLiteral("0m, TEXT, Settled deposits fine 10 % cross-sectional area loss  , (@0)"));
    QCOMPARE(CDDatabase::instance()->getLength(), 3);
    QVERIFY(m_rig.screen.calls.contains(QStringLiteral("showMessage Note:|Maximum Number of Continuous Defects Reached")));

    // Without the WRC schema an ostra survey keeps none at all.
    CDDatabase::instance()->reset();
    setMode(QStringLiteral("Ostra"), false);
    QCOMPARE(enter(QStringLiteral("DES"), {"5", "Y", ""}).value(1), QStringLiteral("0m, CDEF, S1, (@0)"));
    QCOMPARE(CDDatabase::instance()->getLength(), 0);
}

void TestObservationEntry::closingGivesFinishAtTheClosingMeterage()
{
    m_rig.screen.counter = 2.0f;
    enter(QStringLiteral("CL"), {"12", "y", "hairline"});
    m_rig.screen.counter = 7.5f;
    const QStringList closing = enter(QStringLiteral("CL"), {}, 0);
    QCOMPARE(closing, (QStringList{"7.5m, CODE, CL, (@0)", "7.5m, CDEF, F1, (@0)",
                                   "7.5m, TEXT, Longitudinal crack at 12 o'clock F1 , (@0)",
                                   "7.5m, REMS, hairline, (@0)", "7.5m, CLKT, , (@0)", "7.5m, CLKF, , (@0)",
                                   "7.5m, QANT, 12, (@0)", "7.5m, END, , (@0)"}));
    QCOMPARE(CDDatabase::instance()->getLength(), 0);
}

void TestObservationEntry::closingTheFirstOfTwoNumbersTheNextThird()
{
    enter(QStringLiteral("CL"), {"3", "y", ""});
    enter(QStringLiteral("FL"), {"9", "y", ""});
    enter(QStringLiteral("CL"), {}, 0);
    QCOMPARE(CDDatabase::instance()->getAllDefects(), QStringList{"CD2"});
    const QStringList third = enter(QStringLiteral("FM"), {"1", "4", "y", ""});
    QCOMPARE(third.value(1), QStringLiteral("0m, CDEF, S3, (@0)"));
    QCOMPARE(CDDatabase::instance()->getAllDefects(), (QStringList{"CD2", "CD3"}));
    QCOMPARE(CDDatabase::instance()->getCode(3), QStringLiteral("FM"));
}

void TestObservationEntry::openDefectsDoNotSurviveARestart()
{
    const QString path = m_rig.unit.path(QStringLiteral("/opt/hbi/var/cddb"));
    {
        CDDatabase before(path);
        before.addEntry(QStringLiteral("B"), QStringLiteral("a,b"));
        QCOMPARE(QSettings(path, QSettings::IniFormat).childGroups(), QStringList{"CD1"});
    }
    CDDatabase after(path);
    QCOMPARE(after.getLength(), 0);
    QCOMPARE(after.getIndex(), 0);
}

void TestObservationEntry::groupsSortAsTheFileSortsThem()
{
    CDDatabase *db = CDDatabase::instance();
    for (int i = 1; i <= 10; ++i)
        db->addEntry(QStringLiteral("C%1").arg(i), QString());
    QCOMPARE(db->getAllDefects().mid(0, 3), (QStringList{"CD1", "CD10", "CD2"}));
    db->removeEntry(1);
    QCOMPARE(db->getCode(2), QStringLiteral("C2"));
    // "CD1" is gone, and so are "CD12", "CD123", ...: the search gives up instead of hanging.
    QVERIFY(db->getCode(1).isEmpty());
    QVERIFY(db->getCode(99).isEmpty());
}

void TestObservationEntry::foreignFileIsDroppedNotTrusted()
{
    // A string list claiming four thousand million entries: decoding it would
    // ask for all the memory there is.
    const QString path = m_rig.unit.path(QStringLiteral("/opt/hbi/var/cddb"));
    CDDatabase db(path);
    QFile file(path);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.write("[CD1]\ncode=B\nsentence=@Variant(\\0\\0\\0\\xb\\xff\\xff\\xff\\xff)\n");
    file.close();
    QVERIFY(db.getSentence(1).isEmpty());
    QCOMPARE(db.getLength(), 0);
    QVERIFY(!QFile::exists(path));
    // What an operator types is kept, even when it looks like that.
    db.addEntry(QStringLiteral("B"), QStringLiteral("@Variant(x)"));
    QCOMPARE(db.getSentence(1), QStringLiteral("@Variant(x)"));
}

void TestObservationEntry::escapeWithOptionalFieldsStillWritesTheBlock()
{
    QString code = QStringLiteral("LL");
    WCParams params(code);
    params.setVideoScreen(&m_rig.screen);
    params.run(WCParams::kFreeDefect);
    ParamEntryDialog dialog(nullptr, &params, SLOT(process_params(QStringList)), QStringLiteral("Code: LL"),
                            {QStringLiteral("Remarks ")});
    QSignalSpy answered(&dialog, &ParamEntryDialog::entered);
    QTest::keyClick(&dialog, Qt::Key_Escape);
    QCOMPARE(answered.count(), 1);
    QCOMPARE(answered.first().first().toStringList(), QStringList());
    QCOMPARE(m_rig.screen.calls.last(), QStringLiteral("showMenu Add Snapshot?|No|Yes"));
    const QStringList before = lines();
    params.menuSnapshot(0);
    const QStringList written = newLines(before);
    QCOMPARE(written.value(0), QStringLiteral("0m, CODE, LL, (@0)"));
    QCOMPARE(written.value(1), QStringLiteral("0m, TEXT, Line deviates left , (@0)"));
    QCOMPARE(written.last(), QStringLiteral("0m, END, , (@0)"));
}

void TestObservationEntry::escapeAndOkWaitForMandatoryFields()
{
    ParamEntryDialog dialog(nullptr, nullptr, nullptr, QStringLiteral("Code: SA"), {QStringLiteral("Remarks *")});
    QSignalSpy answered(&dialog, &ParamEntryDialog::entered);
    QVERIFY(dialog.isMandatory(0));
    QTest::keyClick(&dialog, Qt::Key_Escape);
    QTest::keyClick(&dialog, Qt::Key_Return);
    QCOMPARE(answered.count(), 0);
    auto *edit = dialog.findChild<QLineEdit *>(QStringLiteral("0"));
    QVERIFY(edit);
    edit->setText(QStringLiteral("blocked by roots"));
    QTest::keyClick(&dialog, Qt::Key_Return);
    QCOMPARE(answered.count(), 1);
    QCOMPARE(answered.first().first().toStringList(), QStringList{"blocked by roots"});
}

void TestObservationEntry::mandatoryClockAndPercentRanges_data()
{
    QTest::addColumn<QString>("label");
    QTest::addColumn<QString>("text");
    QTest::addColumn<bool>("valid");
    const QString clock = QStringLiteral("at o'clock [1-12] *");
    QTest::newRow("clock 0") << clock << "0" << false;
    QTest::newRow("clock 13") << clock << "13" << false;
    QTest::newRow("clock 1") << clock << "1" << true;
    QTest::newRow("clock 12") << clock << "12" << true;
    QTest::newRow("clock word") << clock << "twelve" << false;
    QTest::newRow("percent 100") << "Water level % *" << "100" << true;
    QTest::newRow("percent 101") << "Water level % *" << "101" << false;
    QTest::newRow("node reference is text") << "Node reference *" << "MH 4/A" << true;
    QTest::newRow("number with sign") << "Diameter mm *" << "-5" << false;
}

void TestObservationEntry::mandatoryClockAndPercentRanges()
{
    QFETCH(QString, label);
    QFETCH(QString, text);
    QFETCH(bool, valid);
    ParamEntryDialog dialog(nullptr, nullptr, nullptr, QStringLiteral("Code: X"), {label});
    QCOMPARE(dialog.okHint(), QStringLiteral(" "));
    dialog.findChild<QLineEdit *>(QStringLiteral("0"))->setText(text);
    QCOMPARE(dialog.validate(), valid);
    QCOMPARE(dialog.okHint(), valid ? QStringLiteral("Press OK to Confirm") : QStringLiteral(" "));
}

void TestObservationEntry::nodeFieldsAreFilledIn()
{
    ConsoleSettings settings;
    settings.setValue(QStringLiteral("General/survey_mode"), QStringLiteral("Ostra"));
    settings.setValue(QStringLiteral("SurveyData/Start"), QStringLiteral("MH1"));
    settings.setValue(QStringLiteral("SurveyData/End"), QStringLiteral("MH2"));
    settings.setValue(QStringLiteral("SurveyData/startRemarks"), QStringLiteral("lid stuck"));
    settings.setValue(QStringLiteral("SurveyData/waterLevel"), QStringLiteral("10"));
    ParamEntryDialog start(nullptr, nullptr, nullptr, QStringLiteral("Code: MH"),
                           {QStringLiteral("Node reference *"), QStringLiteral("Remarks ")});
    QCOMPARE(start.texts(), (QStringList{"MH1", "lid stuck"}));
    QCOMPARE(start.obsCode(), QStringLiteral("MH"));
    // The water level's own dialog, after the start node's, is filled in too.
    ParamEntryDialog level(nullptr, nullptr, nullptr, QStringLiteral("Code: WL"),
                           {QStringLiteral("Water level % *"), QStringLiteral("Remarks ")});
    QCOMPARE(level.texts(), (QStringList{"10", ""}));
    QVERIFY(!settings.value(QStringLiteral("WinCanData/startFlag")).toBool());
    ParamEntryDialog finish(nullptr, nullptr, nullptr, QStringLiteral("Code: MHF"),
                            {QStringLiteral("Node reference *"), QStringLiteral("Remarks ")});
    QCOMPARE(finish.texts(), (QStringList{"MH2", ""}));
}

void TestObservationEntry::sizeKeyStepsThroughThreeSizes()
{
    ParamEntryDialog dialog(nullptr, nullptr, nullptr, QStringLiteral("Code: LL"), {QStringLiteral("Remarks ")});
    QList<int> sizes;
    for (int i = 0; i < 3; ++i) {
        QTest::keyClick(&dialog, Qt::Key(Ui::Key_Size));
        sizes << dialog.pointSize();
    }
    QCOMPARE(sizes, (QList<int>{34, 44, 24}));
    QCOMPARE(dialog.textSize(), ParamEntryDialog::kDialogTextSmall);
}

void TestObservationEntry::virtualRecordsShiftTheMenuRows()
{
    WCCatalogue *catalogue = WCCatalogueManager::instance()->catalogue(WCCatalogueManager::kWCCat_MSCC_5);
    QVERIFY(catalogue);
    WCCatCodeClass *structural = catalogue->getCatagoryClass(1);
    const QStringList rows = catalogue->getBaseCodesStringList(structural);
    QVERIFY(!rows.contains(QStringLiteral("Collapse")));
    const int row = rows.indexOf(QStringLiteral("Collapse, pipe"));
    QCOMPARE(row, 9);
    // The row counts in the filtered list, the getter in the full one: kept.
    QCOMPARE(QString::fromWCharArray(catalogue->getBasecode(structural, row)->Code), QStringLiteral("X"));
    QVERIFY(catalogue->getCharExt1StringList(catalogue->getBasecode(structural, 0)).isEmpty());
    QVERIFY(catalogue->approxMemUsage() > 0);
}

void TestObservationEntry::missingCatalogueFileGivesNoCatalogue()
{
    const QString path = WCCatalogueManager::cataloguePath(WCCatalogueManager::kWCCat_MSCC_3);
    QVERIFY(QFile::rename(path, path + QStringLiteral(".away")));
    WCCatalogueManager::instance()->setSpecification(WCCatalogueManager::kWCCat_MSCC_3);
    QVERIFY(!WCCatalogueManager::instance()->catalogue());
    QCOMPARE(enter(QStringLiteral("WL"), {}), QStringList());
    QCOMPARE(m_rig.screen.calls.last(),
             QStringLiteral("showMessage Error:|Can't find Defect code  'WL' (error: -4)[Press OK]"));
    QVERIFY(QFile::rename(path + QStringLiteral(".away"), path));
    QVERIFY(WCCatalogueManager::instance()->catalogue());
}

QTEST_MAIN(TestObservationEntry)
#include "tst_observationentry.moc"
