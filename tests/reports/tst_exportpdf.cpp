// The ostra PDF report end to end: a project folder, its text export, the kit's
// templates and pictures, the real wkhtmltopdf through the kit's wrapper, and
// the report read back with poppler's tools.
#include "core/consolesettings.h"
#include "reports/corvaneexport.h"
#include "reports/exportpdf.h"
#include "reports/ostrareportsplitter.h"
#include "support/logcapture.h"
#include "support/reportproject.h"
#include "support/testunit.h"

#include <QtTest>

class TestExportPdf : public QObject
{
    Q_OBJECT

    TestUnit m_unit;

    // Fills and draws the report; with convert false the converter is stopped at once.
    static bool makeReport(const ReportProject &project, bool convert = true)
    {
        CorvaneExport(project.path(), QString()).startExport();
        auto *pdf = new exportPDF;
        QSignalSpy done(pdf, &exportPDF::pdfresizeFinishedOstra);
        pdf->createPDF(project.path());
        const bool finished = !convert || done.wait(50000);
        delete pdf;
        return finished;
    }
    QString html() const { return ReportProject::readText(exportPDF::htmlPath()); }

private slots:
    void initTestCase();
    void reportShowsSiteSectionsObservationsAndPhotos();
    void pagesFollowObservationsAndPhotos_data();
    void pagesFollowObservationsAndPhotos();
    void templatesFollowLanguageAndWrc_data();
    void templatesFollowLanguageAndWrc();
    void mapPageOnlyWithMap_data();
    void mapPageOnlyWithMap();
    void largeProjectFrom29Sections_data();
    void largeProjectFrom29Sections();
    void secondReportReplacesFirst();
    void userLogoIsFitted();
    void missingConverterLeavesNoPdfAndGoesOn();
    void timersRunWhileTheReportIsMade();
};

void TestExportPdf::initTestCase()
{
    QVERIFY(m_unit.isValid());
}

void TestExportPdf::reportShowsSiteSectionsObservationsAndPhotos()
{
    ReportProject project(QStringLiteral("Smith & Sons <b>Yard</b>"));
    project.addSection(QStringLiteral("MH1"), QStringLiteral("MH2"),
                       {QStringLiteral("0.00m, JPEG, Snap0000.jpg"), QStringLiteral("0.00m, TEXT, Start of survey"),
                        QStringLiteral("3.50m, CODE, CL"), QStringLiteral("3.50m, JPEG, Snap0001.jpg"),
                        QStringLiteral("3.50m, TEXT, Crack </table> & spalling"), QStringLiteral("3.50m, END, 0"),
                        QStringLiteral("6.20m, TEXT, Junction at 3 o'clock")});
    project.addSection(QStringLiteral("MH2"), QStringLiteral("MH3"),
                       {QStringLiteral("1.10m, JPEG, Snap0002.jpg"), QStringLiteral("1.10m, TEXT, Roots at joint")});
    QFile::copy(project.path() + QStringLiteral("section_1/Snap0000.jpg"), project.path() + QStringLiteral("ReportSite.jpg"));
    QFile notes(project.path() + QStringLiteral("EngineersNotes.txt"));
    QVERIFY(notes.open(QIODevice::WriteOnly));
    notes.write("Access through the rear garden\nDog on site <script>\n");
    notes.close();
    QVERIFY(makeReport(project));

    const QString pdf = project.path() + QStringLiteral("Report.pdf");
    QVERIFY2(QFile::exists(pdf), "no Report.pdf");
    const QString text = ReportProject::pdfText(pdf);
    const QString flat = text.simplified();
    for (const QString &expected :
         {QStringLiteral("Smith & Sons <b>Yard</b>"), QStringLiteral("section_1"), QStringLiteral("section_2"),
          QStringLiteral("Start of survey"), QStringLiteral("Crack </table> & spalling"), QStringLiteral("Roots at joint"),
          QStringLiteral("Junction at 3 o'clock"), QStringLiteral("Observation [2]:"), QStringLiteral("Page 1"),
          QStringLiteral("Engineer's Notes"), QStringLiteral("Dog on site <script>")})
        QVERIFY2(flat.contains(expected), qPrintable(expected + QStringLiteral(" missing in:\n") + text));
    QVERIFY2(!html().contains(QStringLiteral("<b>Yard</b>")), "operator text went into the page as markup");
    QVERIFY(QFile::exists(project.path() + QStringLiteral("pipegraphic0_1.png")));
    QVERIFY(QFile::exists(project.path() + QStringLiteral("pipegraphic1_1.png")));
    // The working files go; PDF.html stays until the next report.
    QVERIFY(!QFile::exists(exportPDF::workingCopyPath()));
    QVERIFY(!QFile::exists(exportPDF::filledPath()));
    QVERIFY(QFile::exists(exportPDF::htmlPath()));

    const QString artifacts = TestUnit::artifactsDir(QStringLiteral("tst_exportpdf"));
    QVERIFY(ReportProject::renderPages(pdf, artifacts, QStringLiteral("report")));
    QFile::remove(artifacts + QStringLiteral("/pipegraphic0_1.png"));
    QFile::copy(project.path() + QStringLiteral("pipegraphic0_1.png"), artifacts + QStringLiteral("/pipegraphic0_1.png"));
}

