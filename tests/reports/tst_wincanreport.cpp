// The WinCan report's filling: the exchange XML streamed through the kit's own
// WinCan templates, read back from the filled HTML and the jobs handed to the
// pipe graphic. No converter runs here; tst_wincanpdf makes the PDF.
#include "reports/exportpdf.h"
#include "reports/miraculixexport.h"
#include "reports/wincanconversions.h"
#include "reports/wincandefectcounters.h"
#include "reports/wincanreport.h"
#include "support/exchangexml.h"
#include "support/logcapture.h"
#include "support/projecttree.h"
#include "support/testunit.h"

#include <QtTest>

namespace {

using Obs = ExchangeXml::Observation;

struct Filled {
    bool ok = false;
    QString html;
    QVector<QVector<QStringList>> jobs;
    QVector<QStringList> info;
};

} // namespace

class TestWinCanReport : public QObject
{
    Q_OBJECT

    TestUnit m_unit;
    QTemporaryDir m_project;

    QString projectDir() const { return m_project.path() + QLatin1Char('/'); }

    Filled fill(const QByteArray &xml, const QString &unit = QStringLiteral("m")) const
    {
        ReportTemplate report;
        report.load(exportPDF::languageDir() + QStringLiteral("WinCanPDFtemplate.txt"));
        WinCanReport filler(&report, projectDir(), exportPDF::languageDir(), unit);
        filler.begin();
        QBuffer buffer;
        buffer.setData(xml);
        buffer.open(QIODevice::ReadOnly);
        Filled filled;
        filled.ok = filler.read(&buffer, QStringLiteral("Mill_Lane.xml"));
        filled.html = report.lines().join(QLatin1Char('\n'));
        filled.jobs = filler.jobs();
        filled.info = filler.pipeInfo();
        return filled;
    }

    // The cells of the table rows that hold text, one row a line.
    static QStringList rowsContaining(const QString &html, const QString &text)
    {
        QStringList rows;
        for (const QString &line : html.split(QLatin1Char('\n'))) {
            if ((line.startsWith(QLatin1String("<tr><td>")) || line.startsWith(QLatin1String("<tr class=")))
                && line.contains(text))
                rows << line;
        }
        return rows;
    }

private slots:
    void initTestCase() { QVERIFY(m_unit.isValid()); }
    void conversions_data();
    void conversions();
    void locationUnderBuildingFollowsCatalogue_data();
    void locationUnderBuildingFollowsCatalogue();
    void sectionsAndInspectionsAreSummed();
    void graphicPagesOfThirteen_data();
    void graphicPagesOfThirteen();
    void fifthPictureOpensSnapshotPage();
    void observationsAreMadeRegular();
    void profilesAreCountedOnce_data();
    void profilesAreCountedOnce();
    void directionPlacesNodes_data();
    void directionPlacesNodes();
    void defectCountersStayZero();
    void longDistancesAreNotCapped();
    void badExchangeFilesWarnAndStop_data();
    void badExchangeFilesWarnAndStop();
    void readsWhatTheExchangeExportWrites();
};

void TestWinCanReport::conversions_data()
{
    QTest::addColumn<QString>("function");
    QTest::addColumn<QString>("code");
    QTest::addColumn<QString>("text");
    QTest::newRow("weather R") << "weather" << "R" << "Rain";
    QTest::newRow("weather 1") << "weather" << "1" << "Dry";
    QTest::newRow("weather any case") << "weather" << "s" << "Melting Snow/Ice";
    QTest::newRow("weather unknown stays") << "weather" << "Q" << "Q";
    QTest::newRow("pre-cleaned Z") << "cleaned" << "Z" << "Not Known";
    QTest::newRow("method C") << "method" << "C" << "Manhole/Chamber";
    QTest::newRow("grade Z") << "grade" << "Z" << "Unknown";
    QTest::newRow("grade unknown stays") << "grade" << "D" << "D";
    QTest::newRow("use LD") << "use" << "LD" << "Field Drainage";
    QTest::newRow("flow PB") << "flow" << "pb" << "Flows Partially Blocked Upstream";
    QTest::newRow("type V") << "type" << "V" << "Vacuum Pipeline";
    QTest::newRow("purpose J") << "purpose" << "J" << "End of warranty period";
    QTest::newRow("lining CIP") << "lining" << "CIP" << "Cured-In-Place Lining";
    QTest::newRow("location FWY") << "location" << "FWY" << "A Footway Beside A Road";
    QTest::newRow("location A") << "location" << "A" << "Main Road - urban";
    QTest::newRow("shape C, with its blank") << "shape" << "C" << "Circular ";
    QTest::newRow("shape U keeps its spelling") << "shape" << "U" << "U-Shapped ";
    QTest::newRow("shape exact case") << "shape" << "c" << "Unknown ";
    QTest::newRow("shape unknown") << "shape" << "Q" << "Unknown ";
    QTest::newRow("material VC") << "material" << "VC" << "Vitrified Clay";
    QTest::newRow("material CS keeps its spelling") << "material" << "CS" << "Conrete Segments";
    QTest::newRow("lining material PVC") << "liningmaterial" << "pvc" << "Polyvinyl Chloride";
    QTest::newRow("material unknown stays") << "material" << "Wood" << "Wood";
}

