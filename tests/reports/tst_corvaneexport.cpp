#include "core/consolesettings.h"
#include "reports/corvaneexport.h"
#include "support/logcapture.h"
#include "support/projecttree.h"
#include "support/testunit.h"

#include <QtTest>

class TestCorvaneExport : public QObject
{
    Q_OBJECT

    TestUnit m_unit;

    static QString exportText(const ProjectTree &tree, const QString &fileName)
    {
        CorvaneExport exporter(tree.path(), QString());
        if (!exporter.startExport())
            return QStringLiteral("<export failed>");
        return QString::fromUtf8(ProjectTree::readFile(tree.path() + fileName));
    }

    // The observation lines of the only job: everything after its section fields.
    static QStringList observationLines(const QString &text)
    {
        QStringList lines = text.split("\r\n");
        lines.erase(lines.begin(), std::find_if(lines.begin(), lines.end(),
                                                [](const QString &l) { return l.startsWith("SEngineer = "); }) + 1);
        lines.removeLast(); // after the final CR LF
        return lines;
    }

    static void setWrc(const QVariant &language, bool wrc)
    {
        ConsoleSettings settings;
        if (language.isNull())
            settings.remove("Language/code");
        else
            settings.setValue("Language/code", language);
        settings.setValue("SurveyData/WRC", wrc);
    }

private slots:
    void initTestCase() { QVERIFY(m_unit.isValid()); }
    void init()
    {
        setWrc(QVariant(), false);
        ConsoleSettings().remove("Clock_mode");
    }

    // First, so no script started by an earlier export is still to log its line.
    void cachesClearedOnlyAfterAWrittenExport()
    {
        const auto clears = [this] { return m_unit.kitLog().filter("clear_cache.sh").size(); };
        ProjectTree tree;
        tree.setProject({{"Site Name", "Oak"}});
        LogCapture log;
        CorvaneExport unwritable(tree.path(), tree.path() + "no such folder/");
        QVERIFY(!unwritable.startExport());
        QVERIFY(log.contains("Export File failed to open"));
        QVERIFY(!QFile::exists(tree.path() + "oak.txt"));
        CorvaneExport exporter(tree.path(), QString());
        QVERIFY(exporter.startExport());
        QTRY_COMPARE(clears(), 1);
        QTest::qWait(200);
        QCOMPARE(clears(), 1);
    }

    void fileNameFromSiteName_data()
    {
        QTest::addColumn<QString>("siteName");
        QTest::addColumn<QString>("fileName");
        QTest::newRow("blank and slash become underscores") << "Site 1/B" << "site_1_b.txt";
        QTest::newRow("outer blanks trimmed") << "  Oak Road " << "oak_road.txt";
        QTest::newRow("punctuation") << "A&B-12" << "a_b_12.txt";
        QTest::newRow("accented letters") << "Rue Déjà" << "rue_d_j_.txt";
        QTest::newRow("no site name") << "" << ".txt";
    }
    void fileNameFromSiteName()
    {
        QFETCH(QString, siteName);
        QFETCH(QString, fileName);
        ProjectTree tree;
        tree.setProject({{"Site Name", siteName}});
        QVERIFY(exportText(tree, fileName).startsWith("Site Name = " + siteName + "\r\n"));
    }

