#include "survey/forms/engineersnotes.h"
#include "widgets/p_textedit.h"
#include "formrig.h"

#include <QDir>
#include <QFile>

// The engineer's notes page: its file in Windows-1252, its eight lines, its
// hand-made wrapping, and the text it keeps between showings.
class TestEngineersNotes : public QObject
{
    Q_OBJECT
    FormRig m_rig;
    QString m_project;

    P_TextEdit *edit() const { return m_rig.window->page(Controller::kScreenEngNote)->findChild<P_TextEdit *>(); }
    QString notesFile() const { return m_project + engineersNotes::fileName(); }
    void showNotes()
    {
        m_rig.show(Controller::kScreenEngNote);
        QCOMPARE(m_rig.focus(), edit());
    }
    // The project the flow makes when the site form is saved with this name.
    void useProject(const QString &name)
    {
        m_rig.data()->set(QStringLiteral("SiteName"), name);
        m_rig.ostra->setEnabled(true);
        m_rig.ostra->setProjectPath();
        m_project = m_rig.ostra->prjDirectory();
        QVERIFY2(m_project.endsWith(QStringLiteral("/corvane/") + name + QStringLiteral(".sur/")),
                 qPrintable(m_project));
        QVERIFY(QFileInfo(m_project).isDir());
    }
    // Closing the page hands back to the flow, which opens its menu again.
    bool menuReopened() const { return !m_rig.screen.calls.filter(QStringLiteral("showMenu")).isEmpty(); }
    QByteArray fileBytes() const
    {
        QFile file(notesFile());
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }

private slots:
    void initTestCase() { QVERIFY(m_rig.start()); }
    void cleanupTestCase() { m_rig.stop(); }

    void wrapLines_data()
    {
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("cursor");
        QTest::addColumn<QString>("wrapped");
        QTest::addColumn<int>("cursorAfter");
        QTest::newRow("fits") << "short line" << 10 << "short line" << 10;
        QTest::newRow("exactly the column") << "abcdefghij" << 10 << "abcdefghij" << 10;
        QTest::newRow("breaks at the last blank") << "root ingress at" << 15 << "root\ningress at" << 15;
        QTest::newRow("no blank: at the column") << "abcdefghijk" << 11 << "abcdefghij\nk" << 12;
        QTest::newRow("cursor before the break stays") << "abcdefghijk" << 3 << "abcdefghij\nk" << 3;
        QTest::newRow("long paste") << "aaaa bbbb cccc dddd" << 0 << "aaaa bbbb\ncccc dddd" << 0;
        QTest::newRow("only the long line") << "ok\nroot ingress at" << 18 << "ok\nroot\ningress at" << 18;
    }
    void wrapLines()
    {
        QFETCH(QString, text);
        QFETCH(int, cursor);
        QFETCH(QString, wrapped);
        QFETCH(int, cursorAfter);
        QCOMPARE(engineersNotes::wrapLines(text, 10, &cursor), wrapped);
        QCOMPARE(cursor, cursorAfter);
    }

    void poundSurvivesTheFileAsA3()
    {
        useProject("pound");
        showNotes();
        m_rig.type(QStringLiteral("Skip hire \u00a3120"));
        m_rig.key(Ui::Key_Survey);
        QCOMPARE(m_rig.window->screen(), int(Controller::kScreenVideo));
        QCOMPARE(fileBytes(), QByteArray("Skip hire \xa3" "120"));
        QVERIFY(menuReopened());

        // Written elsewhere in the same code page, read back as the operator typed it.
        QFile file(notesFile());
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("Cones \xa3" "5\r\nGate code 1234");
        file.close();
        showNotes();
        QCOMPARE(edit()->toPlainText(), QStringLiteral("Cones \u00a35\nGate code 1234"));
    }

    void neverMoreThanEightLines()
    {
        useProject("lines");
        showNotes();
        edit()->clear();
        for (int line = 1; line <= 8; ++line) {
            m_rig.type(QStringLiteral("line %1").arg(line));
            m_rig.key(Qt::Key_Return);
        }
        // The ninth line goes with the release of the key that made it.
        QCOMPARE(edit()->document()->blockCount(), 8);
        m_rig.type(QStringLiteral("!"));
        QCOMPARE(edit()->document()->blockCount(), 8);
        QVERIFY(edit()->toPlainText().endsWith(QStringLiteral("line 8!")));

        // Typing on past the column wraps by hand, and the wrapped line counts too.
        edit()->clear();
        m_rig.type(QString(engineersNotes::kWrapColumn * 9, QLatin1Char('x')));
        QCOMPARE(edit()->document()->blockCount(), 8);
        m_rig.key(Ui::Key_Survey);
        QCOMPARE(fileBytes().count('\n'), 7);
    }

    void aLongFileKeepsItsFirstEightLines()
    {
        useProject("long");
        QStringList lines;
        for (int i = 1; i <= 12; ++i)
            lines << QStringLiteral("note %1").arg(i);
        QFile file(notesFile());
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(lines.join('\n').toLatin1());
        file.close();
        showNotes();
        QCOMPARE(edit()->toPlainText(), lines.mid(0, 8).join('\n'));
    }

    void textIsKeptWhenShownAgain()
    {
        useProject("kept");
        showNotes();
        edit()->clear();
        m_rig.type(QStringLiteral("Manhole lid seized"));
        m_rig.key(Qt::Key_Escape);
        QCOMPARE(m_rig.window->screen(), int(Controller::kScreenVideo));
        QVERIFY(!QFile::exists(notesFile()));
        QVERIFY(menuReopened());

        showNotes();
        QCOMPARE(edit()->toPlainText(), QStringLiteral("Manhole lid seized"));

        // Another project's page starts empty rather than with these notes.
        m_rig.key(Qt::Key_Escape);
        useProject("other");
        showNotes();
        QCOMPARE(edit()->toPlainText(), QString());
    }

    void aFailedSaveKeepsThePageAndTheText()
    {
        useProject("gone");
        QVERIFY(QDir(m_project).removeRecursively());
        showNotes();
        QCOMPARE(edit()->toPlainText(), QString());
        m_rig.type(QStringLiteral("Not lost"));
        BoxAnswer ok({Qt::Key_Return});
        m_rig.key(Ui::Key_Survey);
        QVERIFY(ok.shown);
        QCOMPARE(ok.text, QStringLiteral("The engineer's notes could not be saved."));
        QCOMPARE(m_rig.window->screen(), int(Controller::kScreenEngNote));
        QCOMPARE(edit()->toPlainText(), QStringLiteral("Not lost"));
    }
};

QTEST_MAIN(TestEngineersNotes)
#include "tst_engineersnotes.moc"