void TestWinCanReport::conversions()
{
    QFETCH(QString, function);
    QFETCH(QString, code);
    QFETCH(QString, text);
    const QHash<QString, QString (*)(const QString &)> functions{
        {QStringLiteral("weather"), WinCanConversions::convertWinCanWeather},
        {QStringLiteral("cleaned"), WinCanConversions::convertWinCanPreCleaned},
        {QStringLiteral("method"), WinCanConversions::convertWinCanMethod},
        {QStringLiteral("grade"), WinCanConversions::convertWinCanGrade},
        {QStringLiteral("use"), WinCanConversions::convertWinCanUse},
        {QStringLiteral("flow"), WinCanConversions::convertWinCanFlow},
        {QStringLiteral("type"), WinCanConversions::convertWinCanType},
        {QStringLiteral("purpose"), WinCanConversions::convertWinCanPurpose},
        {QStringLiteral("lining"), WinCanConversions::convertWinCanLining},
        {QStringLiteral("shape"), WinCanConversions::convertShapecode},
        {QStringLiteral("material"), WinCanConversions::convertWinCanMaterial},
        {QStringLiteral("liningmaterial"), WinCanConversions::convertWinCanLiningMat},
    };
    if (function == QLatin1String("location"))
        QCOMPARE(WinCanConversions::convertWinCanLocation(code, projectDir() + QStringLiteral(".project.wdb")), text);
    else
        QCOMPARE(functions.value(function)(code), text);
}

void TestWinCanReport::locationUnderBuildingFollowsCatalogue_data()
{
    QTest::addColumn<QString>("catalogue");
    QTest::addColumn<QString>("text");
    QTest::newRow("MSCC-4") << "MSCC-4" << "Under a permanent building";
    QTest::newRow("MSCC-5") << "MSCC-5" << "Property with Buildings";
    QTest::newRow("none") << "" << "Property with Buildings";
}

void TestWinCanReport::locationUnderBuildingFollowsCatalogue()
{
    QFETCH(QString, catalogue);
    QFETCH(QString, text);
    const QString file = projectDir() + QStringLiteral("blg.project.wdb");
    QSettings project(file, QSettings::IniFormat);
    project.setValue(QStringLiteral("Project/catalogcustom"), catalogue);
    project.sync();
    QCOMPARE(WinCanConversions::convertWinCanLocation(QStringLiteral("BLG"), file), text);
}