    void wholeFileWithWrcFields()
    {
        setWrc("en-GB", true);
        ProjectTree tree;
        tree.setProject({{"Site Name", "Oak Road"}, {"Address", "12 Oak Road, Leeds"}, {"Postcode", "LS1 1AA"},
                         {"Parking Restrictions", "None"}, {"Client", "Yorkshire Water"}, {"Reference", "R-7"},
                         {"Drawing Number", "D9"}, {"Reason", "Blockage"}, {"Operator", "Sam"}, {"SiteNum", "4"},
                         {"TownName", "Leeds"}, {"Weather", "Dry (A)"}});
        tree.addSection("section_1",
                        {{"Start", "MH1"}, {"Direction", "(D)"}, {"End", "MH2"}, {"Material", "Clay (VC)"},
                         {"Size", "150MM"}, {"Duty", "Foul (F)"}, {"Invert", "1.2"}, {"EDepth", "1.4"},
                         {"Date", "03/05/24"}, {"Time", "10:15"}, {"Comments", "Roots"}, {"SEngineer", "Sam"},
                         {"Flow", "None (N)"}, {"LiningMaterial", ""}, {"Method", "CCTV (B)"},
                         {"PipelineRef", "P1"}, {"Precleaned", "No (N)"}, {"Shape", "Circular (C)"},
                         {"Type", "Gravity (A)"}},
                        {"0m, TEXT, Start of survey, (@0)"});
        const QString expected =
            "Site Name = Oak Road\r\nAddress = 12 Oak Road, Leeds\r\nPostcode = LS1 1AA\r\n"
            "Parking Restrictions = None\r\nClient = Yorkshire Water\r\nReference = R-7\r\n"
            "Drawing Number = D9\r\nReason = Blockage\r\nOperator = Sam\r\nSiteNum = 4\r\n"
            "Export Date = dd/MM/yy\r\nExport Time = hh:mm\r\nTownName = Leeds\r\nWeather = Dry (A)\r\n"
            "\r\n\r\nJob 1\r\nSection Video = section_1\\video.mp4\r\n"
            "Start = MH1\r\nDirection = (D)\r\nEnd = MH2\r\nMaterial = Clay (VC)\r\nSize = 150mm\r\n"
            "Duty = Foul (F)\r\nInvert = 1.2\r\nEDepth = 1.4\r\nDate = 03/05/24\r\nTime = 10:15\r\n"
            "Comments = Roots\r\nSEngineer = Sam\r\n"
            "EDepth = 1.4\r\nFlow = None (N)\r\nLiningMaterial = \r\nMethod = CCTV (B)\r\nPipelineRef = P1\r\n"
            "Precleaned = No (N)\r\nShape = Circular (C)\r\nType = Gravity (A)\r\nComments = Roots\r\n"
            "0, Start of survey\r\n";
        QString text = exportText(tree, "oak_road.txt");
        text.replace(QRegularExpression(R"(Export Date = \d\d/\d\d/\d\d\r\nExport Time = \d\d:\d\d\r)"),
                     "Export Date = dd/MM/yy\r\nExport Time = hh:mm\r");
        QCOMPARE(text, expected);
    }

    void wrcFieldsOnlyForEnglishWithWrc_data()
    {
        QTest::addColumn<QVariant>("language");
        QTest::addColumn<bool>("wrc");
        QTest::addColumn<bool>("extra");
        QTest::newRow("en-GB with WRC") << QVariant("en-GB") << true << true;
        QTest::newRow("no language set means en-GB") << QVariant() << true << true;
        QTest::newRow("en-GB without WRC") << QVariant("en-GB") << false << false;
        QTest::newRow("en-US with WRC") << QVariant("en-US") << true << false;
    }
    void wrcFieldsOnlyForEnglishWithWrc()
    {
        QFETCH(QVariant, language);
        QFETCH(bool, wrc);
        QFETCH(bool, extra);
        setWrc(language, wrc);
        ProjectTree tree;
        tree.setProject({{"Site Name", "S"}, {"TownName", "Leeds"}});
        tree.addSection("section_1", {{"EDepth", "1.4"}, {"Comments", "c"}}, {});
        const QString text = exportText(tree, "s.txt");
        QCOMPARE(text.contains("\r\nTownName = Leeds\r\nWeather = \r\n"), extra);
        QCOMPARE(text.count("\r\nEDepth = 1.4\r\n"), extra ? 2 : 1);
        QCOMPARE(text.count("\r\nComments = c\r\n"), extra ? 2 : 1);
        QCOMPARE(text.contains("\r\nPipelineRef = "), extra);
    }

    void twelveHourClockGivesAmPm()
    {
        ConsoleSettings().setValue("Clock_mode", 1);
        ProjectTree tree;
        const QStringList lines = exportText(tree, ".txt").split("\r\n");
        QCOMPARE(lines.size(), 13); // ten fields, two stamps, the final CR LF
        QVERIFY2(lines.at(11).contains(QRegularExpression(R"(^Export Time = \d\d:\d\d (AM|PM)$)")),
                 qPrintable(lines.at(11)));
    }

