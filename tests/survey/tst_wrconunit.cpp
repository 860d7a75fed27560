// An ostra survey to the WRC schema on the simulated unit, by keys alone: the
// start node and water level from the catalogue on Record, a coded defect typed
// by letter, a continuous defect opened and closed from the menu, and the end
// node on Stop, with the kit's recorder recording for real onto the USB stick.
#include "surveyrig.h"

#include "app/controller.h"
#include "app/mainwindow.h"
#include "core/uikeys.h"
#include "support/consoleonunit.h"
#include "support/keypadoperator.h"
#include "support/testunit.h"
#include "survey/surveymanager.h"

#include <QApplication>
#include <QtTest>

class TestWrcOnUnit : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void sectionWithCodedObservationsByKeys();

private:
    void key(int key) { m_console.keypad->key(key); }
    void type(const QString &text) { m_console.keypad->type(text); }
    bool answerText(const QString &title, const QString &text) { return m_console.keypad->answerText(title, text); }
    bool answerMenu(const QString &title, int row) { return m_console.keypad->answerMenu(title, row); }
    bool answerParams(const QString &code, const QStringList &values) { return m_console.keypad->answerParams(code, values); }
    bool enterCode(int letter, const QString &rest, const QStringList &values, int snapshotRow = 0);
    QString readFile(const QString &path) const;

    TestUnit m_unit;
    BoxAnswerer m_answerer;
    ConsoleOnUnit m_console;
};

void TestWrcOnUnit::initTestCase()
{
    QVERIFY(m_unit.isValid());
    QVERIFY(m_console.logIn());
}

bool TestWrcOnUnit::enterCode(int letter, const QString &rest, const QStringList &values, int snapshotRow)
{
    key(letter);
    return answerText(QStringLiteral("Enter Defect Code"), rest)
           && answerParams(QString(QChar(letter)) + rest.toUpper(), values)
           && answerMenu(QStringLiteral("Add Snapshot?"), snapshotRow);
}

QString TestWrcOnUnit::readFile(const QString &path) const
{
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? QString::fromLatin1(file.readAll()) : QString();
}

void TestWrcOnUnit::sectionWithCodedObservationsByKeys()
{
    key(Ui::Key_Survey);
    QVERIFY(answerMenu(QStringLiteral("Select:"), 1));
    QVERIFY(answerMenu(QStringLiteral("Welcome to ostra reporting. What report format would you like to create?"), 2));
    QTRY_COMPARE(m_console.window->screen(), int(Controller::kScreenWRCSiteInfo));
    type(QStringLiteral("Mill Lane"));
    key(Ui::Key_Survey);
    QTRY_COMPARE(m_console.window->screen(), int(Controller::kScreenWRCRunInfo));
    type(QStringLiteral("MH1"));
    key(Qt::Key_Down);
    type(QStringLiteral("MH2"));
    key(Ui::Key_Survey);
    QTRY_COMPARE(m_console.window->screen(), int(Controller::kScreenVideo));
    QVERIFY(answerText(QStringLiteral("Note:"), QString()));

    key(Ui::Key_MediaRecord);
    // The start node's reference comes from the section form.
    QVERIFY(answerMenu(QStringLiteral("Start Node Type:"), 0));
    QVERIFY(answerParams(QStringLiteral("MH"), {}));
    QVERIFY(answerMenu(QStringLiteral("Add Snapshot?"), 0));
    QVERIFY(answerParams(QStringLiteral("WL"), {QStringLiteral("5")}));
    QVERIFY(answerMenu(QStringLiteral("Add Snapshot?"), 0));

    QVERIFY(enterCode(Qt::Key_B, QString(), {"10", "2", "", "cracked"}, 1));
    QVERIFY(enterCode(Qt::Key_D, QStringLiteral("es"), {"5", "y"}));

    key(Ui::Key_Survey);
    QVERIFY(answerMenu(QStringLiteral("Select:"), 2));
    QVERIFY(answerMenu(QStringLiteral("Continuous Defect To End"), 1));
    QVERIFY(answerMenu(QStringLiteral("Defect Ended:"), 0));

    key(Ui::Key_MediaStop);
    QVERIFY(answerMenu(QStringLiteral("End Node Type:"), 2));
    QVERIFY(answerParams(QStringLiteral("MHF"), {}));
    QVERIFY(answerMenu(QStringLiteral("Add Snapshot?"), 0));
    QVERIFY(QTest::qWaitFor([] { return SurveyManager::instance()->status() == SurveyManager::Idle; }, 10000));

    const QString project = m_unit.path(QStringLiteral("/media/usb1/corvane/mill_lane.sur/"));
    const QString observations = readFile(project + QStringLiteral("section_1/.observations.sdb"));
    for (const QString &line : {QStringLiteral("CODE, MH,"), QStringLiteral("TEXT, Start node type manhole reference number: MH1"),
                                QStringLiteral("CODE, WL,"), QStringLiteral("TEXT, Water level 5 % of the vertical dimension"),
                                QStringLiteral("TEXT, Broken pipe from 10 o'clock  to 2 o'clock"),
                                QStringLiteral("REMS, cracked,"), QStringLiteral("JPEG,"), QStringLiteral("CDEF, S1,"),
                                QStringLiteral("CDEF, F1,"), QStringLiteral("CODE, MHF,"),
                                QStringLiteral("TEXT, Finish node type manhole reference number: MH2")})
        QVERIFY2(observations.contains(line), qPrintable(line + QStringLiteral(" not in:\n") + observations));
    QVERIFY(QFileInfo(project + QStringLiteral("section_1/video.mp4")).size() > 0);
    QTRY_VERIFY_WITH_TIMEOUT(readFile(project + QStringLiteral("mill_lane.txt")).contains(QStringLiteral("Broken pipe")),
                             5000);
    const QString report = readFile(project + QStringLiteral("mill_lane.txt"));
    QVERIFY2(report.contains(QStringLiteral("Settled deposits fine 5 % cross-sectional area loss S1"))
                 && report.contains(QStringLiteral("End = MH2")),
             qPrintable(report));
}

QTEST_MAIN(TestWrcOnUnit)
#include "tst_wrconunit.moc"
