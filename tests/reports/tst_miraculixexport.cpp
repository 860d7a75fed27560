// The WinCan exchange file from project folders written by hand: every file is
// read back with a real XML parser, which fails the test on anything ill-formed.
#include "reports/miraculixexport.h"
#include "support/logcapture.h"
#include "support/projecttree.h"
#include "support/testunit.h"
#include "support/xmltree.h"
#include "survey/observationline.h"

#include <QtTest>

namespace {

const QString kXmlFile = QStringLiteral("Oak_Road.xml");
const QVariantMap kProject = {{"ID", "P-17"},
                              {"cdname", "Oak Road"},
                              {"cddate", "23/11/2026"},
                              {"catalogcustom", "MSCC-5"},
                              {"catalogbase", "WRC"}};

// Each observation as "element=text|element=text..." in file order.
QStringList observationsOf(const XmlNode &section)
{
    QStringList observations;
    for (const XmlNode &observation : section.first("sectioninspection").all("sectionobservation"))
        observations << observation.fields().join('|');
    return observations;
}

// The head every observation starts with, for a section named "20261123-101500".
QString head(const QString &distance, const QString &code, const QString &position)
{
    return "poddistance=" + distance + "|podcode=" + code
           + "|podmovie=20261123-101500\\20261123-101500-video.mp4|podmpegposition=" + position;
}

} // namespace

class TestMiraculIXExport : public QObject
{
    Q_OBJECT

    TestUnit m_unit;

    // Exports the project and reads the file back; the root's name says what went wrong.
    static XmlNode exported(const ProjectTree &tree, const QString &fileName = kXmlFile)
    {
        if (!MiraculIXExport(tree.path(), QString()).startExport())
            return XmlNode{"<export failed>", {}, {}, {}};
        QString error;
        const QByteArray xml = ProjectTree::readFile(tree.path() + fileName);
        const XmlNode root = XmlNode::parse(xml, &error);
        if (!error.isEmpty())
            return XmlNode{"<not well-formed: " + error + ">\n" + xml, {}, {}, {}};
        return root;
    }

    static XmlNode onlySection(const ProjectTree &tree)
    {
        const QList<XmlNode> sections = exported(tree).all("section");
        return sections.size() == 1 ? sections.first() : XmlNode{"<not one section>", {}, {}, {}};
    }

private slots:
    void initTestCase() { QVERIFY(m_unit.isValid()); }

    // First, so no script started by an earlier export is still to log its line.
    void cachesClearedOnlyAfterAWrittenExport()
    {
        const auto clears = [this] { return m_unit.kitLog().filter("clear_cache.sh").size(); };
        ProjectTree tree(ProjectTree::Mode::kWinCan);
        tree.setProject(kProject);
        LogCapture log;
        QVERIFY(!MiraculIXExport(tree.path(), tree.path() + "no such folder/").startExport());
        QVERIFY(log.contains("XML File failed to open"));
        QVERIFY(QDir(tree.path()).entryList({"*.xml"}).isEmpty());
        QVERIFY(MiraculIXExport(tree.path(), QString()).startExport());
        QTRY_COMPARE(clears(), 1);

        // A unit without the script is told in the log; the export still counts.
        const QString script = m_unit.path("/opt/hbi/bin/clear_cache.sh");
        QVERIFY(QFile::rename(script, script + ".away"));
        QVERIFY(MiraculIXExport(tree.path(), QString()).startExport());
        QVERIFY(QFile::rename(script + ".away", script));
        QVERIFY(log.contains("No cache script at"));
        QTest::qWait(200);
        QCOMPARE(clears(), 1);
    }

    void fileNameFromProjectName_data()
    {
        QTest::addColumn<QVariant>("cdname");
        QTest::addColumn<QString>("fileName");
        QTest::newRow("blank becomes underscore") << QVariant("A 1") << "A_1.xml";
        QTest::newRow("case kept, outer blanks trimmed") << QVariant("  Oak Road ") << "Oak_Road.xml";
        QTest::newRow("punctuation and accents") << QVariant("Rue Déjà/2") << "Rue_D_j__2.xml";
        QTest::newRow("blank name") << QVariant(" ") << "unnamed.xml";
        QTest::newRow("no name") << QVariant() << "unnamed.xml";
    }
    void fileNameFromProjectName()
    {
        QFETCH(QVariant, cdname);
        QFETCH(QString, fileName);
        ProjectTree tree(ProjectTree::Mode::kWinCan);
        if (cdname.isValid())
            tree.setProject({{"cdname", cdname}});
        QVERIFY(MiraculIXExport(tree.path(), QString()).startExport());
        QCOMPARE(QDir(tree.path()).entryList({"*.xml"}, QDir::Files | QDir::Hidden), QStringList{fileName});
    }