    void jobsInOrderOfModification()
    {
        ProjectTree tree;
        tree.addSection("section_1", {{"Start", "newest"}}, {}, 30);
        tree.addSection("section_2", {{"Start", "oldest"}}, {}, 10);
        tree.addSection("section_10", {{"Start", "middle"}}, {}, 20);
        const QString text = exportText(tree, ".txt");
        const QStringList jobs = text.split("\r\n\r\nJob ").mid(1);
        QCOMPARE(jobs.size(), 3);
        QVERIFY(jobs[0].startsWith("1\r\nSection Video = section_2\\video.mp4\r\nStart = oldest\r\n"));
        QVERIFY(jobs[1].startsWith("2\r\nSection Video = section_10\\video.mp4\r\nStart = middle\r\n"));
        QVERIFY(jobs[2].startsWith("3\r\nSection Video = section_1\\video.mp4\r\nStart = newest\r\n"));
    }

    void observations_data()
    {
        QTest::addColumn<QStringList>("lines");
        QTest::addColumn<QStringList>("exported");
        QTest::newRow("comment alone: distance and text")
            << QStringList{"3.2m, TEXT, Start of survey, (@0)"} << QStringList{"3.2, Start of survey"};
        QTest::newRow("feet and metres both lose the unit")
            << QStringList{"12.5ft, TEXT, a, (@0)", "12.5m, TEXT, b, (@0)"} << QStringList{"12.5, a", "12.5, b"};
        QTest::newRow("snapshot then comment: one line at the snapshot's distance")
            << QStringList{"12.5m, JPEG, Snap0003.jpg, (@0)", "13m, TEXT, Manhole , (@0)"}
            << QStringList{"12.5, section_1\\Snap0003.jpg, Manhole"};
        QTest::newRow("a second snapshot replaces the first")
            << QStringList{"1m, JPEG, Snap0000.jpg, (@0)", "2m, JPEG, Snap0001.jpg, (@0)", "3m, TEXT, Root, (@0)"}
            << QStringList{"2, section_1\\Snap0001.jpg, Root"};
        QTest::newRow("a snapshot no comment follows is not written")
            << QStringList{"1m, JPEG, Snap0000.jpg, (@0)"} << QStringList{};
        QTest::newRow("defect block: its text and remarks, not its code, clock or quantity")
            << QStringList{"4.1m, CODE, CC, (@9000)",   "4.1m, CDEF, S1, (@9000)", "4.1m, TEXT, Crack, (@9000)",
                           "4.1m, REMS, near joint, (@9000)", "4.1m, CLKT, 3, (@9000)", "4.1m, CLKF, 9, (@9000)",
                           "4.1m, QANT, 10, (@9000)",   "4.1m, END, , (@9000)"}
            << QStringList{"4.1, Crack near joint"};
        QTest::newRow("snapshot inside a block keeps the code's distance")
            << QStringList{"5m, CODE, D, (@1)", "5m, TEXT, Deformed, (@1)", "5.5m, JPEG, Snap0002.jpg, (@0)",
                           "5m, REMS, , (@1)", "5m, END, , (@1)"}
            << QStringList{"5, section_1\\Snap0002.jpg, Deformed"};
        QTest::newRow("a snapshot waiting for a comment goes with the next block")
            << QStringList{"1m, JPEG, Snap0000.jpg, (@0)", "2m, CODE, RF, (@1)", "2m, TEXT, Roots, (@1)",
                           "2m, END, , (@1)"}
            << QStringList{"2, section_1\\Snap0000.jpg, Roots"};
        QTest::newRow("END of a block without TEXT repeats the text before")
            << QStringList{"0m, TEXT, Start, (@0)", "2m, CODE, JN, (@1)", "2m, END, , (@1)"}
            << QStringList{"0, Start", "2, Start"};
        QTest::newRow("a comma in a remark cuts it")
            << QStringList{"1m, CODE, RF, (@1)", "1m, TEXT, Roots, (@1)", "1m, REMS, fine, mass, (@1)",
                           "1m, END, , (@1)"}
            << QStringList{"1, Roots fine"};
        QTest::newRow("remarks outside a block are dropped")
            << QStringList{"1m, REMS, lost, (@0)", "1m, TEXT, kept, (@0)"} << QStringList{"1, kept"};
        QTest::newRow("lines of fewer than four fields bring nothing down")
            << QStringList{"no comma at all", "", "1m, TEXT, three fields", "1m, TEXT, ok, (@0)"}
            << QStringList{"1, ok"};
        QTest::newRow("unknown types and comment-with-snapshot marks are skipped")
            << QStringList{"0m, BOTH, , (@0)", "1m, XYZ, odd, (@0)", "1m, TEXT, ok, (@0)"} << QStringList{"1, ok"};
    }
    void observations()
    {
        QFETCH(QStringList, lines);
        QFETCH(QStringList, exported);
        ProjectTree tree;
        tree.addSection("section_1", {}, lines);
        QCOMPARE(observationLines(exportText(tree, ".txt")), exported);
    }

