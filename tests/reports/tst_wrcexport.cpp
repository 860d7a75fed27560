// The WRC exchange file from project folders written by hand: every file is read
// back with a real XML parser, which fails the test on anything ill-formed.
#include "core/consolesettings.h"
#include "reports/wrcexport.h"
#include "support/logcapture.h"
#include "support/projecttree.h"
#include "support/testunit.h"
#include "support/xmltree.h"

#include <QXmlStreamReader>
#include <QtTest>
#include <ctime>

namespace {

const QString kXmlFile = QStringLiteral("Oak_Road.xml");

// The order of the schema's header.
const QStringList kHeaderOrder = {
    "Client",           "NameOfSurveyor",    "ClientsJobRef",  "PipelineLengthRef", "Date",
    "Time",             "LocationStreet",    "LocationTown",   "StartNodeRef",      "Node1Ref",
    "DepthAtStartNode", "FinishNodeRef",     "DepthAtFinishNode", "TypeOfDrainSewer", "Direction",
    "UseOfDrainSewer",  "Shape",             "Material",       "LiningMaterial",    "Precleaned",
    "GeneralRemarks",   "FlowControlMeasures", "Weather",      "MethodOfInspection", "Standard",
    "HeightDiameter",   "VideoImageFilename"};

const QVariantMap kFullProject = {{"Site Name", "Oak Road"},  {"Client", "Riverside Homes"},
                                  {"Operator", "Jo Bloggs"},  {"Reference", "J-42"},
                                  {"Address", " 12 Oak Road "}, {"TownName", "Leeds"},
                                  {"Weather", "Dry (A)"}};
const QVariantMap kFullSection = {
    {"PipelineRef", "P1"},        {"Date", "23/11/26"},          {"Time", "15:55"},
    {"Start", " MH1 "},           {"Invert", "1.20"},            {"End", "MH2"},
    {"EDepth", "1.45"},           {"Type", "Public (A)"},        {"Direction", "Downstream (D)"},
    {"Duty", "Foul (F)"},         {"Shape", "Circular (C)"},     {"Material", "Vitrified Clay (VC)"},
    {"LiningMaterial", "None (N)"}, {"Precleaned", "No (N)"},    {"Comments", " Roots at MH2 "},
    {"Flow", "None (N)"},         {"Method", "CCTV (A)"},        {"Size", "150mm"}};

// One survey of the file as its header's "element=text" pairs and its
// observations, each as "element=text|element=text..." in file order.
struct Survey {
    QStringList header;
    QStringList observations;

    QString headerValue(const QString &element) const
    {
        for (const QString &pair : header) {
            if (pair.startsWith(element + '='))
                return pair.mid(element.size() + 1);
        }
        return QString();
    }
    QStringList headerElements() const
    {
        QStringList names;
        for (const QString &pair : header)
            names << pair.section('=', 0, 0);
        return names;
    }
};

// Reads a WRC file through; an error of the parser is the first entry of `error`.
QList<Survey> parse(const QByteArray &xml, QString *error)
{
    QList<Survey> surveys;
    for (const XmlNode &survey : XmlNode::parse(xml, error).all("Survey")) {
        QStringList observations;
        for (const XmlNode &observation : survey.first("Observations").all("Observation"))
            observations << observation.flattened().join('|');
        surveys << Survey{survey.first("Header").fields(), observations};
    }
    return surveys;
}

} // namespace

class TestWrcExport : public QObject
{
    Q_OBJECT

    TestUnit m_unit;

    // Exports the project and reads the file back; a file that does not parse fails the test.
    static QList<Survey> exported(const ProjectTree &tree, const QString &fileName = kXmlFile)
    {
        WRCExport exporter(tree.path());
        if (!exporter.WRCExport_Start())
            return {};
        QString error;
        const QByteArray xml = ProjectTree::readFile(tree.path() + fileName);
        const QList<Survey> surveys = parse(xml, &error);
        if (!error.isEmpty())
            qWarning().noquote() << "Not well-formed:" << error << '\n' << xml;
        return error.isEmpty() ? surveys : QList<Survey>{};
    }

    static Survey onlySurvey(const ProjectTree &tree, const QString &fileName = kXmlFile)
    {
        const QList<Survey> surveys = exported(tree, fileName);
        return surveys.size() == 1 ? surveys.first() : Survey{{"<not one survey>"}, {}};
    }