void TestWinCanReport::sectionsAndInspectionsAreSummed()
{
    ExchangeXml x;
    x.sections << ExchangeXml::section(QStringLiteral("S1"), QStringLiteral("MH1"), QStringLiteral("MH2"),
                                       QStringLiteral("12.34"), ExchangeXml::observations(3))
               << ExchangeXml::section(QStringLiteral("S2"), QStringLiteral("MH2"), QStringLiteral("MH3"),
                                       QStringLiteral("20.1"), ExchangeXml::observations(5));
    const Filled f = fill(x.xml());
    QVERIFY(f.ok);
    // Front page: the name from cdname; the later pages take the identifier.
    QVERIFY(f.html.contains(QStringLiteral("<h1>Mill Lane</h1>")));
    for (const QString &total : {QStringLiteral("Sections</td><td>2</td>"), QStringLiteral("Total length</td><td>32.4 m</td>"),
                                 QStringLiteral("Inspections</td><td>2</td>"),
                                 QStringLiteral("Inspected length</td><td>8 m</td>")})
        QVERIFY2(f.html.contains(total), qPrintable(total));
    QVERIFY(f.html.contains(QStringLiteral("<td>2026-11-20</td>")));
    QVERIFY(f.html.contains(QStringLiteral("Section 2 &middot; S2")));
    const QStringList summaryRows = rowsContaining(f.html, QStringLiteral("<td>Circular </td>"));
    QCOMPARE(summaryRows.size(), 2);
    QVERIFY2(summaryRows.at(0).startsWith(QStringLiteral("<tr><td>1</td><td>S1</td><td>Mill Lane</td><td>Oxford</td><td>MH1</td><td>MH2</td><td>150</td>")),
             qPrintable(summaryRows.at(0)));
    QVERIFY(summaryRows.at(1).contains(QStringLiteral("<td>Vitrified Clay</td><td>20.1</td>")));
    const QStringList inspectionRows = rowsContaining(f.html, QStringLiteral("<td>Jo Bloggs</td><td> Downstream</td>"));
    QCOMPARE(inspectionRows.size(), 2);
    QVERIFY(inspectionRows.at(1).endsWith(QStringLiteral("<td>5</td><td>CL</td></tr>")));
    QVERIFY(f.html.contains(QStringLiteral("<td>Riverside Homes</td>")));
    QVERIFY(f.html.contains(QStringLiteral("<td>Dry</td>")));
    QVERIFY(f.html.contains(QStringLiteral("<td>Category B</td>")));
    // Nothing of the templates' own words is left for the reader. Picture paths
    // go first: a temporary folder's random name can look like a placeholder.
    QString words = f.html;
    words.remove(m_project.path()).remove(m_unit.root());
    static const QRegularExpression placeholder(QStringLiteral("\\bm(?:[A-Z][A-Za-z]+\\d?|flow)\\b"));
    const QRegularExpressionMatch left = placeholder.match(words);
    QVERIFY2(!left.hasMatch(), qPrintable(left.captured()));
    QVERIFY(!f.html.contains(QStringLiteral("mDesignator")));
    QCOMPARE(f.jobs.size(), 2);
    QCOMPARE(f.jobs.at(1).size(), 5);
    QCOMPARE(f.info.size(), 2);
}

void TestWinCanReport::graphicPagesOfThirteen_data()
{
    QTest::addColumn<int>("observations");
    QTest::addColumn<int>("pages");
    QTest::newRow("13 observations on one page") << 13 << 1;
    QTest::newRow("14th observation opens a second page") << 14 << 2;
    QTest::newRow("27 observations on three pages") << 27 << 3;
}

void TestWinCanReport::graphicPagesOfThirteen()
{
    QFETCH(int, observations);
    QFETCH(int, pages);
    ExchangeXml x;
    x.sections << ExchangeXml::section(QStringLiteral("S1"), QStringLiteral("MH1"), QStringLiteral("MH2"),
                                       QStringLiteral("30"), ExchangeXml::observations(observations));
    const Filled f = fill(x.xml());
    QVERIFY(f.ok);
    QCOMPARE(f.html.count(QStringLiteral("class=\"wpipe\"")), pages);
    for (int page = 1; page <= pages; ++page)
        QVERIFY(f.html.contains(projectDir() + QStringLiteral("pipegraphic0_%1.png").arg(page)));
    QCOMPARE(f.html.count(QStringLiteral("<td class=\"num\">")), observations);
    QCOMPARE(f.jobs.value(0).size(), observations);
}

void TestWinCanReport::fifthPictureOpensSnapshotPage()
{
    QVector<Obs> list = ExchangeXml::observations(6);
    for (int i = 0; i < 5; ++i)
        list[i].pictures << QStringLiteral("Snap %1.jpg").arg(i);
    ExchangeXml x;
    x.sections << ExchangeXml::section(QStringLiteral("S1"), QStringLiteral("MH1"), QStringLiteral("MH2"),
                                       QStringLiteral("6"), list);
    const Filled f = fill(x.xml());
    QCOMPARE(f.html.count(QStringLiteral("class=\"snaps\"")), 2);
    // Blanks go from the path and the backslash turns round.
    QVERIFY(f.html.contains(projectDir() + QStringLiteral("S1/Snap4.jpg")));
    QVERIFY(f.html.contains(QStringLiteral("Observation [5]:</b> Crack longitudinal 5")));
    QVERIFY(!f.html.contains(QStringLiteral("Observation [6]:")));
    QVERIFY(!f.html.contains(QStringLiteral("mSnap")));
}