    void damagedSurveyFilesStillGiveAnExport()
    {
        LogCapture log;
        ProjectTree tree;
        ProjectTree::writeFile(tree.path() + ".project.sdb", QByteArray());
        tree.addSection("section_1", {}, {}); // no section or observation file at all
        const QString empty = tree.addSection("section_2", {}, {});
        ProjectTree::writeFile(empty + "/.section.sdb", QByteArray());
        ProjectTree::writeFile(empty + "/.observations.sdb", QByteArray());
        const QString garbage = tree.addSection("section_3", {}, {});
        ProjectTree::writeFile(garbage + "/.section.sdb", QByteArray("\xff\x00[Section\n=\n", 13));
        ProjectTree::writeFile(garbage + "/.observations.sdb", QByteArray("\x00\xff,\r\n,,\r\n\xfe\r\n", 12)
                                   + "1m, XYZ, odd, (@0)\r\n1m, CDEF, S1, (@0)\r\n");
        const QString text = exportText(tree, ".txt");
        QCOMPARE(text.count("\r\nJob "), 3);
        QCOMPARE(text.count("\r\nStart = \r\n"), 3);
        QVERIFY(text.endsWith("\r\nSEngineer = \r\n"));
        QCOMPARE(log.count("Unknown ID in Observation File..."), 1);
    }

    void valueWithUnquotedCommaKeepsItsText()
    {
        // Written by hand, not by QSettings, which would have quoted it.
        ProjectTree tree;
        ProjectTree::writeFile(tree.path() + ".project.sdb", "[Project]\nSite Name=Oak\nAddress=12 Oak Road, Leeds\n");
        QVERIFY(exportText(tree, "oak.txt").contains("\r\nAddress = 12 Oak Road, Leeds\r\n"));
    }

    void veryLongCommentIsWrittenWhole()
    {
        ProjectTree tree;
        const QString comment(2 * 1024 * 1024, 'x');
        tree.addSection("section_1", {}, {"7m, TEXT, " + comment + ", (@0)"});
        QCOMPARE(observationLines(exportText(tree, ".txt")), QStringList{"7, " + comment});
    }

    void surveyFilesAreOnlyRead()
    {
        ProjectTree tree;
        tree.setProject({{"Site Name", "Oak"}});
        const QString section = tree.addSection("section_1", {{"Start", "MH1"}}, {"1m, TEXT, a, (@0)"});
        const QStringList files = {tree.path() + ".project.sdb", section + "/.section.sdb",
                                   section + "/.observations.sdb"};
        const auto contents = [&files] {
            QByteArrayList all;
            for (const QString &file : files)
                all << ProjectTree::readFile(file);
            return all;
        };
        const QByteArrayList before = contents();
        QTemporaryDir office;
        // A project path without its trailing "/" still works, and the export goes where it is told.
        CorvaneExport exporter(tree.path().chopped(1), office.path());
        QVERIFY(exporter.startExport());
        QVERIFY(QFile::exists(office.path() + "/oak.txt"));
        QVERIFY(!QFile::exists(tree.path() + "oak.txt"));
        QCOMPARE(contents(), before);
    }
};

QTEST_GUILESS_MAIN(TestCorvaneExport)
#include "tst_corvaneexport.moc"