void TestExportPdf::pagesFollowObservationsAndPhotos_data()
{
    QTest::addColumn<int>("observations");
    QTest::addColumn<int>("photos");
    QTest::addColumn<int>("graphicPages");
    QTest::addColumn<int>("snapshotPages");
    QTest::newRow("10 observations, 4 photos") << 10 << 4 << 1 << 1;
    QTest::newRow("11th observation opens a second graphic page") << 11 << 4 << 2 << 1;
    QTest::newRow("5th photo opens a second snapshot page") << 10 << 5 << 1 << 2;
    QTest::newRow("21 observations, 9 photos") << 21 << 9 << 3 << 3;
}

void TestExportPdf::pagesFollowObservationsAndPhotos()
{
    QFETCH(int, observations);
    QFETCH(int, photos);
    QFETCH(int, graphicPages);
    QFETCH(int, snapshotPages);
    ReportProject project;
    QStringList lines;
    for (int i = 1; i <= observations; ++i) {
        if (i <= photos)
            lines << QStringLiteral("%1.00m, JPEG, Snap%2.jpg").arg(i).arg(i, 4, 10, QLatin1Char('0'));
        lines << QStringLiteral("%1.00m, TEXT, observation %2").arg(i).arg(i);
    }
    project.addSection(QStringLiteral("MH1"), QStringLiteral("MH2"), lines);
    QVERIFY(makeReport(project, false));

    const QString page = html();
    QCOMPARE(page.count(QStringLiteral("class=\"pipe\"")), graphicPages);
    QCOMPARE(page.count(QStringLiteral("class=\"snaps\"")), snapshotPages);
    for (int p = 1; p <= graphicPages; ++p)
        QVERIFY2(QFile::exists(project.path() + QStringLiteral("pipegraphic0_%1.png").arg(p)), qPrintable(QString::number(p)));
    QVERIFY(!QFile::exists(project.path() + QStringLiteral("pipegraphic0_%1.png").arg(graphicPages + 1)));
    QVERIFY2(page.contains(QStringLiteral("Observation [%1]:").arg(photos)), qPrintable(page));
    QVERIFY(!page.contains(QStringLiteral("mDesignator")));
    QVERIFY(!page.contains(QStringLiteral("mStart")));
    QCOMPARE(page.count(QStringLiteral("<td class=\"num\">")), observations);
}

