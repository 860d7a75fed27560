#include "core/consolesettings.h"
#include "support/testunit.h"
#include "survey/corvane/corvanedata.h"
#include "survey/observationline.h"
#include "survey/surveypaths.h"
#include "survey/wincan/wincandata.h"

#include <QTemporaryDir>
#include <QDir>
#include <QFileInfo>
#include <QtTest>

// The live survey fields, the folder names made from them and the one line
// format every observation is written in.
class TestSurveyData : public QObject
{
    Q_OBJECT

private slots:
    void init();

    void clearKeepsKeysButListsNone();
    void listFollowsHeaderOrderAndMatchesBySubstring();
    void winCanListsOnlyFilledFields();

    void folderName_data();
    void folderName();
    void modeDirectories();
    void sectionsInOneSecondKeepApart();

    void observationLine_data();
    void observationLine();

private:
    TestUnit m_unit;
};

void TestSurveyData::init()
{
    QVERIFY(m_unit.isValid());
    ConsoleSettings settings;
    settings.clear();
    settings.sync();
}

void TestSurveyData::clearKeepsKeysButListsNone()
{
    CorvaneData data;
    data.set(QStringLiteral("SiteName"), QStringLiteral("A"));
    data.set(QStringLiteral("Operator"), QStringLiteral("B"));
    WinCanData().set(QStringLiteral("WCProject"), QStringLiteral("kept"));

    data.clear();

    ConsoleSettings settings;
    settings.beginGroup(QStringLiteral("SurveyData"));
    QCOMPARE(settings.childKeys(), (QStringList{QStringLiteral("Operator"), QStringLiteral("SiteName")}));
    QCOMPARE(settings.value(QStringLiteral("SiteName")).toString(), QString());
    settings.endGroup();
    QVERIFY(data.toStringList().isEmpty());
    QCOMPARE(WinCanData().get(QStringLiteral("WCProject")), QStringLiteral("kept"));
}

void TestSurveyData::listFollowsHeaderOrderAndMatchesBySubstring()
{
    CorvaneData data;
    data.set(QStringLiteral("Size"), QStringLiteral("150"));
    data.set(QStringLiteral("LiningMaterial"), QStringLiteral("PE"));
    data.set(QStringLiteral("Material"), QStringLiteral("VC"));
    data.set(QStringLiteral("Unlisted"), QStringLiteral("x"));
    data.set(QStringLiteral("Operator"), QStringLiteral("   "));
    data.set(QStringLiteral("startNode"), QStringLiteral("S1"));
    data.set(QStringLiteral("SiteName"), QStringLiteral("Yard"));

    // "LiningMaterial" is listed under "Material" and again under its own name;
    // "Start" does not match "startNode" (case counts); a blank value is no value.
    QCOMPARE(data.toStringList(), (QStringList{QStringLiteral("SiteName"), QStringLiteral("startNode"),
                                               QStringLiteral("LiningMaterial"), QStringLiteral("Material"),
                                               QStringLiteral("Size"), QStringLiteral("LiningMaterial")}));
}

void TestSurveyData::winCanListsOnlyFilledFields()
{
    WinCanData data;
    data.set(QStringLiteral("PCDStartNode"), QStringLiteral("MH1"));
    data.set(QStringLiteral("WCProject"), QStringLiteral("Job 7"));
    data.set(QStringLiteral("PCDEndNode"), QString());
    QCOMPARE(data.toStringList(), (QStringList{QStringLiteral("WCProject"), QStringLiteral("PCDStartNode")}));

    data.set(QStringLiteral("PCDEndNode"), QStringLiteral("MH2"));
    QVERIFY(data.toStringList().contains(QStringLiteral("PCDEndNode")));
}

void TestSurveyData::folderName_data()
{
    QTest::addColumn<QString>("name");
    QTest::addColumn<bool>("lowerCase");
    QTest::addColumn<QString>("folder");

    QTest::newRow("Corvane lower-cases and trims") << " High Street " << true << "high_street";
    QTest::newRow("WinCan keeps case") << "Job 7/B" << false << "Job_7_B";
    QTest::newRow("empty") << "" << true << "unnamed";
    QTest::newRow("blanks only") << "   " << false << "unnamed";
    QTest::newRow("Latin-1 letter is not plain alphanumeric") << QStringLiteral("Caf\u00e9") << true << "caf_";
    QTest::newRow("outside Latin-1") << QStringLiteral("A\u20acB") << false << "A_B";
    QTest::newRow("dots and dashes") << "a.b-c" << false << "a_b_c";
}