    static void setImperial(bool imperial) { ConsoleSettings().setValue("Coiler/Imperial", imperial); }

private slots:
    void initTestCase()
    {
        QVERIFY(m_unit.isValid());
        // The video reference is a clock time in the local zone; pin the zone.
        qputenv("TZ", "UTC");
        tzset();
    }
    void init() { setImperial(false); }

    void documentStartsWithStylesheetAndNamespaces()
    {
        ProjectTree tree;
        tree.setProject(kFullProject);
        QVERIFY(WRCExport(tree.path()).WRCExport_Start());
        QXmlStreamReader reader(ProjectTree::readFile(tree.path() + kXmlFile));
        reader.setNamespaceProcessing(false);
        QCOMPARE(reader.readNext(), QXmlStreamReader::StartDocument);
        QCOMPARE(reader.documentVersion().toString(), QString("1.0"));
        QCOMPARE(reader.readNext(), QXmlStreamReader::ProcessingInstruction);
        QCOMPARE(reader.processingInstructionTarget().toString(), QString("xml-stylesheet"));
        QCOMPARE(reader.processingInstructionData().toString(),
                 QString("type=\"text/xsl\" href=\"http://www.wrcplc.co.uk/srm/schemas/"
                         "mscc5_cctv_stylesheet_final_draft.xsl\""));
        QVERIFY(reader.readNextStartElement());
        QCOMPARE(reader.name().toString(), QString("SurveyGroup"));
        QStringList attributes;
        for (const QXmlStreamAttribute &attribute : reader.attributes())
            attributes << attribute.qualifiedName().toString() + '=' + attribute.value().toString();
        QCOMPARE(attributes, QStringList({"xmlns=http://www.wrcplc.co.uk/srm/mscc",
                                          "xmlns:xsi=http://www.w3.org/2001/XMLSchema-instance",
                                          "xmlns:schemalocation=http://www.wrcplc.co.uk/srm/schemas/"
                                          "mscc5_cctv_final_draft.xsd"}));
        // No sections: an empty group that still parses.
        reader.skipCurrentElement();
        while (!reader.atEnd())
            reader.readNext();
        QVERIFY2(!reader.hasError(), qPrintable(reader.errorString()));
    }

    void fileNameFromSiteName_data()
    {
        QTest::addColumn<QVariant>("siteName");
        QTest::addColumn<QString>("fileName");
        QTest::newRow("case and outer blanks kept") << QVariant(" Oak Road") << "_Oak_Road.xml";
        QTest::newRow("punctuation") << QVariant("A&B/12") << "A_B_12.xml";
        QTest::newRow("no site name") << QVariant() << "unnamed.xml";
    }
    void fileNameFromSiteName()
    {
        QFETCH(QVariant, siteName);
        QFETCH(QString, fileName);
        ProjectTree tree;
        if (siteName.isValid())
            tree.setProject({{"Site Name", siteName}});
        QVERIFY(WRCExport(tree.path()).WRCExport_Start());
        QVERIFY2(QFile::exists(tree.path() + fileName), qPrintable(QDir(tree.path()).entryList().join(' ')));
    }

    void headerInTheSchemasOrder()
    {
        ProjectTree tree;
        tree.setProject(kFullProject);
        tree.addSection("section_1", kFullSection,
                        {"4.1m, CODE, CXI, (@65000)", "4.1m, TEXT, Crack, (@65000)", "4.3m, JPEG, Snap0001.jpg, (@0)",
                         "4.1m, REMS, near joint, (@65000)", "4.1m, CLKT, 9, (@65000)", "4.1m, CLKF, 3, (@65000)",
                         "4.1m, QANT, 100, (@65000)", "4.1m, QANT, 20, (@65000)", "4.1m, END, , (@65000)"});
        const Survey survey = onlySurvey(tree);
        // A whole file for a human to look at.
        const QString copy = TestUnit::artifactsDir("tst_wrcexport") + '/' + kXmlFile;
        QFile::remove(copy);
        QFile::copy(tree.path() + kXmlFile, copy);
        QCOMPARE(survey.observations,
                 QStringList{"VideoRef=00:01:05|PhotographRefs=|PhotographRef=section_1\\Snap0001.jpg|Distance=4.1"
                             "|Code=CXI|Dimension1=100|Percentage=20|ClockRefAtFrom=3|ClockRefTo=9|Remarks=near joint"});
        QCOMPARE(survey.headerElements(), kHeaderOrder);
        QCOMPARE(survey.header,
                 QStringList({"Client=Riverside Homes", "NameOfSurveyor=Jo Bloggs", "ClientsJobRef=J-42",
                              "PipelineLengthRef=P1", "Date=23/11/26", "Time=15:55", "LocationStreet=12 Oak Road",
                              "LocationTown=Leeds", "StartNodeRef=MH1", "Node1Ref=MH1", "DepthAtStartNode=1.20",
                              "FinishNodeRef=MH2", "DepthAtFinishNode=1.45", "TypeOfDrainSewer=A", "Direction=D",
                              "UseOfDrainSewer=F", "Shape=C", "Material=VC", "LiningMaterial=N", "Precleaned=N",
                              "GeneralRemarks=Roots at MH2", "FlowControlMeasures=N", "Weather=A",
                              "MethodOfInspection=A", "Standard=MSCC-5 Domestic", "HeightDiameter=150",
                              "VideoImageFilename=section_1\\video.mp4"}));
    }

