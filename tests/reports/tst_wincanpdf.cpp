// The WinCan report end to end: a project folder with a hand-written exchange
// file, the kit's WinCan templates and pipe bitmaps, the real wkhtmltopdf
// through the kit's wrapper, and the report read back with poppler's tools.
#include "reports/exportpdf.h"
#include "support/exchangexml.h"
#include "support/logcapture.h"
#include "support/reportproject.h"
#include "support/testunit.h"

#include <QtTest>

namespace {

// As the MiraculIX export writes it: two sections, the second with a photograph
// and, further down, a fourteenth observation.
const char kExchangeHead[] = R"(<?xml version="1.0" encoding="UTF-8"?>
<exportdata distanceunit="meter" cnameprefix="lanthorn">
    <project>
        <catalogbase>MSCC-5</catalogbase>
        <catalogcustom>MSCC-5-DOMESTIC</catalogcustom>
        <cddate>2026-11-20</cddate>
        <cdname>Mill Lane</cdname>
        <ProjectID>ML-0042</ProjectID>
        <documents>
            <document>
                <filename>Report.pdf</filename>
                <description>WinCan Report PDF</description>
            </document>
        </documents>
    </project>
    <section>
        <sectionname>S1</sectionname>
        <PCDCityName>Oxford</PCDCityName>
        <PCDEndDepth>1.45</PCDEndDepth>
        <PCDEndNode>MH2</PCDEndNode>
        <PCDPipeDimension1>150</PCDPipeDimension1>
        <PCDPipeLength>12.5</PCDPipeLength>
        <PCDPipeMaterial>VC</PCDPipeMaterial>
        <PCDPipeShape>C</PCDPipeShape>
        <PCDStartDepth>1.20</PCDStartDepth>
        <PCDStartNode>MH1</PCDStartNode>
        <PCDStartStreetName>Mill Lane</PCDStartStreetName>
        <sectioninspection>
            <PIDClient>Riverside Homes</PIDClient>
            <PIDDate>2026-11-21</PIDDate>
            <PIDDirection>D</PIDDirection>
            <PIDOperator>Jo Bloggs</PIDOperator>
            <PIDWeather>1</PIDWeather>
            <sectionobservation>
                <poddistance>0.00</poddistance>
                <podcode>ST</podcode>
                <podmovie>S1\S1-video.mp4</podmovie>
                <podmpegposition>00:00:01</podmpegposition>
                <podtext>Start of survey</podtext>
            </sectionobservation>
            <sectionobservation>
                <poddistance>12.50</poddistance>
                <podcode>FH</podcode>
                <podmovie>S1\S1-video.mp4</podmovie>
                <podmpegposition>00:01:40</podmpegposition>
                <podtext>Finish at manhole</podtext>
            </sectionobservation>
        </sectioninspection>
    </section>
    <section>
        <sectionname>S2</sectionname>
        <PCDCityName>Oxford</PCDCityName>
        <PCDEndDepth>1.80</PCDEndDepth>
        <PCDEndNode>MH3</PCDEndNode>
        <PCDPipeDimension1>150</PCDPipeDimension1>
        <PCDPipeLength>20.0</PCDPipeLength>
        <PCDPipeMaterial>VC</PCDPipeMaterial>
        <PCDPipeShape>C</PCDPipeShape>
        <PCDStartDepth>1.45</PCDStartDepth>
        <PCDStartNode>MH2</PCDStartNode>
        <sectioninspection>
            <PIDDate>2026-11-21</PIDDate>
            <PIDDirection>U</PIDDirection>
            <PIDOperator>Jo Bloggs</PIDOperator>
            <sectionobservation>
                <poddistance>0.00</poddistance>
                <podcode>GP</podcode>
                <podmovie>S2\S2-video.mp4</podmovie>
                <podmpegposition>00:00:02</podmpegposition>
                <podtext>General photograph taken at this point</podtext>
                <PODRemarks> </PODRemarks>
                <PODPicture1>S2\Snap0001.jpg</PODPicture1>
            </sectionobservation>
)";

const char kExchangeObservation[] = R"(            <sectionobservation>
                <poddistance>%1</poddistance>
                <podcode>CL</podcode>
                <podmovie>S2\S2-video.mp4</podmovie>
                <podmpegposition>00:00:10</podmpegposition>
                <podtext>Crack longitudinal %2</podtext>
            </sectionobservation>
)";

const char kExchangeTail[] = R"(        </sectioninspection>
    </section>
</exportdata>
)";

QByteArray exchangeFile()
{
    QByteArray xml(kExchangeHead);
    for (int i = 1; i <= 13; ++i)
        xml += QString::fromLatin1(kExchangeObservation).arg(i * 1.5, 0, 'f', 2).arg(i).toUtf8();
    return xml + kExchangeTail;
}

} // namespace

class TestWinCanPdf : public QObject
{
    Q_OBJECT

    TestUnit m_unit;