void TestWinCanReport::observationsAreMadeRegular()
{
    ExchangeXml x;
    x.sections << ExchangeXml::section(
        QStringLiteral("S1"), QStringLiteral("MH1"), QStringLiteral("MH2"), QStringLiteral("6"),
        {Obs{QStringLiteral("0.00"), QStringLiteral("ST"), QStringLiteral("Start")},
         Obs{QStringLiteral("2.50"), QStringLiteral("DES"), QStringLiteral("Settled deposits"), {QStringLiteral("Snap0001.jpg")},
             QStringLiteral("S1"), QStringLiteral("fine silt")},
         Obs{QStringLiteral("4.00"), QStringLiteral("DES"), QStringLiteral("Settled deposits end"), {}, QStringLiteral("F1")}});
    const Filled f = fill(x.xml());
    QCOMPARE(f.jobs.size(), 1);
    const QVector<QStringList> &job = f.jobs.at(0);
    QCOMPARE(job.at(0), (QStringList{"0.00", "ST", "N", "Start", " ", ""}));
    QCOMPARE(job.at(1), (QStringList{"2.50", "DES", "S1", "Settled deposits", projectDir() + "S1/Snap0001.jpg", "fine silt"}));
    QCOMPARE(job.at(2).value(2), QStringLiteral("F1"));
    QVERIFY(f.html.contains(QStringLiteral("Settled deposits fine silt")));
}

void TestWinCanReport::profilesAreCountedOnce_data()
{
    QTest::addColumn<QString>("unit");
    QTest::addColumn<QString>("secondShape");
    QTest::addColumn<bool>("secondInspected");
    QTest::addColumn<QStringList>("rows");
    QTest::newRow("two sections of one profile") << "m" << "C" << true
        << QStringList{"<tr><td>Circular  150mm</td><td>2</td><td>25.0 m</td></tr>",
                       "<tr><td>Circular  150mm</td><td>2</td><td>7 m</td></tr>"};
    QTest::newRow("sizes in inches on an imperial unit") << "ft" << "C" << true
        << QStringList{"<tr><td>Circular  150inch</td><td>2</td><td>25.0 ft</td></tr>",
                       "<tr><td>Circular  150inch</td><td>2</td><td>7 ft</td></tr>"};
    QTest::newRow("two profiles") << "m" << "E" << true
        << QStringList{"<tr><td>Circular  150mm</td><td>1</td><td>10.0 m</td></tr>",
                       "<tr><td>Egg-Shaped  150mm</td><td>1</td><td>15.0 m</td></tr>",
                       "<tr><td>Circular  150mm</td><td>1</td><td>3 m</td></tr>",
                       "<tr><td>Egg-Shaped  150mm</td><td>1</td><td>4 m</td></tr>"};
    // A profile no inspection reached has its rows left empty.
    QTest::newRow("profile without an inspection") << "m" << "E" << false
        << QStringList{"<tr><td>Circular  150mm</td><td>1</td><td>10.0 m</td></tr>", "<tr><td></td><td></td><td> m</td></tr>",
                       "<tr><td>Circular  150mm</td><td>1</td><td>3 m</td></tr>", "<tr><td></td><td></td><td> m</td></tr>"};
}

void TestWinCanReport::profilesAreCountedOnce()
{
    QFETCH(QString, unit);
    QFETCH(QString, secondShape);
    QFETCH(bool, secondInspected);
    QFETCH(QStringList, rows);
    ExchangeXml x;
    x.sections << ExchangeXml::section(QStringLiteral("S1"), QStringLiteral("MH1"), QStringLiteral("MH2"),
                                       QStringLiteral("10"), ExchangeXml::observations(3))
               << ExchangeXml::section(QStringLiteral("S2"), QStringLiteral("MH2"), QStringLiteral("MH3"),
                                       QStringLiteral("15"), ExchangeXml::observations(4));
    ExchangeXml::setField(&x.sections[1].pcd, QStringLiteral("PCDPipeShape"), secondShape);
    x.sections[1].inspected = secondInspected;
    const Filled f = fill(x.xml(), unit);
    QVERIFY(f.ok);
    QStringList found;
    for (const QString &line : f.html.split(QLatin1Char('\n'))) {
        if (line.startsWith(QLatin1String("<tr><td>")) && line.count(QStringLiteral("<td>")) == 3)
            found << line;
    }
    QCOMPARE(found, rows);
}

void TestWinCanReport::directionPlacesNodes_data()
{
    QTest::addColumn<QString>("direction");
    QTest::addColumn<QString>("upstream");
    QTest::addColumn<QString>("shown");
    QTest::addColumn<QStringList>("info");
    QTest::newRow("downstream") << "D" << "MH1" << " Downstream" << QStringList{"MH1", "(D)", "MH2", "1.20", "1.45"};
    QTest::newRow("upstream") << "U" << "MH2" << " Upstream" << QStringList{"MH1", "(U)", "MH2", "1.20", "1.45"};
    QTest::newRow("no direction") << "" << "MH1" << " " << QStringList{"MH1", " ", "MH2", "1.20", "1.45"};
}

