#include "core/uikeys.h"
#include "widgets/consolestyle.h"
#include "widgets/graphics.h"
#include "widgets/hbimessagebox.h"
#include "widgets/menudialog.h"
#include "widgets/messagedialog.h"
#include "widgets/p_combobox.h"
#include "widgets/p_pushbutton.h"
#include "widgets/p_textedit.h"
#include "widgets/textentrydialog.h"

#include <QAbstractItemView>
#include <QLineEdit>
#include <QVBoxLayout>
#include <QtTest>

// Stands in for a survey flow: collects every answer it is given.
class Flow : public QObject
{
    Q_OBJECT
public:
    QList<int> menuAnswers;
    QList<QPair<int, QString>> textAnswers;
    QList<int> noteAnswers;

public slots:
    void menuSelected(int row) { menuAnswers << row; }
    void textEntered(int key, const QString &text) { textAnswers << qMakePair(key, text); }
    void noteClosed(int key) { noteAnswers << key; }
};

// Stands in for an information form: counts the keys its combo boxes hand over
// and the key releases that reach it directly.
class Form : public QWidget
{
    Q_OBJECT
public:
    QStringList handled;
    QList<int> releases;

public slots:
    void corvane() { handled << "corvane"; }
    void wincan() { handled << "wincan"; }
    void escape() { handled << "escape"; }
    void pageUp() { handled << "pageUp"; }
    void pageDown() { handled << "pageDown"; }

protected:
    void keyReleaseEvent(QKeyEvent *event) override
    {
        if (!event->isAutoRepeat())
            releases << event->key();
    }
};

namespace {

// A key as the keypad sends it: press and release to the widget with the focus.
void pressKey(QWidget *window, int key)
{
    QWidget *target = window->focusWidget() ? window->focusWidget() : window;
    QTest::keyPress(target, Qt::Key(key));
    QTest::keyRelease(target, Qt::Key(key));
}

void showActive(QWidget *window)
{
    window->show();
    QApplication::setActiveWindow(window);
    QVERIFY(QTest::qWaitForWindowActive(window));
}

// What the live video screen does before it opens a new dialog.
void closeDialogs(const QList<KeypadDialog *> &dialogs)
{
    for (KeypadDialog *dialog : dialogs) {
        if (dialog->isHidden())
            continue;
        if (auto *menu = qobject_cast<menuDialog *>(dialog))
            menu->escape();
        else
            dialog->close();
    }
}

const QStringList kMaterialRows{"Cancel", "Vitrified Clay (VC)", "Polyvinyl Chloride (PVC)", "Cast Iron (CI)",
                                "Concrete (CO)", "Brick (BR)", "Pitch Fibre (PF)", "Other (Z)"};

} // namespace

class TestKeypadWalkthrough : public QObject
{
    Q_OBJECT
private slots:
    void initTestCase()
    {
        initialiseGraphics();
        ConsoleStyle::apply(*qApp);
    }

    void menuAnswersTheRowReachedWithTheArrows_data()
    {
        QTest::addColumn<QList<int>>("keys");
        QTest::addColumn<int>("answer");
        QTest::newRow("OK on the first row") << QList<int>{Qt::Key_Enter} << 0;
        QTest::newRow("three down, Enter") << QList<int>{Qt::Key_Down, Qt::Key_Down, Qt::Key_Down, Qt::Key_Enter} << 3;
        QTest::newRow("Return works as Enter") << QList<int>{Qt::Key_Down, Qt::Key_Return} << 1;
        QTest::newRow("up from the top wraps to the last") << QList<int>{Qt::Key_Up, Qt::Key_Enter} << 7;
        QTest::newRow("down from the last wraps to the top")
            << QList<int>{Qt::Key_End, Qt::Key_Down, Qt::Key_Down, Qt::Key_Enter} << 1;
        QTest::newRow("Escape after moving still answers 0") << QList<int>{Qt::Key_Down, Qt::Key_Escape} << 0;
    }
    void menuAnswersTheRowReachedWithTheArrows()
    {
        QFETCH(QList<int>, keys);
        QFETCH(int, answer);
        Flow flow;
        menuDialog menu(nullptr, &flow, SLOT(menuSelected(int)), "Enter Pipe Material", kMaterialRows);
        showActive(&menu);
        for (int key : keys)
            pressKey(&menu, key);
        QCOMPARE(flow.menuAnswers, QList<int>{answer});
        QVERIFY(menu.isHidden());
    }

