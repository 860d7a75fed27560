#pragma once

#include <QString>
#include <QStringList>

class KeypadDialog;
class QWidget;

// Drives the console as an operator does: every key goes to the widget that has
// the focus, and dialogs are answered by keys once they are showing.
class KeypadOperator
{
public:
    explicit KeypadOperator(QWidget *window) : m_window(window) {}

    void key(int key);
    void type(const QString &text);
    // The dialog with this title once it shows and holds the focus; null after 10 s.
    KeypadDialog *waitForDialog(const QString &title);
    bool answerText(const QString &title, const QString &text);
    bool answerMenu(const QString &title, int row);
    // Fills the fields of the parameter dialog of a defect code in turn, leaving
    // pre-filled ones as they are when the value is empty, and confirms with OK.
    bool answerParams(const QString &code, const QStringList &values);

private:
    QWidget *focusTarget();

    QWidget *m_window;
};