void TestWinCanReport::directionPlacesNodes()
{
    QFETCH(QString, direction);
    QFETCH(QString, upstream);
    QFETCH(QString, shown);
    QFETCH(QStringList, info);
    ExchangeXml x;
    x.sections << ExchangeXml::section(QStringLiteral("S1"), QStringLiteral("MH1"), QStringLiteral("MH2"),
                                       QStringLiteral("10"), ExchangeXml::observations(2));
    if (direction.isEmpty())
        ExchangeXml::removeField(&x.sections[0].pid, QStringLiteral("PIDDirection"));
    else
        ExchangeXml::setField(&x.sections[0].pid, QStringLiteral("PIDDirection"), direction);
    const Filled f = fill(x.xml());
    QCOMPARE(f.info.value(0), info);
    QVERIFY2(f.html.contains(QStringLiteral("Upstream node</td><td>%1</td>").arg(upstream)), qPrintable(f.html));
    QVERIFY(f.html.contains(QStringLiteral("<td>Jo Bloggs</td><td>%1</td>").arg(shown)));
}

// The exchange file brings no defect class, so the summary counts nothing
// whatever the codes: every cell of the defect summary reads 0.
void TestWinCanReport::defectCountersStayZero()
{
    const QStringList codes{"CL", "CUW", "FL", "B", "D", "XP", "H", "JDM", "OJL", "RF", "DEE", "DES", "DEG", "OBX", "WL", "LL"};
    QVector<Obs> list;
    for (const QString &code : codes) {
        list << Obs{QString::number(list.size() + 1), code, code};
        QCOMPARE(WinCanDefectCounters::defectCodeParser(code), -1);
    }
    QCOMPARE(WinCanDefectCounters::defectCodeParser(QString()), -1);
    ExchangeXml x;
    x.sections << ExchangeXml::section(QStringLiteral("S1"), QStringLiteral("MH1"), QStringLiteral("MH2"),
                                       QStringLiteral("20"), list);
    const Filled f = fill(x.xml());
    const QStringList rows = rowsContaining(f.html, QStringLiteral("<td>0</td><td>0</td><td>0</td>"));
    QCOMPARE(rows.size(), 2);
    QCOMPARE(rows.at(0), QStringLiteral("<tr><td>1</td>") + QStringLiteral("<td>0</td>").repeated(19) + QStringLiteral("</tr>"));
    QCOMPARE(rows.at(1), QStringLiteral("<tr class=\"tot\"><td>Total</td>") + QStringLiteral("<td>0</td>").repeated(19) + QStringLiteral("</tr>"));
    // What each class would count, were one known.
    QCOMPARE(WinCanDefectCounters::counterFor(QStringLiteral("CL"), 54), 2);
    QCOMPARE(WinCanDefectCounters::counterFor(QStringLiteral("DES"), 53), 14);
    QCOMPARE(WinCanDefectCounters::counterFor(QStringLiteral("OBX"), 99), 16);
    QCOMPARE(WinCanDefectCounters::convertDefectSummary(QVector<int>(18, 1)), QStringList());
}

// The WinCan report shows the inspected length as the exchange file gives it:
// no cap, unlike the WRC file.
void TestWinCanReport::longDistancesAreNotCapped()
{
    ExchangeXml x;
    x.sections << ExchangeXml::section(QStringLiteral("S1"), QStringLiteral("MH1"), QStringLiteral("MH2"),
                                       QStringLiteral("1200.0"),
                                       {Obs{QStringLiteral("1200.0"), QStringLiteral("FH"), QStringLiteral("Finish")}});
    const Filled f = fill(x.xml());
    QVERIFY(f.html.contains(QStringLiteral("<td>1200</td><td>FH</td>")));
    QVERIFY(f.html.contains(QStringLiteral("<td>1200.0 m</td>")));
    QVERIFY(!f.html.contains(QStringLiteral("999.9")));
}

