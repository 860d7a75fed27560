// The engineer's notes asked on the main screen during an ostra project: the
// parameter entry with its four lines, answered by keys, and the notes file.
#include "surveyrig.h"

#include "app/controller.h"
#include "app/mainwindow.h"
#include "core/uikeys.h"
#include "support/consoleonunit.h"
#include "support/keypadoperator.h"
#include "support/testunit.h"
#include "video/video.h"
#include "widgets/paramentrydialog.h"

#include <QApplication>
#include <QtTest>

class TestEngineersNotesEntry : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void notesByKeysGoToTheProject();

private:
    void key(int key) { m_console.keypad->key(key); }
    void type(const QString &text) { m_console.keypad->type(text); }

    TestUnit m_unit;
    BoxAnswerer m_answerer;
    ConsoleOnUnit m_console;
};

void TestEngineersNotesEntry::initTestCase()
{
    QVERIFY(m_unit.isValid());
    QVERIFY(m_console.logIn());
}

void TestEngineersNotesEntry::notesByKeysGoToTheProject()
{
    key(Ui::Key_Survey);
    QVERIFY(m_console.keypad->answerMenu(QStringLiteral("Select:"), 1));
    QVERIFY(m_console.keypad->answerMenu(
        QStringLiteral("Welcome to ostra reporting. What report format would you like to create?"), 1));
    QTRY_COMPARE(m_console.window->screen(), int(Controller::kScreenSiteInfo));
    type(QStringLiteral("Quay Road"));
    key(Ui::Key_Survey);
    QTRY_COMPARE(m_console.window->screen(), int(Controller::kScreenVideo));
    // The note that the section is ready comes first; a dialog opened under it would be closed by it.
    QVERIFY(m_console.keypad->answerText(QStringLiteral("Note:"), QString()));

    Video *video = m_console.window->findChild<Video *>();
    QVERIFY(video);
    video->commentRequest();
    auto *notes = qobject_cast<ParamEntryDialog *>(m_console.keypad->waitForDialog(QStringLiteral("Please add your engineer's notes")));
    QVERIFY(notes);
    QCOMPARE(notes->texts().size(), 4);
    QCOMPARE(notes->okHint(), QStringLiteral("Press OK to Confirm"));
    type(QStringLiteral("Cover broken"));
    key(Qt::Key_Down);
    key(Qt::Key_Down);
    type(QStringLiteral("Traffic lights needed"));
    key(Qt::Key_Return);
    // One more page of notes, then done.
    QVERIFY(m_console.keypad->answerMenu(QStringLiteral("Would you Like to add more engineer's notes?"), 0));
    QVERIFY(m_console.keypad->waitForDialog(QStringLiteral("Please add your engineer's notes")));
    type(QStringLiteral("Gully blocked"));
    key(Qt::Key_Return);
    QVERIFY(m_console.keypad->answerMenu(QStringLiteral("Would you Like to add more engineer's notes?"), 1));

    QFile file(m_unit.path(QStringLiteral("/media/usb1/corvane/quay_road.sur/EngineersNotes.txt")));
    QVERIFY(file.open(QIODevice::ReadOnly));
    QCOMPARE(file.readAll(), QByteArray("1)Cover broken\n2)Traffic lights needed\n3)Gully blocked\n"));
}

QTEST_MAIN(TestEngineersNotesEntry)
#include "tst_engineersnotesentry.moc"