void TestSurveyData::folderName()
{
    QFETCH(QString, name);
    QFETCH(bool, lowerCase);
    QFETCH(QString, folder);
    QCOMPARE(SurveyPaths::folderName(name, lowerCase), folder);
}

void TestSurveyData::modeDirectories()
{
    const QDateTime when(QDate(2024, 3, 5), QTime(14, 7, 9));
    QCOMPARE(SurveyPaths::basicSectionDirectory(QStringLiteral("/media/usb1"), when),
             QStringLiteral("/media/usb1/corvane/survey.bas/20240305-140709"));
    QCOMPARE(SurveyPaths::corvaneProjectDirectory(QStringLiteral("/media/usb1"), QStringLiteral("Site A")),
             QStringLiteral("/media/usb1/corvane/site_a.sur/"));
    QCOMPARE(SurveyPaths::winCanProjectDirectory(QStringLiteral("/media/sd"), QStringLiteral("Site A")),
             QStringLiteral("/media/sd/corvane/Site_A.wcs/"));
    QCOMPARE(SurveyPaths::corvaneSectionFolder(1), QStringLiteral("section_1"));
    QCOMPARE(SurveyPaths::winCanSectionFolder(QStringLiteral("/media/sd/corvane/Site_A.wcs/"), when),
             QStringLiteral("20240305-140709"));
    QVERIFY(SurveyPaths::isProjectFolder(QStringLiteral("site_a.sur")));
    QVERIFY(SurveyPaths::isProjectFolder(QStringLiteral("Site_A.wcs")));
    QVERIFY(!SurveyPaths::isProjectFolder(QStringLiteral("survey.bas")));
}

void TestSurveyData::sectionsInOneSecondKeepApart()
{
    QTemporaryDir device;
    const QDateTime when(QDate(2024, 3, 5), QTime(14, 7, 59));
    const QString first = SurveyPaths::basicSectionDirectory(device.path(), when);
    QVERIFY(QDir().mkpath(first));
    QCOMPARE(QFileInfo(SurveyPaths::basicSectionDirectory(device.path(), when)).fileName(),
             QStringLiteral("20240305-140800"));

    const QString project = SurveyPaths::winCanProjectDirectory(device.path(), QStringLiteral("Mill Lane"));
    QVERIFY(QDir().mkpath(project + SurveyPaths::winCanSectionFolder(project, when)));
    QVERIFY(QDir().mkpath(project + QStringLiteral("20240305-140800")));
    QCOMPARE(SurveyPaths::winCanSectionFolder(project, when), QStringLiteral("20240305-140801"));
}

void TestSurveyData::observationLine_data()
{
    QTest::addColumn<float>("counter");
    QTest::addColumn<bool>("imperial");
    QTest::addColumn<QString>("type");
    QTest::addColumn<QString>("text");
    QTest::addColumn<quint64>("position");
    QTest::addColumn<QString>("line");

    QTest::newRow("snapshot") << 12.5f << false << "JPEG" << "Snap0003.jpg" << quint64(0)
                              << "12.5m, JPEG, Snap0003.jpg, (@0)\r\n";
    QTest::newRow("empty remarks keep their separators") << 1.0f << false << "REMS" << "" << quint64(40)
                                                         << "1m, REMS, , (@40)\r\n";
    QTest::newRow("newlines become blanks") << 0.0f << false << "TEXT" << "root\nmass\r\nat joint" << quint64(0)
                                            << "0m, TEXT, root mass at joint, (@0)\r\n";
    QTest::newRow("six significant digits") << 1234567.0f << false << "TEXT" << "far" << quint64(0)
                                            << "1.23457e+06m, TEXT, far, (@0)\r\n";
    QTest::newRow("feet") << 3.25f << true << "CODE" << "DEF" << quint64(7) << "3.25ft, CODE, DEF, (@7)\r\n";
    QTest::newRow("largest position") << 2.0f << false << "END" << "" << quint64(18446744073709551615ULL)
                                      << "2m, END, , (@18446744073709551615)\r\n";
}

void TestSurveyData::observationLine()
{
    QFETCH(float, counter);
    QFETCH(bool, imperial);
    QFETCH(QString, type);
    QFETCH(QString, text);
    QFETCH(quint64, position);
    QFETCH(QString, line);
    QCOMPARE(ObservationLine::format(counter, imperial, type, text, position), line);
}

QTEST_GUILESS_MAIN(TestSurveyData)
#include "tst_surveydata.moc"