    static bool makeReport(const QString &projectDir)
    {
        auto *pdf = new exportPDF;
        QSignalSpy done(pdf, &exportPDF::pdfresizeFinished);
        pdf->createWinCanPDF(projectDir);
        const bool finished = done.wait(50000);
        delete pdf;
        return finished;
    }

    static bool writeFile(const QString &file, const QByteArray &bytes)
    {
        QDir().mkpath(QFileInfo(file).path());
        QFile out(file);
        return out.open(QIODevice::WriteOnly) && out.write(bytes) == bytes.size();
    }

private slots:
    void initTestCase() { QVERIFY(m_unit.isValid()); }
    void reportShowsSectionAndInspectionSummaries();
    void badExchangeFileLeavesNoReportAndGoesOn_data();
    void badExchangeFileLeavesNoReportAndGoesOn();
};

void TestWinCanPdf::reportShowsSectionAndInspectionSummaries()
{
    QTemporaryDir root;
    const QString project = root.path() + QStringLiteral("/Mill Lane/");
    QVERIFY(writeFile(project + QStringLiteral("Mill_Lane.xml"), exchangeFile()));
    QDir().mkpath(project + QStringLiteral("S2"));
    ReportProject::writePicture(project + QStringLiteral("S2/Snap0001.jpg"), 2);
    QVERIFY(makeReport(project));

    const QString pdf = project + QStringLiteral("Report.pdf");
    QVERIFY2(QFile::exists(pdf), "no Report.pdf");
    const QString text = ReportProject::pdfText(pdf);
    const QString flat = text.simplified();
    for (const QString &expected :
         {QStringLiteral("Mill Lane"), QStringLiteral("ML-0042"), QStringLiteral("Section summary"),
          QStringLiteral("Inspection summary"), QStringLiteral("Defect summary"), QStringLiteral("Sections by profile"),
          QStringLiteral("Circular 150mm 2 32.5 m"), QStringLiteral("Total 2 32.5 m"), QStringLiteral("Total 2 32 m"),
          QStringLiteral("Section 2 · S2"), QStringLiteral("Vitrified Clay"), QStringLiteral("Riverside Homes"),
          QStringLiteral("Upstream"), QStringLiteral("Crack longitudinal 13"), QStringLiteral("Observation [1]:"),
          QStringLiteral("Page 1")})
        QVERIFY2(flat.contains(expected), qPrintable(expected + QStringLiteral(" missing in:\n") + text));
    QVERIFY2(!flat.contains(QStringLiteral("mSection")), qPrintable(text));

    // The second section's fourteen observations draw on two pictures of the WinCan size.
    for (const QString &picture : {QStringLiteral("pipegraphic0_1.png"), QStringLiteral("pipegraphic1_1.png"),
                                   QStringLiteral("pipegraphic1_2.png")})
        QCOMPARE(QImage(project + picture).size(), QSize(800, 600));
    QVERIFY(!QFile::exists(project + QStringLiteral("pipegraphic1_3.png")));
    QVERIFY(!QFile::exists(exportPDF::filledPath()));

    const QString artifacts = TestUnit::artifactsDir(QStringLiteral("tst_wincanpdf"));
    QVERIFY(ReportProject::renderPages(pdf, artifacts, QStringLiteral("report")));
    QFile::remove(artifacts + QStringLiteral("/pipegraphic1_1.png"));
    QFile::copy(project + QStringLiteral("pipegraphic1_1.png"), artifacts + QStringLiteral("/pipegraphic1_1.png"));
}

void TestWinCanPdf::badExchangeFileLeavesNoReportAndGoesOn_data()
{
    QTest::addColumn<QByteArray>("xml");
    QTest::addColumn<QString>("warning");
    const QByteArray whole = exchangeFile();
    QTest::newRow("truncated") << whole.left(whole.size() / 2) << "xmlFile.xml Parse Error";
    QTest::newRow("malformed") << QByteArray(whole).replace("</podtext>", "</podtxt>") << "xmlFile.xml Parse Error";
    QTest::newRow("no exchange file") << QByteArray() << "No WinCan export";
}

// The survey waits for the report's end: a broken exchange file still ends the
// run, with no report rather than a half-filled one.
void TestWinCanPdf::badExchangeFileLeavesNoReportAndGoesOn()
{
    QFETCH(QByteArray, xml);
    QFETCH(QString, warning);
    QTemporaryDir root;
    const QString project = root.path() + QStringLiteral("/Broken/");
    QDir().mkpath(project);
    if (!xml.isEmpty())
        QVERIFY(writeFile(project + QStringLiteral("Broken.xml"), xml));
    LogCapture log;
    QVERIFY(makeReport(project));
    QVERIFY2(log.contains(warning), qPrintable(log.messages().join(QLatin1Char('\n'))));
    QVERIFY(!QFile::exists(project + QStringLiteral("Report.pdf")));
    QVERIFY(!QFile::exists(exportPDF::htmlPath()));
}

QTEST_MAIN(TestWinCanPdf)
#include "tst_wincanpdf.moc"