    void projectWithoutSections()
    {
        ProjectTree tree(ProjectTree::Mode::kWinCan);
        tree.setProject(kProject);
        QVERIFY(ProjectTree::readFile(tree.path() + ".project.wdb").contains("cdname=Oak Road"));
        const XmlNode root = exported(tree);
        QVERIFY(ProjectTree::readFile(tree.path() + kXmlFile).startsWith("<?xml version=\"1.0\" encoding=\"UTF-8\"?>"));
        QCOMPARE(root.name, QString("exportdata"));
        QCOMPARE(root.attributes, QStringList({"distanceunit=meter", "cnameprefix=lanthorn"}));
        QCOMPARE(root.childNames(), QStringList{"project"});
        const XmlNode project = root.first("project");
        // The project file's keys in its own order, then the ID again and the report.
        QCOMPARE(project.fields(), QStringList({"ID=P-17", "catalogbase=WRC", "catalogcustom=MSCC-5",
                                                "cddate=23/11/2026", "cdname=Oak Road", "ProjectID=P-17"}));
        QCOMPARE(project.childNames().last(), QString("documents"));
        QCOMPARE(project.first("documents").first("document").fields(),
                 QStringList({"filename=Report.pdf", "description=WinCan Report PDF"}));
    }

    void sectionFieldsInTheirPlaces()
    {
        ProjectTree tree(ProjectTree::Mode::kWinCan);
        tree.setProject(kProject);
        tree.addSection("20261123-101500",
                        {{"PCDStartNode", "MH1"}, {"PIDDirection", "Downstream (D)"}, {"PCDPipeMaterial", "Clay (VC)"},
                         {"WCProject", "Oak Road"}, {"PIDDate", "23/11/2026"}, {"PCDEndNode", "MH2"}, {"Other", "x"}},
                        {});
        const XmlNode section = onlySection(tree);
        QCOMPARE(section.childNames(), QStringList({"sectionname", "PCDEndNode", "PCDPipeMaterial", "PCDStartNode",
                                                    "sectioninspection"}));
        QCOMPARE(section.fields(),
                 QStringList({"sectionname=20261123-101500", "PCDEndNode=MH2", "PCDPipeMaterial=VC",
                              "PCDStartNode=MH1"}));
        QCOMPARE(section.first("sectioninspection").fields(), QStringList({"PIDDate=23/11/2026", "PIDDirection=D"}));
    }

    void sectionValues_data()
    {
        QTest::addColumn<QString>("key");
        QTest::addColumn<QVariant>("stored");
        QTest::addColumn<QString>("text");
        QTest::newRow("Foul (F) gives F") << "PCDUsage" << QVariant("Foul (F)") << "F";
        QTest::newRow("(F) stays") << "PCDUsage" << QVariant("(F)") << "(F)";
        QTest::newRow("two words and a code") << "PCDPipeMaterial" << QVariant("Vitrified Clay (VC)") << "VC";
        QTest::newRow("a blank after the code") << "PCDUsage" << QVariant("Foul (F) ") << "F";
        QTest::newRow("( without ) left alone") << "PCDLocation" << QVariant("Up (stream") << "Up (stream";
        QTest::newRow("inspection field filtered too") << "PIDCleaning" << QVariant("Not cleaned (N)") << "N";
        QTest::newRow("empty stays empty") << "PCDPipeShape" << QVariant("") << "";
        QTest::newRow("comma in a value") << "PIDRemarks" << QVariant("roots, silt") << "roots, silt";
        QTest::newRow("markup characters") << "PIDRemarks" << QVariant("<a & b> \"c\"") << "<a & b> \"c\"";
        QTest::newRow("control character replaced") << "PIDRemarks" << QVariant("a\x01z") << "a\uFFFDz";
    }
    void sectionValues()
    {
        QFETCH(QString, key);
        QFETCH(QVariant, stored);
        QFETCH(QString, text);
        ProjectTree tree(ProjectTree::Mode::kWinCan);
        tree.setProject(kProject);
        tree.addSection("20261123-101500", {{key, stored}}, {});
        const XmlNode section = onlySection(tree);
        const XmlNode place = key.startsWith("PID") ? section.first("sectioninspection") : section;
        QVERIFY2(place.fields().contains(key + '=' + text), qPrintable(section.name + ' ' + place.fields().join('|')));
    }