    void holdingDownStopsAtTheLastRow()
    {
        Flow flow;
        menuDialog menu(nullptr, &flow, SLOT(menuSelected(int)), "Select:", {"Cancel", "New Project", "Open Project"});
        showActive(&menu);
        for (int i = 0; i < 5; ++i) {
            QKeyEvent held(QEvent::KeyPress, Qt::Key_Down, Qt::NoModifier, QString(), true);
            QApplication::sendEvent(&menu, &held);
        }
        QCOMPARE(menu.currentRow(), 2);
        QTest::keyClick(&menu, Qt::Key_Down);
        QCOMPARE(menu.currentRow(), 0);
    }

    void aReleaseWithoutItsPressIsIgnored()
    {
        // The Return that answered one menu must not also answer the next one.
        Flow flow;
        menuDialog menu(nullptr, &flow, SLOT(menuSelected(int)), "Select:", {"Cancel", "End section"});
        showActive(&menu);
        QTest::keyClick(&menu, Qt::Key_Down);
        QTest::keyRelease(&menu, Qt::Key_Return);
        QVERIFY(flow.menuAnswers.isEmpty());
        QVERIFY(menu.isVisible());
        pressKey(&menu, Qt::Key_Return);
        QCOMPARE(flow.menuAnswers, QList<int>{1});
    }