void TestWinCanReport::badExchangeFilesWarnAndStop_data()
{
    QTest::addColumn<QByteArray>("xml");
    ExchangeXml x;
    x.sections << ExchangeXml::section(QStringLiteral("S1"), QStringLiteral("MH1"), QStringLiteral("MH2"),
                                       QStringLiteral("10"), ExchangeXml::observations(14));
    const QByteArray whole = x.xml();
    QTest::newRow("empty") << QByteArray();
    QTest::newRow("truncated in an observation") << whole.left(whole.indexOf("<podtext>") + 12);
    QTest::newRow("truncated before the end") << whole.left(whole.size() - 20);
    QTest::newRow("mismatched tag") << QByteArray(whole).replace("</sectionname>", "</sectionnme>");
    QTest::newRow("not XML") << QByteArray("Section/PCDStartNode=MH1\n\x01\xff<<");
    QTest::newRow("two roots") << whole + whole;
}

void TestWinCanReport::badExchangeFilesWarnAndStop()
{
    QFETCH(QByteArray, xml);
    LogCapture log;
    const Filled f = fill(xml);
    QVERIFY(!f.ok);
    QVERIFY2(log.contains(QStringLiteral("xmlFile.xml Parse Error")), qPrintable(log.messages().join('\n')));
    // The pages are not finished off: placeholders stay, no page is numbered.
    QVERIFY(f.html.contains(QStringLiteral("mPageNo")));

    log.clear();
    ReportTemplate report;
    WinCanReport filler(&report, projectDir(), exportPDF::languageDir(), QStringLiteral("m"));
    QVERIFY(!filler.readFile(projectDir() + QStringLiteral("absent.xml")));
    QVERIFY(log.contains(QStringLiteral("Couldn't open xmlfile.xml to load settings for download")));
}

// The two ends of the exchange file meet: a WinCan project as the survey
// leaves it, exported, then read into the report.
void TestWinCanReport::readsWhatTheExchangeExportWrites()
{
    ProjectTree tree(ProjectTree::Mode::kWinCan);
    tree.setProject({{"ID", "P-17"}, {"cdname", "Oak Road"}, {"cddate", "23/11/2026"}, {"catalogbase", "MSCC-5"}});
    tree.addSection("20261123-101500",
                    {{"PCDStartNode", "MH1"}, {"PCDEndNode", "MH2"}, {"PIDDirection", "Upstream (U)"},
                     {"PCDPipeDimension1", "225"}, {"PCDPipeShape", "Egg (E)"}, {"PCDPipeLength", "18.5"},
                     {"PCDPipeMaterial", "Clay (VC)"}, {"PIDOperator", "Jo Bloggs"}},
                    {"0.00m, JPEG, Snap0001.jpg, (@1000)", "2.40m, CODE, DES, (@4000)", "2.40m, TEXT, Settled deposits, (@4000)",
                     "2.40m, CDEF, S1, (@4000)", "2.40m, REMS, 10%, (@4000)", "2.40m, END, , (@4000)",
                     "7.20m, CODE, DES, (@9000)", "7.20m, CDEF, F1, (@9000)", "7.20m, END, , (@9000)"});
    QVERIFY(MiraculIXExport(tree.path(), QString()).startExport());
    ReportTemplate report;
    report.load(exportPDF::languageDir() + QStringLiteral("WinCanPDFtemplate.txt"));
    WinCanReport filler(&report, tree.path(), exportPDF::languageDir(), QStringLiteral("m"));
    QVERIFY(filler.readFile(tree.path() + QStringLiteral("Oak_Road.xml")));
    const QString html = report.lines().join(QLatin1Char('\n'));
    QCOMPARE(filler.jobs().size(), 1);
    QCOMPARE(filler.jobs().at(0),
             (QVector<QStringList>{{"0.00", "GP", "N", "General photograph taken at this point",
                                    tree.path() + "20261123-101500/Snap0001.jpg", " "},
                                   {"2.40", "DES", "S1", "Settled deposits", " ", "10%"},
                                   {"7.20", "DES", "F1", "", " ", ""}}));
    QCOMPARE(filler.pipeInfo().value(0), (QStringList{"MH1", "(U)", "MH2", " ", " "}));
    for (const QString &expected : {QStringLiteral("<td>Egg-Shaped  225mm</td><td>1</td><td>18.5 m</td>"),
                                    QStringLiteral("Upstream node</td><td>MH2</td>"),
                                    QStringLiteral("<td>Jo Bloggs</td><td> Upstream</td><td>7.2</td><td>DES</td>"),
                                    QStringLiteral("Section 1 &middot; 20261123-101500")})
        QVERIFY2(html.contains(expected), qPrintable(expected));
}

QTEST_MAIN(TestWinCanReport)
#include "tst_wincanreport.moc"