    void observations_data()
    {
        QTest::addColumn<QStringList>("lines");
        QTest::addColumn<QStringList>("observations");

        const auto block = [](const QString &at, const QStringList &body) {
            QStringList lines;
            for (const QString &line : body)
                lines << at + ", " + line + ", (@61000)";
            return lines;
        };
        QTest::newRow("a whole block, (@61000) gives 00:01:01")
            << block("4.1m", {"CODE, BAB", "CDEF, S1", "TEXT, Crack longitudinal", "JPEG, Snap0001.jpg",
                              "REMS, near joint", "CLKT, 9", "CLKF, 3", "QANT, 100", "QANT, 20", "END, "})
            << QStringList{head("4.1", "BAB", "00:01:01")
                           + "|PODContinuousDefect=S1|podtext=Crack longitudinal|PODPicture1=20261123-101500\\Snap0001.jpg"
                             "|PODRemarks=near joint|PODToClock=9|PODFromClock=3|PODQuantification1=100"
                             "|PODQuantification2=20"};
        QTest::newRow("quantities numbered afresh in each observation")
            << block("2m", {"CODE, DEE", "QANT, 10", "QANT, 20", "END, ", "CODE, DER", "QANT, 5", "END, "})
            << QStringList{head("2", "DEE", "00:01:01") + "|PODQuantification1=10|PODQuantification2=20",
                           head("2", "DER", "00:01:01") + "|PODQuantification1=5"};
        QTest::newRow("general photograph outside a block")
            << QStringList{"12.5m, JPEG, Snap0003.jpg, (@0)"}
            << QStringList{head("12.5", "GP", "00:00:00")
                           + "|podtext=General photograph taken at this point|PODRemarks= "
                             "|PODPicture1=20261123-101500\\Snap0003.jpg"};
        QTest::newRow("every picture of a block is PODPicture1")
            << block("3m", {"CODE, JDM", "JPEG, Snap0004.jpg", "JPEG, Snap0005.jpg", "END, "})
            << QStringList{head("3", "JDM", "00:01:01") + "|PODPicture1=20261123-101500\\Snap0004.jpg"
                           + "|PODPicture1=20261123-101500\\Snap0005.jpg"};
        QTest::newRow("block cut off by the end of the file")
            << QStringList{"1m, CODE, BAB, (@0)", "1m, END, , (@0)", "2m, CODE, DER, (@2000)", "2m, QANT, 5, (@2000)",
                           "2m, QA"}
            << QStringList{head("1", "BAB", "00:00:00"), head("2", "DER", "00:00:02") + "|PODQuantification1=5"};
        QTest::newRow("a block left open before the next keeps its lines")
            << QStringList{"1m, CODE, BAB, (@0)", "1m, TEXT, Crack, (@0)", "2m, CODE, DER, (@0)", "2m, END, , (@0)"}
            << QStringList{head("1", "BAB", "00:00:00") + "|podtext=Crack", head("2", "DER", "00:00:00")};
        QTest::newRow("other lines outside a block are ignored")
            << QStringList{"0m, TEXT, Start of survey, (@0)", "0m, BOTH, , (@0)", "1m, REMS, stray, (@0)",
                           "1m, END, , (@0)", "1m, QANT, 4, (@0)"}
            << QStringList{};
        QTest::newRow("feet are written as they stand") << block("10ft", {"CODE, BAB", "END, "})
                                                        << QStringList{head("10", "BAB", "00:01:01")};
        QTest::newRow("positions past a day wrap")
            << QStringList{"1m, CODE, BAB, (@90061999)", "1m, END, , (@0)"}
            << QStringList{head("1", "BAB", "01:01:01")};
        QTest::newRow("a position that is no number is the start")
            << QStringList{"1m, CODE, BAB, (@x)", "1m, END, , (@)", "2m, CODE, DER, (@-1)", "2m, END, , (@0)"}
            << QStringList{head("1", "BAB", "00:00:00"), head("2", "DER", "00:00:00")};
        QTest::newRow("a remark keeps its commas")
            << QStringList{"1m, CODE, BAB, (@0)", "1m, REMS, roots, silt, grease, (@0)", "1m, END, , (@0)"}
            << QStringList{head("1", "BAB", "00:00:00") + "|PODRemarks=roots, silt, grease"};
        QTest::newRow("an identifier without its blank is not one")
            << QStringList{"1m,CODE, BAB, (@0)", "1m,END, , (@0)"} << QStringList{};
        QTest::newRow("short and empty lines skipped inside a block")
            << QStringList{"1m, CODE, BAB, (@0)", "", "garbage", "1m, REMS", "1m, END, , (@0)"}
            << QStringList{head("1", "BAB", "00:00:00")};
    }
    void observations()
    {
        QFETCH(QStringList, lines);
        QFETCH(QStringList, observations);
        ProjectTree tree(ProjectTree::Mode::kWinCan);
        tree.setProject(kProject);
        tree.addSection("20261123-101500", {{"PCDStartNode", "MH1"}}, lines);
        QCOMPARE(observationsOf(onlySection(tree)), observations);
    }