    void textEntryAnswersKeyAndText_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("answer");
        QTest::newRow("OK") << int(Qt::Key_Enter) << int(TextEntryDialog::kAccepted);
        QTest::newRow("Return") << int(Qt::Key_Return) << int(TextEntryDialog::kAccepted);
        QTest::newRow("Text key") << int(Ui::Key_TextMode) << int(TextEntryDialog::kAcceptedTextOnly);
        QTest::newRow("Escape") << int(Qt::Key_Escape) << int(TextEntryDialog::kCancelled);
    }
    void textEntryAnswersKeyAndText()
    {
        QFETCH(int, key);
        QFETCH(int, answer);
        Flow flow;
        TextEntryDialog entry(nullptr, &flow, SLOT(textEntered(int, QString)), "\tPlease add a comment\t", "", "");
        showActive(&entry);
        QTest::keyClicks(entry.focusWidget(), "root intrusion ");
        pressKey(&entry, key);
        QCOMPARE(flow.textAnswers.size(), 1);
        QCOMPARE(flow.textAnswers.first().first, answer);
        QCOMPARE(flow.textAnswers.first().second, QString("root intrusion"));
    }

    void mandatoryEntryWillNotCloseBlank()
    {
        Flow flow;
        TextEntryDialog entry(nullptr, &flow, SLOT(textEntered(int, QString)),
                              "Enter Start Node Information (Mandatory)", "Press OK to Accept", "", true);
        showActive(&entry);
        pressKey(&entry, Qt::Key_Enter);
        QVERIFY(flow.textAnswers.isEmpty());
        QVERIFY(entry.isVisible());
        QVERIFY(entry.isRefusing());
        QTest::keyClicks(entry.focusWidget(), "   ");
        pressKey(&entry, Ui::Key_TextMode);
        QVERIFY2(flow.textAnswers.isEmpty(), "blanks are not an entry");
        QTest::keyClicks(entry.focusWidget(), "MH1");
        QVERIFY(!entry.isRefusing());
        pressKey(&entry, Qt::Key_Enter);
        QCOMPARE(flow.textAnswers, (QList<QPair<int, QString>>{{TextEntryDialog::kAccepted, "MH1"}}));
    }

    void mandatoryEntryStillLetsEscapeAnswer()
    {
        // The flow decides what a refused mandatory question does; it must hear of it.
        Flow flow;
        TextEntryDialog entry(nullptr, &flow, SLOT(textEntered(int, QString)),
                              "Enter End Node Information (Mandatory)", "Press OK to Accept", "", true);
        showActive(&entry);
        pressKey(&entry, Qt::Key_Escape);
        QCOMPARE(flow.textAnswers, (QList<QPair<int, QString>>{{TextEntryDialog::kCancelled, ""}}));
    }

    void firstTextIsOfferedForEditing()
    {
        Flow flow;
        TextEntryDialog entry(nullptr, &flow, SLOT(textEntered(int, QString)), "Enter Defect Code",
                              "Press Enter to Accept", "d");
        showActive(&entry);
        QTest::keyClicks(entry.focusWidget(), "ec");
        pressKey(&entry, Qt::Key_Enter);
        QCOMPARE(flow.textAnswers.first().second, QString("dec"));
    }

    void closedFromOutsideAnswersOnce()
    {
        Flow flow;
        menuDialog menu(nullptr, &flow, SLOT(menuSelected(int)), "Select:", {"Cancel", "New Section"});
        TextEntryDialog entry(nullptr, &flow, SLOT(textEntered(int, QString)), "Enter Pipe Size", "", "150");
        MessageDialog note(nullptr, &flow, SLOT(noteClosed(int)), "Note:", "Transfer Successful");
        MessageDialog unshown(nullptr, &flow, SLOT(noteClosed(int)), "Note:", "never shown");
        menu.show();
        entry.show();
        note.show();
        const QList<KeypadDialog *> all{&menu, &entry, &note, &unshown};
        closeDialogs(all);
        closeDialogs(all);
        menu.escape();
        entry.close();
        QCOMPARE(flow.menuAnswers, QList<int>{0});
        QCOMPARE(flow.textAnswers, (QList<QPair<int, QString>>{{TextEntryDialog::kCancelled, "150"}}));
        QCOMPARE(flow.noteAnswers, QList<int>{0});
        QVERIFY(!unshown.hasAnswered());
    }

    void answeredDialogIgnoresLaterCloses()
    {
        Flow flow;
        menuDialog menu(nullptr, &flow, SLOT(menuSelected(int)), "Select:", {"Cancel", "Yes"});
        showActive(&menu);
        pressKey(&menu, Qt::Key_Down);
        pressKey(&menu, Qt::Key_Enter);
        menu.escape();
        menu.reject();
        QCOMPARE(flow.menuAnswers, QList<int>{1});
    }

    void noteAnswersOneOnlyForOk_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<int>("answer");
        QTest::newRow("OK") << int(Qt::Key_Enter) << 1;
        QTest::newRow("Escape") << int(Qt::Key_Escape) << 0;
    }
    void noteAnswersOneOnlyForOk()
    {
        QFETCH(int, key);
        QFETCH(int, answer);
        Flow flow;
        MessageDialog note(nullptr, &flow, SLOT(noteClosed(int)), "Note:", "Transfer Failed");
        showActive(&note);
        pressKey(&note, key);
        QCOMPARE(flow.noteAnswers, QList<int>{answer});
    }

    void keysADialogDoesNotUseReachItsOwner()
    {
        Form owner;
        Flow flow;
        const auto sendKeys = [](KeypadDialog *dialog) {
            showActive(dialog);
            for (int key : {int(Ui::Key_Survey), int(Ui::Key_LampUp), int(Qt::Key_A)})
                pressKey(dialog, key);
        };
        MessageDialog note(&owner, &flow, SLOT(noteClosed(int)), "Note:", "Please begin the survey");
        sendKeys(&note);
        QCOMPARE(owner.releases, (QList<int>{Ui::Key_Survey, Ui::Key_LampUp, Qt::Key_A}));
        note.close();

        // An entry keeps the letters it is typed.
        owner.releases.clear();
        TextEntryDialog entry(&owner, &flow, SLOT(textEntered(int, QString)), "Surveyed By?", "Name", QString());
        sendKeys(&entry);
        QCOMPARE(owner.releases, (QList<int>{Ui::Key_Survey, Ui::Key_LampUp}));
        QCOMPARE(entry.findChild<QLineEdit *>()->text(), QStringLiteral("a"));
        entry.close();
    }

    void messageBoxMovesBetweenButtonsWithTheArrows()
    {
        HBIMessageBox box(QMessageBox::Question, "Would you like to save and continue?");
        QPushButton *yes = box.addButton("Yes", QMessageBox::YesRole);
        QPushButton *no = box.addButton("No", QMessageBox::NoRole);
        box.setDefaultButton(yes);
        QVERIFY(box.windowFlags() & Qt::FramelessWindowHint);
        showActive(&box);
        QTest::keyClick(&box, Qt::Key_Down);
        QCOMPARE(box.defaultButton(), no);
        QTest::keyClick(&box, Qt::Key_Down);
        QCOMPARE(box.defaultButton(), yes);
    }

    void openListHandsFormKeysToTheForm_data()
    {
        QTest::addColumn<int>("key");
        QTest::addColumn<QString>("handler");
        QTest::addColumn<QString>("kept");
        QTest::newRow("mode key saves the highlighted row") << int(Ui::Key_Survey) << "corvane" << "Downstream (D)";
        QTest::newRow("WinCan key") << int(Ui::Key_WinCan) << "wincan" << "Downstream (D)";
        QTest::newRow("Page Up") << int(Qt::Key_PageUp) << "pageUp" << "Downstream (D)";
        QTest::newRow("Page Down") << int(Qt::Key_PageDown) << "pageDown" << "Downstream (D)";
        QTest::newRow("Escape leaves the value") << int(Qt::Key_Escape) << "escape" << "Upstream (U)";
    }
    void openListHandsFormKeysToTheForm()
    {
        QFETCH(int, key);
        QFETCH(QString, handler);
        QFETCH(QString, kept);
        Form form;
        auto *layout = new QVBoxLayout(&form);
        auto *combo = new P_ComboBox(&form);
        combo->addItems({"Upstream (U)", "Downstream (D)"});
        combo->setTag("Direction");
        layout->addWidget(combo);
        connect(combo, &P_ComboBox::corvaneKeyRelease, &form, &Form::corvane);
        connect(combo, &P_ComboBox::wincanKeyRelease, &form, &Form::wincan);
        connect(combo, &P_ComboBox::escKeyRelease, &form, &Form::escape);
        connect(combo, &P_ComboBox::pageUpRelease, &form, &Form::pageUp);
        connect(combo, &P_ComboBox::pageDownRelease, &form, &Form::pageDown);
        showActive(&form);
        combo->setFocus();
        combo->showPopup();
        QVERIFY(combo->view()->isVisible());
        QTest::keyClick(combo->view(), Qt::Key_Down);
        QTest::keyPress(combo->view(), Qt::Key(key));
        QVERIFY(!combo->view()->isVisible());
        QTest::keyRelease(QApplication::focusWidget(), Qt::Key(key));
        QCOMPARE(form.handled, QStringList{handler});
        QVERIFY2(form.releases.isEmpty(), "the form must not see the key a second time");
        QCOMPARE(combo->currentText(), kept);
        QCOMPARE(combo->tag(), QString("Direction"));
    }

    void closedComboLeavesArrowsToTheForm()
    {
        Form form;
        auto *layout = new QVBoxLayout(&form);
        auto *combo = new P_ComboBox(&form);
        combo->addItems({"Brick", "Clay", "Concrete"});
        layout->addWidget(combo);
        showActive(&form);
        combo->setFocus();
        QTest::keyClick(combo, Qt::Key_Down);
        QTest::keyClick(combo, Qt::Key_PageDown);
        QCOMPARE(combo->currentIndex(), 0);
        QCOMPARE(form.releases, (QList<int>{Qt::Key_Down, Qt::Key_PageDown}));
        QTest::keyClick(combo, Qt::Key_Right);
        QTest::keyClick(combo, Qt::Key_Right);
        QTest::keyClick(combo, Qt::Key_Right);
        QCOMPARE(combo->currentText(), QString("Concrete"));
        QTest::keyClick(combo, Qt::Key_Left);
        QCOMPARE(combo->currentText(), QString("Clay"));
        QVERIFY(form.handled.isEmpty());
    }

    void buttonTakesEnterAndKeepsItFromTheForm()
    {
        Form form;
        auto *layout = new QVBoxLayout(&form);
        auto *button = new P_PushButton("Save", &form);
        layout->addWidget(button);
        QSignalSpy clicked(button, &QPushButton::clicked);
        showActive(&form);
        button->setFocus();
        QTest::keyClick(button, Qt::Key_Enter);
        QCOMPARE(clicked.count(), 1);
        QVERIFY(form.releases.isEmpty());
    }

    void textEditHandsUpAndDownOnAtItsEdges()
    {
        Form form;
        auto *layout = new QVBoxLayout(&form);
        auto *notes = new P_TextEdit(&form);
        layout->addWidget(notes);
        showActive(&form);
        notes->setFocus();
        notes->setPlainText("first line\nsecond line");
        notes->moveCursor(QTextCursor::Start);
        QTest::keyClick(notes, Qt::Key_Down);
        QVERIFY2(form.releases.isEmpty(), "Down inside the text moves the cursor only");
        QTest::keyClick(notes, Qt::Key_Down);
        QCOMPARE(form.releases, QList<int>{Qt::Key_Down});
        notes->setMaxLength(5);
        QCOMPARE(notes->toPlainText(), QString("first"));
    }
};

QTEST_MAIN(TestKeypadWalkthrough)
#include "tst_keypadwalkthrough.moc"
