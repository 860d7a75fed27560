// An ostra survey on the simulated unit, by keys alone: the real main window,
// controller and main screen on a fresh unit root, every key sent to the widget
// that has the focus and every dialog answered by keys, the kit's recorder
// recording for real onto the USB stick.
#include "surveyrig.h"

#include "app/controller.h"
#include "app/mainwindow.h"
#include "core/uikeys.h"
#include "support/consoleonunit.h"
#include "support/keypadoperator.h"
#include "support/testunit.h"
#include "survey/surveymanager.h"

#include <QApplication>
#include <QDir>
#include <QSettings>
#include <QtTest>

class TestCorvaneOnUnit : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void projectOfTwoSectionsByKeys();
    void finaliseReportByKeys();

private:
    void key(int key) { m_console.keypad->key(key); }
    void type(const QString &text) { m_console.keypad->type(text); }
    bool answerText(const QString &title, const QString &text) { return m_console.keypad->answerText(title, text); }
    bool answerMenu(const QString &title, int row) { return m_console.keypad->answerMenu(title, row); }
    void saveProjectForm(const QString &siteName);
    bool recordSection(const QString &section, const QString &startNode, const QString &endNode, const QString &comment);
    QString readFile(const QString &path) const;

    TestUnit m_unit;
    BoxAnswerer m_answerer;
    ConsoleOnUnit m_console;
};

void TestCorvaneOnUnit::initTestCase()
{
    QVERIFY(m_unit.isValid());
    QVERIFY(m_console.logIn());
}

// The project form opens on the site name; the mode key saves it after a
// Yes to the form's question, which the answerer gives with Return.
void TestCorvaneOnUnit::saveProjectForm(const QString &siteName)
{
    QTRY_COMPARE(m_console.window->screen(), int(Controller::kScreenSiteInfo));
    type(siteName);
    key(Ui::Key_Survey);
    QCOMPARE(m_answerer.informativeTexts, QStringList{QStringLiteral("Would you like to save and continue?")});
    QTRY_COMPARE(m_console.window->screen(), int(Controller::kScreenVideo));
}

// From the note that a section is ready to the end of its recording.
bool TestCorvaneOnUnit::recordSection(const QString &section, const QString &startNode, const QString &endNode,
                                      const QString &comment)
{
    if (!answerText(QStringLiteral("Note:"), QString()))
        return false;
    key(Ui::Key_MediaRecord);
    const bool started = answerText(QStringLiteral("Surveyed By?"), QStringLiteral("Jo"))
                         && answerText(QStringLiteral("Enter Start Node Information (Mandatory)"), startNode)
                         && answerText(QStringLiteral("Enter Start Node Invert Depth"), QStringLiteral("1.5"))
                         && answerMenu(QStringLiteral("Enter Pipe Material"), 2)
                         && answerText(QStringLiteral("Enter Pipe Size"), QStringLiteral("150"))
                         && answerText(QStringLiteral("Enter Water Level %"), QStringLiteral("10"))
                         && answerMenu(QStringLiteral("Enter Flow Direction"), 1)
                         && answerText(QStringLiteral("Note:"), QString());
    if (!started)
        return false;
    key(Ui::Key_Snapshot);
    if (!answerText(QStringLiteral("Please add a comment"), comment))
        return false;
    // The picture is on the stick and the recording under way before the stop.
    const auto recorded = [&section] {
        return !QDir(section).entryList({QStringLiteral("Snap*.jpg")}).isEmpty()
            && QFileInfo(QDir(section).filePath(QStringLiteral("video.mp4"))).size() > 0;
    };
    if (!QTest::qWaitFor(recorded, 10000))
        return false;
    key(Ui::Key_MediaStop);
    return answerText(QStringLiteral("Enter End Node Information (Mandatory)"), endNode)
           && answerMenu(QStringLiteral("Please enter the pipe's usage"), 2)
           && QTest::qWaitFor([] { return SurveyManager::instance()->status() == SurveyManager::Idle; }, 10000);
}

QString TestCorvaneOnUnit::readFile(const QString &path) const
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromLatin1(file.readAll()) : QString();
}