    // Written by the survey's own line writer, so the text goes through the file as it would on the unit.
    void markupAndForeignLettersStayWellFormed()
    {
        const QString text = QString::fromUtf8("Roots <50% & \"grease\" > Wurzeln ß Корни 根");
        ProjectTree tree(ProjectTree::Mode::kWinCan);
        tree.setProject(kProject);
        const QString dir = tree.addSection("20261123-101500", {}, {});
        const QString file = dir + '/' + tree.fileName("observations");
        for (const auto &[type, value] : QList<QPair<QString, QString>>{{ObservationLine::kCode, "BAB"},
                                                                        {ObservationLine::kText, text},
                                                                        {ObservationLine::kRems, text},
                                                                        {ObservationLine::kEnd, ""}})
            QVERIFY(ObservationLine::append(file, ObservationLine::format(4.5f, false, type, value, 61000)));
        QCOMPARE(observationsOf(onlySection(tree)),
                 QStringList{head("4.5", "BAB", "00:01:01") + "|podtext=" + text + "|PODRemarks=" + text});
        // A whole file for a human to look at.
        const QString copy = TestUnit::artifactsDir("tst_miraculixexport") + '/' + kXmlFile;
        QFile::remove(copy);
        QFile::copy(tree.path() + kXmlFile, copy);
    }

    void sectionsAndObservationsInOrder()
    {
        ProjectTree tree(ProjectTree::Mode::kWinCan);
        tree.setProject(kProject);
        const auto defects = [](const QString &first, const QString &second) {
            return QStringList{"1m, CODE, " + first + ", (@0)", "1m, END, , (@0)", "2m, CODE, " + second + ", (@0)",
                               "2m, END, , (@0)"};
        };
        // Oldest first, whatever the names say.
        tree.addSection("20261123-120000", {{"PCDStartNode", "MH3"}}, defects("JDM", "DER"), 30);
        tree.addSection("20261123-100000", {{"PCDStartNode", "MH1"}}, defects("BAB", "RF"), 10);
        tree.addSection("20261123-110000", {}, {}, 20);
        QFile::remove(tree.path() + "20261123-110000/" + tree.fileName("section"));
        QStringList seen;
        for (const XmlNode &section : exported(tree).all("section")) {
            seen << section.fields().join(' ');
            for (const XmlNode &observation : section.first("sectioninspection").all("sectionobservation"))
                seen << "  " + observation.first("podcode").text;
        }
        QCOMPARE(seen, QStringList({"sectionname=20261123-100000 PCDStartNode=MH1", "  BAB", "  RF",
                                    "sectionname=20261123-110000 sectioninspection=",
                                    "sectionname=20261123-120000 PCDStartNode=MH3",
                                    "  JDM", "  DER"}));
    }

    void keysThatAreNoElementNamesAreLeftOut()
    {
        ProjectTree tree(ProjectTree::Mode::kWinCan);
        ProjectTree::writeFile(tree.path() + ".project.wdb", "[Project]\ncdname=Oak Road\nmy%20key=x\n1st=y\n");
        const QString dir = tree.addSection("20261123-101500", {}, {});
        ProjectTree::writeFile(dir + "/.section.wdb", "[Section]\nPCD%3Cx%3E=1\nPCDStartNode=MH1\nPID%E9=2\n");
        LogCapture log;
        const XmlNode root = exported(tree);
        QCOMPARE(root.first("project").fields(), QStringList({"cdname=Oak Road", "ProjectID="}));
        const XmlNode section = root.first("section");
        // An empty inspection reads as an element with no text.
        QCOMPARE(section.fields(), QStringList({"sectionname=20261123-101500", "PCDStartNode=MH1", "sectioninspection="}));
        QCOMPARE(log.count("no element name"), 4);
    }
};

QTEST_MAIN(TestMiraculIXExport)
#include "tst_miraculixexport.moc"
