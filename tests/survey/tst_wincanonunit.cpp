// A WinCan survey on the simulated unit, by keys alone, with the real main
// window, forms, catalogues and the kit's recorder: a project on MSCC-5 with
// two sections, each with its start questions, an observation picked from the
// catalogue tree, one typed by code, a continuous defect opened and closed,
// and the stop questions; then "Export Project" writes the exchange file and
// "Finalise Report" the report.
#include "surveyrig.h"

#include "app/controller.h"
#include "app/mainwindow.h"
#include "core/uikeys.h"
#include "support/consoleonunit.h"
#include "support/keypadoperator.h"
#include "support/reportproject.h"
#include "support/testunit.h"
#include "survey/surveymanager.h"
#include "survey/wincan/wccataloguemanager.h"

#include <QApplication>
#include <QXmlStreamReader>
#include <QtTest>

namespace {

// What the exchange file holds of one section: its start node and the codes of
// its observations, in file order.
struct ExportedSection {
    QString startNode;
    QStringList codes;
};

QVector<ExportedSection> readExchangeFile(const QString &path, QString *error)
{
    QVector<ExportedSection> sections;
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly)) {
        *error = QStringLiteral("cannot open ") + path;
        return sections;
    }
    QXmlStreamReader xml(&file);
    bool inObservation = false;
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement() && xml.name() == QLatin1String("section"))
            sections.append(ExportedSection());
        else if (xml.isStartElement() && xml.name() == QLatin1String("sectionobservation"))
            inObservation = true;
        else if (xml.isEndElement() && xml.name() == QLatin1String("sectionobservation"))
            inObservation = false;
        else if (xml.isStartElement() && !sections.isEmpty() && xml.name() == QLatin1String("PCDStartNode"))
            sections.last().startNode = xml.readElementText();
        else if (xml.isStartElement() && inObservation && xml.name() == QLatin1String("podcode"))
            sections.last().codes << xml.readElementText();
    }
    if (xml.hasError())
        *error = xml.errorString();
    return sections;
}

} // namespace

class TestWinCanOnUnit : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void projectOfTwoSectionsByKeys();

private:
    void key(int key) { m_console.keypad->key(key); }
    void type(const QString &text) { m_console.keypad->type(text); }
    bool answerText(const QString &title, const QString &text) { return m_console.keypad->answerText(title, text); }
    bool answerMenu(const QString &title, int row) { return m_console.keypad->answerMenu(title, row); }
    bool answerParamsNoSnapshot(const QString &code, const QStringList &values);
    bool fillSectionForms(const QString &startNode, const QString &endNode);
    bool recordSection();

    TestUnit m_unit;
    BoxAnswerer m_answerer;
    ConsoleOnUnit m_console;
};

void TestWinCanOnUnit::initTestCase()
{
    QVERIFY(m_unit.isValid());
    // The coding specification as the settings screen leaves it.
    ConsoleSettings().setValue(QStringLiteral("Wincan/specification"), int(WCCatalogueManager::kWCCat_MSCC_5));
    QVERIFY(m_console.logIn());
    QCOMPARE(WCCatalogueManager::instance()->specification(), WCCatalogueManager::kWCCat_MSCC_5);
}

bool TestWinCanOnUnit::answerParamsNoSnapshot(const QString &code, const QStringList &values)
{
    return m_console.keypad->answerParams(code, values) && answerMenu(QStringLiteral("Add Snapshot?"), 0);
}

// The two section pages: the nodes on the first, saved from the second.
bool TestWinCanOnUnit::fillSectionForms(const QString &startNode, const QString &endNode)
{
    if (!QTest::qWaitFor([this] { return m_console.window->screen() == Controller::kScreenWCSectionInfo; }, 10000))
        return false;
    type(startNode);
    key(Qt::Key_Down);
    key(Qt::Key_Down);
    type(endNode);
    key(Qt::Key_Down);
    key(Qt::Key_Down);
    // Direction: the first list row.
    key(Qt::Key_Down);
    key(Ui::Key_WinCan);
    if (!QTest::qWaitFor([this] { return m_console.window->screen() == Controller::kScreenWCSectionInfo2; }, 10000))
        return false;
    // The "Is Section Info Complete?" box is answered Yes by the box answerer.
    key(Ui::Key_WinCan);
    return QTest::qWaitFor([this] { return m_console.window->screen() == Controller::kScreenVideo; }, 10000);
}