void TestExportPdf::templatesFollowLanguageAndWrc_data()
{
    QTest::addColumn<QString>("language");
    QTest::addColumn<bool>("wrc");
    QTest::addColumn<QStringList>("shown");
    QTest::addColumn<QStringList>("notShown");
    QTest::newRow("en-GB") << QStringLiteral("en-GB") << false << QStringList{QStringLiteral("Postcode")}
                           << QStringList{QStringLiteral("Weather"), QStringLiteral("Lining")};
    QTest::newRow("en-GB with WRC") << QStringLiteral("en-GB") << true
                                    << QStringList{QStringLiteral("Drizzle"), QStringLiteral("Oxford"),
                                                   QStringLiteral("<td>Resin</td>"), QStringLiteral("<td>Circular</td>")}
                                    << QStringList{QStringLiteral("mLining"), QStringLiteral("mPipeRef")};
    QTest::newRow("en-US") << QStringLiteral("en-US") << true << QStringList{QStringLiteral("ZIP code")}
                           << QStringList{QStringLiteral("Drizzle")};
}

void TestExportPdf::templatesFollowLanguageAndWrc()
{
    QFETCH(QString, language);
    QFETCH(bool, wrc);
    QFETCH(QStringList, shown);
    QFETCH(QStringList, notShown);
    ConsoleSettings().setValue(QStringLiteral("Language/code"), language);
    ConsoleSettings().setValue(QStringLiteral("SurveyData/WRC"), wrc);
    ReportProject project;
    project.setProject({{QStringLiteral("TownName"), QStringLiteral("Oxford")}, {QStringLiteral("Weather"), QStringLiteral("Drizzle")}});
    const QString section = project.addTextSection(2);
    QSettings fields(section + QStringLiteral(".section.sdb"), QSettings::IniFormat);
    fields.setValue(QStringLiteral("Section/LiningMaterial"), QStringLiteral("Resin"));
    fields.setValue(QStringLiteral("Section/Shape"), QStringLiteral("Circular"));
    fields.sync();
    const bool made = makeReport(project, false);
    ConsoleSettings().remove(QStringLiteral("Language"));
    ConsoleSettings().remove(QStringLiteral("SurveyData"));
    QVERIFY(made);
    const QString page = html();
    for (const QString &text : shown)
        QVERIFY2(page.contains(text), qPrintable(text));
    for (const QString &text : notShown)
        QVERIFY2(!page.contains(text), qPrintable(text));
}

void TestExportPdf::mapPageOnlyWithMap_data()
{
    QTest::addColumn<bool>("withMap");
    QTest::newRow("ReportMap.png present") << true;
    QTest::newRow("ReportMap.png missing") << false;
}

void TestExportPdf::mapPageOnlyWithMap()
{
    QFETCH(bool, withMap);
    ReportProject project;
    project.addTextSection(2);
    if (withMap)
        ReportProject::writePicture(project.path() + QStringLiteral("ReportMap.png"), 3);
    QVERIFY(makeReport(project, false));
    QCOMPARE(html().contains(project.path() + QStringLiteral("ReportMap.png")), withMap);
    QCOMPARE(html().contains(QStringLiteral("Site map")), withMap);
}

void TestExportPdf::largeProjectFrom29Sections_data()
{
    QTest::addColumn<int>("sections");
    QTest::addColumn<bool>("large");
    QTest::newRow("28 sections convert in one go") << 28 << false;
    QTest::newRow("29 sections convert in parts") << 29 << true;
}

void TestExportPdf::largeProjectFrom29Sections()
{
    QFETCH(int, sections);
    QFETCH(bool, large);
    ReportProject project;
    for (int i = 0; i < sections; ++i)
        project.addTextSection(1);
    CorvaneExport(project.path(), QString()).startExport();
    exportPDF pdf;
    QSignalSpy done(&pdf, &exportPDF::pdfresizeFinishedOstra);
    pdf.createPDF(project.path());
    QCOMPARE(pdf.isLargeProject(), large);
    QCOMPARE(pdf.getNoJobs(), sections);
    if (!large) {
        QVERIFY(!QFile::exists(OstraReportSplitter::partPath(0)));
        return;
    }
    QVERIFY(QFile::exists(OstraReportSplitter::partPath(sections - 1)));
    QVERIFY(!QFile::exists(OstraReportSplitter::partPath(sections)));
    // Parts after the first bring their own head, the same as the template's.
    const QString templateHead = ReportProject::readText(exportPDF::languageDir() + QStringLiteral("PDFtemplate.txt")).section(QLatin1Char('\n'), 0, 0);
    QCOMPARE(ReportProject::readText(OstraReportSplitter::partPath(1)).section(QLatin1Char('\n'), 0, 0), templateHead);
    QVERIFY(done.wait(55000));
    const QString report = project.path() + QStringLiteral("Report.pdf");
    const QString text = ReportProject::pdfText(report).simplified();
    for (int i = 1; i <= sections; ++i)
        QVERIFY2(text.contains(QStringLiteral("Section section_%1 ").arg(i)), qPrintable(QString::number(i)));
    QVERIFY(!QFile::exists(OstraReportSplitter::partPath(0)));
}