    void emptyFilesGiveTheErrorDefaults()
    {
        ProjectTree tree;
        tree.addSection("section_1", {}, {});
        QCOMPARE(onlySurvey(tree, "unnamed.xml").header,
                 QStringList({"PipelineLengthRef=ERROR", "Date=ERROR", "Time=ERROR", "LocationStreet=ERROR",
                              "LocationTown=ERROR", "StartNodeRef=ERROR", "Node1Ref=ERROR", "FinishNodeRef=ERROR",
                              "Direction=ERROR", "Precleaned=ERROR", "GeneralRemarks=ERROR",
                              "MethodOfInspection=ERROR", "Standard=MSCC-5 Domestic", "HeightDiameter=0",
                              "VideoImageFilename=section_1\\video.mp4"}));
    }

    void headerConversions_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QVariant>("stored");
        QTest::addColumn<QString>("element");
        QTest::addColumn<QString>("text"); // null: the element is left out

        QTest::newRow("(F) gives F") << "Duty" << QVariant("(F)") << "UseOfDrainSewer" << "F";
        QTest::newRow("selection gives its code") << "Material" << QVariant("Vitrified Clay (VC)") << "Material" << "VC";
        QTest::newRow("( without ) left alone")
            << "Direction" << QVariant("Up (stream") << "Direction" << "Up (stream";
        QTest::newRow("plain text left alone") << "Precleaned" << QVariant("Yes") << "Precleaned" << "Yes";
        QTest::newRow("empty PipelineRef gives 0") << "PipelineRef" << QVariant("") << "PipelineLengthRef" << "0";
        QTest::newRow("blank PipelineRef gives 0") << "PipelineRef" << QVariant("  ") << "PipelineLengthRef" << "0";
        QTest::newRow("PipelineRef trimmed") << "PipelineRef" << QVariant(" P 12 ") << "PipelineLengthRef" << "P 12";
        QTest::newRow("size 150mm") << "Size" << QVariant("150mm") << "HeightDiameter" << "150";
        QTest::newRow("size 225 x 300mm") << "Size" << QVariant("225 x 300mm") << "HeightDiameter" << "225  300";
        QTest::newRow("size in capitals") << "Size" << QVariant("6 IN") << "HeightDiameter" << "6 ";
        QTest::newRow("depth as stored") << "Invert" << QVariant("1.50") << "DepthAtStartNode" << "1.50";
        QTest::newRow("depth not a number") << "Invert" << QVariant("deep") << "DepthAtStartNode" << QString();
        QTest::newRow("end depth empty") << "EDepth" << QVariant("") << "DepthAtFinishNode" << QString();
        QTest::newRow("type present but empty gives 0") << "Type" << QVariant("") << "TypeOfDrainSewer" << "0";
        QTest::newRow("flow present but empty gives 0") << "Flow" << QVariant("") << "FlowControlMeasures" << "0";
        QTest::newRow("use blank is left out") << "Duty" << QVariant("  ") << "UseOfDrainSewer" << QString();
        QTest::newRow("shape blank is left out") << "Shape" << QVariant(" ") << "Shape" << QString();
        QTest::newRow("remarks blank are left out") << "Comments" << QVariant(" ") << "GeneralRemarks" << QString();
        QTest::newRow("material blank is left out") << "Material" << QVariant("") << "Material" << QString();
        QTest::newRow("comma in a remark") << "Comments" << QVariant("roots, silt") << "GeneralRemarks" << "roots, silt";
        QTest::newRow("markup characters escaped") << "Comments" << QVariant("<a & b>") << "GeneralRemarks" << "<a & b>";
    }
    void headerConversions()
    {
        QFETCH(QString, key);
        QFETCH(QVariant, stored);
        QFETCH(QString, element);
        QFETCH(QString, text);
        ProjectTree tree;
        tree.setProject(kFullProject);
        QVariantMap section = kFullSection;
        section[key] = stored;
        tree.addSection("section_1", section, {});
        const Survey survey = onlySurvey(tree);
        QCOMPARE(survey.headerElements().contains(element), !text.isNull());
        QCOMPARE(survey.headerValue(element), text);
    }

    void missingProjectFieldsAreLeftOut()
    {
        ProjectTree tree;
        tree.setProject({{"Site Name", "Oak Road"}, {"Client", " "}});
        tree.addSection("section_1", kFullSection, {});
        const QStringList elements = onlySurvey(tree).headerElements();
        for (const QString &element : QStringList{"Client", "NameOfSurveyor", "ClientsJobRef", "Weather"})
            QVERIFY2(!elements.contains(element), qPrintable(element));
        QCOMPARE(elements.first(), QString("PipelineLengthRef"));
    }

    void observations_data()
    {
        QTest::addColumn<bool>("imperial");
        QTest::addColumn<QStringList>("lines");
        QTest::addColumn<QStringList>("observations");

        const auto block = [](const QString &at, const QStringList &body) {
            QStringList lines;
            for (const QString &line : body)
                lines << at + ", " + line + ", (@65000)";
            return lines;
        };
        QTest::newRow("defect block: code, remarks, no text")
            << false << block("4.1m", {"CODE, CC", "TEXT, Crack circumferential", "REMS, near joint", "END, "})
            << QStringList{"VideoRef=00:01:05|Distance=4.1|Code=CC|Remarks=near joint"};
        QTest::newRow("1200.0 m is capped to 999.9")
            << false << block("1200.0m", {"CODE, CC", "END, "})
            << QStringList{"VideoRef=00:01:05|Distance=999.9|Code=CC"};
        QTest::newRow("999.94 m stays") << false << block("999.94m", {"CODE, CC", "END, "})
                                        << QStringList{"VideoRef=00:01:05|Distance=999.9|Code=CC"};
        QTest::newRow("10 ft is 3.1 m at 0.305") << true << block("10ft", {"CODE, CC", "END, "})
                                                 << QStringList{"VideoRef=00:01:05|Distance=3.1|Code=CC"};
        QTest::newRow("4000 ft is capped") << true << block("4000ft", {"CODE, CC", "END, "})
                                           << QStringList{"VideoRef=00:01:05|Distance=999.9|Code=CC"};
        QTest::newRow("metres to one decimal") << false << block("0m", {"CODE, CC", "END, "})
                                               << QStringList{"VideoRef=00:01:05|Distance=0.0|Code=CC"};
        QTest::newRow("clock 12 dropped, 11 kept")
            << false << block("2m", {"CODE, CC", "CLKT, 11", "CLKF, 12", "END, "})
            << QStringList{"VideoRef=00:01:05|Distance=2.0|Code=CC|ClockRefTo=11"};
        QTest::newRow("clock 1 kept, 0 and empty dropped")
            << false << block("2m", {"CODE, CC", "CLKT, 0", "CLKF,  1 ", "END, "})
            << QStringList{"VideoRef=00:01:05|Distance=2.0|Code=CC|ClockRefAtFrom=1"};
        QTest::newRow("CXI: Dimension1 then Percentage")
            << false << block("3m", {"CODE, CXI", "QANT, 100", "QANT, 20", "CLKF, 3", "CLKT, 9", "REMS, r", "END, "})
            << QStringList{"VideoRef=00:01:05|Distance=3.0|Code=CXI|Dimension1=100|Percentage=20|ClockRefAtFrom=3"
                           "|ClockRefTo=9|Remarks=r"};
        QTest::newRow("PC: one Dimension1") << false << block("3m", {"CODE, PC", "QANT, 7", "QANT, 8", "END, "})
                                            << QStringList{"VideoRef=00:01:05|Distance=3.0|Code=PC|Dimension1=7"};
        QTest::newRow("D: Percentage") << false << block("3m", {"CODE, D", "QANT, 5", "END, "})
                                       << QStringList{"VideoRef=00:01:05|Distance=3.0|Code=D|Percentage=5"};
        QTest::newRow("too few values: the surplus tag left out")
            << false << block("3m", {"CODE, CXI", "QANT, 100", "END, "})
            << QStringList{"VideoRef=00:01:05|Distance=3.0|Code=CXI|Dimension1=100"};
        QTest::newRow("code without quantities ignores them")
            << false << block("3m", {"CODE, CC", "QANT, 5", "END, "})
            << QStringList{"VideoRef=00:01:05|Distance=3.0|Code=CC"};
        QTest::newRow("snapshot inside a block: photograph, the code's place")
            << false
            << QStringList{"5m, CODE, D, (@1000)", "5m, TEXT, Deformed, (@1000)", "5.5m, JPEG, Snap0002.jpg, (@0)",
                           "5m, END, , (@1000)"}
            << QStringList{"VideoRef=00:00:01|PhotographRefs=|PhotographRef=section_1\\Snap0002.jpg|Distance=5.0|Code=D"};
        QTest::newRow("snapshot with comment: a REM with the comment as remark")
            << false << QStringList{"12.5m, JPEG, Snap0003.jpg, (@0)", "13m, TEXT, Manhole , (@2000)"}
            << QStringList{"VideoRef=00:00:00|PhotographRefs=|PhotographRef=section_1\\Snap0003.jpg|Distance=12.5"
                           "|Code=REM|Remarks=Manhole"};
        QTest::newRow("second snapshot takes the place")
            << false
            << QStringList{"1m, JPEG, Snap0000.jpg, (@0)", "2m, JPEG, Snap0001.jpg, (@3000)", "3m, TEXT, Root, (@0)"}
            << QStringList{"VideoRef=00:00:03|PhotographRefs=|PhotographRef=section_1\\Snap0001.jpg|Distance=2.0"
                           "|Code=REM|Remarks=Root"};
        QTest::newRow("plain comment: a REM without its text")
            << false << QStringList{"3.2m, TEXT, Start of survey, (@0)"}
            << QStringList{"VideoRef=00:00:00|Distance=3.2|Code=REM"};
        QTest::newRow("video reference rounded to the second")
            << false << QStringList{"1m, CODE, CC, (@2500)", "1m, END, , (@2500)", "2m, CODE, CC, (@3723400)",
                                    "2m, END, , (@3723400)"}
            << QStringList{"VideoRef=00:00:03|Distance=1.0|Code=CC", "VideoRef=01:02:03|Distance=2.0|Code=CC"};
        QTest::newRow("a block not closed is dropped")
            << false << QStringList{"1m, CODE, CC, (@0)", "2m, CODE, RF, (@0)", "2m, END, , (@0)", "3m, CODE, D, (@0)"}
            << QStringList{"VideoRef=00:00:00|Distance=2.0|Code=RF"};
        QTest::newRow("remarks outside a block ignored, later ones replace")
            << false
            << QStringList{"1m, REMS, stray, (@0)", "1m, CODE, CC, (@0)", "1m, REMS, first, (@0)",
                           "1m, REMS, second, (@0)", "1m, END, , (@0)"}
            << QStringList{"VideoRef=00:00:00|Distance=1.0|Code=CC|Remarks=second"};
        QTest::newRow("short and unknown lines skipped")
            << false << QStringList{"1m, CODE", "", "garbage", "1m, CDEF, S1, (@0)", "1m, BOTH, , (@0)"}
            << QStringList{};
    }
    void observations()
    {
        QFETCH(bool, imperial);
        QFETCH(QStringList, lines);
        QFETCH(QStringList, observations);
        setImperial(imperial);
        ProjectTree tree;
        tree.setProject(kFullProject);
        tree.addSection("section_1", kFullSection, lines);
        const Survey survey = onlySurvey(tree);
        QCOMPARE(survey.observations, observations);
    }

    void sectionsInOrderOfName()
    {
        ProjectTree tree;
        tree.addSection("section_2", {{"Start", "two"}}, {}, 10);
        tree.addSection("Section_10", {{"Start", "ten"}}, {}, 20);
        tree.addSection("section_1", {{"Start", "one"}}, {}, 30);
        QStringList starts;
        for (const Survey &survey : exported(tree, "unnamed.xml"))
            starts << survey.headerValue("StartNodeRef") + ' ' + survey.headerValue("VideoImageFilename");
        QCOMPARE(starts, QStringList({"one section_1\\video.mp4", "ten Section_10\\video.mp4",
                                      "two section_2\\video.mp4"}));
    }

    void damagedInput_data()
    {
        QTest::addColumn<QByteArray>("sectionFile");      // null: no file
        QTest::addColumn<QByteArray>("observationFile");  // null: no file
        QTest::addColumn<QString>("startNode");
        QTest::addColumn<int>("observationCount");
        QTest::addColumn<QString>("logged");

        const QByteArray section = "[Section]\nStart=MH1\nEnd=MH2\n";
        const QByteArray block = "1m, CODE, CC, (@0)\r\n1m, END, , (@0)\r\n";
        QTest::newRow("no observation file") << section << QByteArray() << "MH1" << 0 << "Failed to open file...";
        QTest::newRow("no section file") << QByteArray() << block << "ERROR" << 1 << QString();
        QTest::newRow("section file cut short") << QByteArray("[Section]\nStart=MH1\nEnd=M") << block << "MH1" << 1
                                                << QString();
        QTest::newRow("section file of garbage") << QByteArray("\x01\xff[[=\n\0\0=\x02", 11) << block << "ERROR" << 1
                                                 << QString();
        QTest::newRow("observation file cut mid-block")
            << section << QByteArray("1m, CODE, CC, (@0)\r\n1m, END, , (@0)\r\n2m, CODE, D, (@0)\r\n2m, QA") << "MH1"
            << 1 << QString();
        QTest::newRow("observation file cut mid-line") << section << QByteArray("1m, CODE, CC, (@0)\r\n1m, END, ")
                                                       << "MH1" << 0 << QString();
        QTest::newRow("unknown identifier") << section << QByteArray("1m, WHAT, x, (@0)\r\n") << "MH1" << 0
                                            << "Unknown ID in WRC Export...";
        QTest::newRow("control characters and a bad time")
            << section << QByteArray("1\x01m, CODE, C\x02, (@x)\r\n1m, REMS, a\x1b" "b\xff, (@)\r\n1m, END, , (@)\r\n")
            << "MH1" << 1 << QString();
        QTest::newRow("absurd numbers") << section
                                        << QByteArray("1e400m, CODE, CC, (@1e300)\r\nnanm, END, , (@-1e300)\r\n")
                                        << "MH1" << 1 << QString();
    }
    void damagedInput()
    {
        QFETCH(QByteArray, sectionFile);
        QFETCH(QByteArray, observationFile);
        QFETCH(QString, startNode);
        QFETCH(int, observationCount);
        QFETCH(QString, logged);
        ProjectTree tree;
        tree.setProject(kFullProject);
        const QString dir = tree.addSection("section_1", {}, {});
        QFile::remove(dir + "/.section.sdb");
        if (!sectionFile.isNull())
            ProjectTree::writeFile(dir + "/.section.sdb", sectionFile);
        if (!observationFile.isNull())
            ProjectTree::writeFile(dir + "/.observations.sdb", observationFile);
        LogCapture log;
        const Survey survey = onlySurvey(tree);
        QCOMPARE(survey.headerValue("StartNodeRef"), startNode);
        QCOMPARE(survey.observations.size(), observationCount);
        if (!logged.isEmpty())
            QVERIFY2(log.contains(logged), qPrintable(log.messages().join('\n')));
    }

    void unwritableFileIsReported()
    {
        ProjectTree tree;
        tree.setProject(kFullProject);
        QVERIFY(QDir().mkpath(tree.path() + kXmlFile));
        LogCapture log;
        QVERIFY(!WRCExport(tree.path()).WRCExport_Start());
        QVERIFY(log.contains("WRC xml file failed to open"));
    }

    void exportedOnlyForEnglishWithWrc_data()
    {
        QTest::addColumn<QString>("language");
        QTest::addColumn<bool>("wrc");
        QTest::addColumn<bool>("written");
        QTest::newRow("en-GB with WRC") << "en-GB" << true << true;
        QTest::newRow("en-GB without WRC") << "en-GB" << false << false;
        QTest::newRow("en-US with WRC") << "en-US" << true << false;
    }
    void exportedOnlyForEnglishWithWrc()
    {
        QFETCH(QString, language);
        QFETCH(bool, wrc);
        QFETCH(bool, written);
        ConsoleSettings settings;
        settings.setValue("Language/code", language);
        settings.setValue("SurveyData/WRC", wrc);
        settings.sync();
        ProjectTree tree;
        tree.setProject(kFullProject);
        LogCapture log;
        WRCExport::exportIfWanted(tree.path());
        QCOMPARE(QFile::exists(tree.path() + kXmlFile), written);
        QCOMPARE(log.contains("WRC Export Successful"), written);
    }
};

QTEST_MAIN(TestWrcExport)
#include "tst_wrcexport.moc"
