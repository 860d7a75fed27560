#include "support/keypadoperator.h"

#include "widgets/keypaddialog.h"
#include "widgets/paramentrydialog.h"

#include <QApplication>
#include <QDebug>
#include <QtTest>

QWidget *KeypadOperator::focusTarget()
{
    // A closed dialog leaves the offscreen platform with no active window, where
    // the unit's display hands the activation back to the main window.
    if (!QApplication::activeWindow())
        QApplication::setActiveWindow(m_window);
    QWidget *target = QApplication::focusWidget();
    return target ? target : m_window;
}

void KeypadOperator::key(int key)
{
    QTest::keyClick(focusTarget(), Qt::Key(key));
}

void KeypadOperator::type(const QString &text)
{
    for (const QChar c : text)
        QTest::keyClick(focusTarget(), c.toLatin1());
}

KeypadDialog *KeypadOperator::waitForDialog(const QString &title)
{
    KeypadDialog *found = nullptr;
    const auto showing = [&] {
        for (QWidget *widget : QApplication::topLevelWidgets()) {
            auto *dialog = qobject_cast<KeypadDialog *>(widget);
            if (dialog && dialog->isVisible() && dialog->title() == title.trimmed() && QApplication::focusWidget()
                && dialog->isAncestorOf(QApplication::focusWidget()))
                found = dialog;
        }
        return found != nullptr;
    };
    if (!QTest::qWaitFor(showing, 10000))
        qWarning().noquote() << "No dialog" << title;
    return found;
}

bool KeypadOperator::answerText(const QString &title, const QString &text)
{
    if (!waitForDialog(title))
        return false;
    type(text);
    key(Qt::Key_Return);
    return true;
}

bool KeypadOperator::answerMenu(const QString &title, int row)
{
    if (!waitForDialog(title))
        return false;
    for (int i = 0; i < row; ++i)
        key(Qt::Key_Down);
    key(Qt::Key_Return);
    return true;
}

bool KeypadOperator::answerParams(const QString &code, const QStringList &values)
{
    auto *dialog = qobject_cast<ParamEntryDialog *>(waitForDialog(QStringLiteral("Code: ") + code));
    if (!dialog)
        return false;
    for (int i = 0; i < values.size(); ++i) {
        if (i > 0)
            key(Qt::Key_Down);
        type(values.at(i));
    }
    key(Qt::Key_Return);
    return dialog->hasAnswered();
}