void TestCorvaneOnUnit::projectOfTwoSectionsByKeys()
{
    key(Ui::Key_Survey);
    QVERIFY(answerMenu(QStringLiteral("Select:"), 1));
    QVERIFY(answerMenu(QStringLiteral("Welcome to ostra reporting. What report format would you like to create?"), 1));
    saveProjectForm(QStringLiteral("High Street"));

    const QString project = m_unit.path(QStringLiteral("/media/usb1/corvane/high_street.sur/"));
    QVERIFY(recordSection(project + QStringLiteral("section_1"), QStringLiteral("MH1"), QStringLiteral("MH2"),
                          QStringLiteral("root ingress")));
    const QString section = project + QStringLiteral("section_1/");
    for (const QString &file : {QStringLiteral(".project.sdb"), QStringLiteral("section_1/video.mp4"),
                                QStringLiteral("section_1/Snap0000.jpg"), QStringLiteral("section_1/.section.sdb"),
                                QStringLiteral("section_1/.observations.sdb")})
        QVERIFY2(QFile::exists(project + file), qPrintable(file));
    QVERIFY(QFileInfo(section + QStringLiteral("video.mp4")).size() > 0);
    QVERIFY2(readFile(section + QStringLiteral(".observations.sdb")).contains(QStringLiteral("TEXT, root ingress")),
             qPrintable(readFile(section + QStringLiteral(".observations.sdb"))));
    QTRY_VERIFY_WITH_TIMEOUT(readFile(project + QStringLiteral("high_street.txt")).contains(QStringLiteral("Job 1")),
                             5000);

    // The mode key, pressed while the note that the section is over still shows,
    // closes it and opens the menu for "New Section".
    QVERIFY(m_console.keypad->waitForDialog(QStringLiteral("Note:")));
    key(Ui::Key_Survey);
    QVERIFY(answerMenu(QStringLiteral("Select:"), 1));
    QVERIFY(recordSection(project + QStringLiteral("section_2"), QStringLiteral("MH2"), QStringLiteral("MH3"),
                          QStringLiteral("crack")));
    QVERIFY(QFile::exists(project + QStringLiteral("section_2/video.mp4")));
    QTRY_VERIFY_WITH_TIMEOUT(readFile(project + QStringLiteral("high_street.txt"))
                                 .contains(QStringLiteral("Job 2\r\nSection Video = section_2\\video.mp4\r\nStart = MH2")),
                             5000);
    const QString report = readFile(project + QStringLiteral("high_street.txt"));
    QVERIFY2(report.contains(QStringLiteral("crack")) && report.contains(QStringLiteral("End = MH3")),
             qPrintable(report));
}

// Goes on with the project of two sections: "Finalise Report" from the mode
// key's menu makes Report.pdf and then offers it to the app.
void TestCorvaneOnUnit::finaliseReportByKeys()
{
    const QString project = m_unit.path(QStringLiteral("/media/usb1/corvane/high_street.sur/"));
    QVERIFY(QFile::exists(project + QStringLiteral("section_2/.observations.sdb")));
    QVERIFY(m_console.keypad->waitForDialog(QStringLiteral("Note:")));
    key(Ui::Key_Survey);
    QVERIFY(answerMenu(QStringLiteral("Select:"), 3));
    QVERIFY(answerText(QStringLiteral("Note:"), QString()));
    const QString report = project + QStringLiteral("Report.pdf");
    QTRY_VERIFY_WITH_TIMEOUT(QFile::exists(report), 50000);
    QVERIFY(answerMenu(
        QStringLiteral("ostra report successfully generated. Do you wish to transfer the report to the ostra app?"), 1));

    QProcess pdftotext;
    pdftotext.start(QStringLiteral("pdftotext"), {report, QStringLiteral("-")});
    QVERIFY(pdftotext.waitForFinished(30000));
    const QString text = QString::fromUtf8(pdftotext.readAllStandardOutput()).simplified();
    for (const QString &expected : {QStringLiteral("High Street"), QStringLiteral("Section section_1"),
                                    QStringLiteral("Section section_2"), QStringLiteral("root ingress"),
                                    QStringLiteral("crack"), QStringLiteral("MH3")})
        QVERIFY2(text.contains(expected), qPrintable(expected + QStringLiteral(" missing in: ") + text));
    QVERIFY(QFile::exists(project + QStringLiteral("pipegraphic1_1.png")));

    const QString artifacts = TestUnit::artifactsDir(QStringLiteral("tst_corvaneonunit"));
    QProcess pdftoppm;
    pdftoppm.start(QStringLiteral("pdftoppm"),
                   {QStringLiteral("-png"), QStringLiteral("-r"), QStringLiteral("60"), report, artifacts + QStringLiteral("/report")});
    QVERIFY(pdftoppm.waitForFinished(60000) && pdftoppm.exitCode() == 0);
}

QTEST_MAIN(TestCorvaneOnUnit)
#include "tst_corvaneonunit.moc"