void TestExportPdf::secondReportReplacesFirst()
{
    ReportProject project;
    project.addTextSection(1);
    QFile old(project.path() + QStringLiteral("Report.pdf"));
    QVERIFY(old.open(QIODevice::WriteOnly) && old.write("an older report") > 0);
    old.close();
    QVERIFY(makeReport(project));
    QVERIFY(ReportProject::pdfText(project.path() + QStringLiteral("Report.pdf")).contains(QStringLiteral("note 1")));
}

void TestExportPdf::userLogoIsFitted()
{
    QImage wide(2000, 200, QImage::Format_ARGB32);
    wide.fill(Qt::red);
    QVERIFY(wide.save(m_unit.path(QStringLiteral("/opt/hbi/logo.png"))));
    ReportProject project;
    project.addTextSection(1);
    QVERIFY(makeReport(project, false));
    QFile::remove(m_unit.path(QStringLiteral("/opt/hbi/logo.png")));

    const QImage fitted(m_unit.path(QStringLiteral("/opt/hbi/logo_resize.png")));
    QCOMPARE(fitted.size(), QSize(863, 226));
    // Kept in proportion: a full-width band of red, transparent above and below it.
    QCOMPARE(QColor(fitted.pixel(431, 113)), QColor(Qt::red));
    QCOMPARE(qAlpha(fitted.pixel(431, 10)), 0);
    QVERIFY(html().contains(m_unit.path(QStringLiteral("/opt/hbi/logo_resize.png"))));

    LogCapture log;
    QVERIFY(makeReport(project, false));
    QVERIFY(log.contains(QStringLiteral("No user logo, using default")));
    QVERIFY(html().contains(QStringLiteral("src=\"Logo-wback-btext.PNG\"")));
}

void TestExportPdf::missingConverterLeavesNoPdfAndGoesOn()
{
    // A PATH with every usual program but the converter.
    QTemporaryDir bin;
    const QStringList programs = QDir(QStringLiteral("/usr/bin")).entryList(QDir::Files | QDir::System);
    for (const QString &program : programs) {
        if (program != QLatin1String("wkhtmltopdf"))
            QFile::link(QStringLiteral("/usr/bin/") + program, bin.path() + QLatin1Char('/') + program);
    }
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", bin.path().toLocal8Bit());
    ReportProject project;
    project.addTextSection(1);
    LogCapture log;
    const bool finished = makeReport(project);
    qputenv("PATH", path);
    QVERIFY(finished);
    QVERIFY(!QFile::exists(project.path() + QStringLiteral("Report.pdf")));
    QVERIFY(log.contains(QStringLiteral("PDF converter could not be started")));
}

// The power board is read and the camera polled by the event loop: making the
// report must not hold it for the whole of a long project.
void TestExportPdf::timersRunWhileTheReportIsMade()
{
    ReportProject project;
    for (int i = 0; i < 6; ++i)
        project.addTextSection(12);
    int ticks = 0;
    QTimer tick;
    tick.setInterval(0);
    connect(&tick, &QTimer::timeout, [&ticks] { ++ticks; });
    CorvaneExport(project.path(), QString()).startExport();
    exportPDF pdf;
    tick.start();
    pdf.createPDF(project.path());
    tick.stop();
    QVERIFY2(ticks >= 12, qPrintable(QString::number(ticks)));
}

QTEST_MAIN(TestExportPdf)
#include "tst_exportpdf.moc"