// Record, the start questions, an observation from the tree, one by code, a
// continuous defect opened by letter and closed from the menu, then Stop and
// its questions.
bool TestWinCanOnUnit::recordSection()
{
    key(Ui::Key_MediaRecord);
    if (!answerMenu(QStringLiteral("Start Node Type:"), 1) || !answerParamsNoSnapshot(QStringLiteral("MH"), {})
        || !answerParamsNoSnapshot(QStringLiteral("WL"), {QStringLiteral("5")}))
        return false;

    key(Ui::Key_WinCan);
    if (!answerMenu(QStringLiteral("Select:"), 1) || !answerMenu(QStringLiteral("Catagories:"), 2)
        || !answerMenu(QStringLiteral("Basecodes:"), 1)
        || !answerParamsNoSnapshot(QStringLiteral("CC"), {QStringLiteral("10"), QStringLiteral("2")}))
        return false;

    key(Ui::Key_WinCan);
    if (!answerMenu(QStringLiteral("Select:"), 2) || !answerText(QStringLiteral("Enter Defect Code"), QStringLiteral("JN"))
        || !answerParamsNoSnapshot(QStringLiteral("JN"), {QStringLiteral("3"), QStringLiteral("100")}))
        return false;

    key(Qt::Key_C);
    if (!answerText(QStringLiteral("Enter Defect Code"), QStringLiteral("L"))
        || !answerParamsNoSnapshot(QStringLiteral("CL"), {QStringLiteral("3"), QStringLiteral("y")}))
        return false;
    key(Ui::Key_WinCan);
    if (!answerMenu(QStringLiteral("Select:"), 4) || !answerMenu(QStringLiteral("Continuous Defect To End"), 1)
        || !answerText(QStringLiteral("Note:"), QString()))
        return false;

    key(Ui::Key_MediaStop);
    if (!answerMenu(QStringLiteral("Are you sure you want to stop the recording?"), 1)
        || !answerMenu(QStringLiteral("Enter Pipe Serviceability"), 0)
        || !answerMenu(QStringLiteral("End Node Type:"), 2) || !answerParamsNoSnapshot(QStringLiteral("MHF"), {}))
        return false;
    return QTest::qWaitFor([] { return SurveyManager::instance()->status() == SurveyManager::Idle; }, 10000);
}

void TestWinCanOnUnit::projectOfTwoSectionsByKeys()
{
    key(Ui::Key_WinCan);
    QVERIFY(answerMenu(QStringLiteral("Select:"), 1));
    QTRY_COMPARE(m_console.window->screen(), int(Controller::kScreenWCProjectInfo));
    type(QStringLiteral("Mill_Lane"));
    key(Ui::Key_WinCan);
    QVERIFY(fillSectionForms(QStringLiteral("MH1"), QStringLiteral("MH2")));
    QVERIFY(recordSection());

    key(Ui::Key_WinCan);
    QVERIFY(answerMenu(QStringLiteral("Select:"), 1));
    QVERIFY(fillSectionForms(QStringLiteral("MH2"), QStringLiteral("MH3")));
    QVERIFY(recordSection());

    key(Ui::Key_WinCan);
    QVERIFY(answerMenu(QStringLiteral("Select:"), 4));
    QVERIFY(answerText(QStringLiteral("Note:"), QString()));

    const QString project = m_unit.path(QStringLiteral("/media/usb1/corvane/Mill_Lane.wcs/"));
    const QStringList sectionDirs = QDir(project).entryList(QDir::Dirs | QDir::NoDotAndDotDot, QDir::Name);
    QCOMPARE(sectionDirs.size(), 2);
    for (const QString &section : sectionDirs)
        QVERIFY(QFileInfo(project + section + QLatin1Char('/') + section + QStringLiteral("-video.mp4")).size() > 0);

    QString error;
    const QVector<ExportedSection> sections = readExchangeFile(project + QStringLiteral("Mill_Lane.xml"), &error);
    QVERIFY2(error.isEmpty(), qPrintable(error));
    QCOMPARE(sections.size(), 2);
    QCOMPARE(sections.at(0).startNode, QStringLiteral("MH1"));
    QCOMPARE(sections.at(1).startNode, QStringLiteral("MH2"));
    const QStringList order = {QStringLiteral("MH"), QStringLiteral("WL"), QStringLiteral("CC"), QStringLiteral("JN"),
                               QStringLiteral("CL"), QStringLiteral("CL"), QStringLiteral("MHF")};
    for (const ExportedSection &section : sections)
        QCOMPARE(section.codes, order);

    // "Finalise Report": the report is made from the exchange file and offered to the app.
    key(Ui::Key_WinCan);
    QVERIFY(answerMenu(QStringLiteral("Select:"), 5));
    QTRY_VERIFY_WITH_TIMEOUT(QFileInfo(project + QStringLiteral("Report.pdf")).size() > 0, 45000);
    QVERIFY(answerMenu(
        QStringLiteral("WinCan Report Successfully Generated. Do you wish to transfer the report to the ostra App?"), 0));
    QVERIFY(answerText(QStringLiteral("Note:"), QString()));
    // Asked only once the converter has ended, so the file is whole.
    const QString report = ReportProject::pdfText(project + QStringLiteral("Report.pdf")).simplified();
    for (const QString &summary : {QStringLiteral("Section summary"), QStringLiteral("Inspection summary")})
        QVERIFY2(report.contains(summary), qPrintable(summary + QStringLiteral(" missing in:\n") + report));
}

QTEST_MAIN(TestWinCanOnUnit)
#include "tst_wincanonunit.moc"
