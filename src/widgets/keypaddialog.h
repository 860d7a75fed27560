#pragma once

#include <QDialog>
#include <QSet>

class QVBoxLayout;
class hbiLabel;

// Base of the console's keypad dialogs: frameless, a title on top, the content,
// and a line that says which keys do what.
//
// Keys act on their release, and only when this dialog also saw the press: a
// dialog opened by one key's press (for instance as the answer to another dialog)
// is not closed by that same key's release.
//
// Each dialog answers exactly once. An answer by key, or a close from outside
// (close(), reject(), done()), ends it; a dialog closed unanswered gives its cancel
// answer. Dialogs are not deleted on close: their owner keeps or replaces them.
class KeypadDialog : public QDialog
{
    Q_OBJECT
public:
    bool hasAnswered() const { return m_answered; }
    QString title() const;
    QString keyHint() const;

    void done(int result) override;

protected:
    KeypadDialog(QWidget *parent, const QString &title);

    QVBoxLayout *contentLayout() const { return m_content; }
    void setKeyHint(const QString &text);
    // Connects the answer signal to the receiver's slot, both written with
    // SIGNAL()/SLOT(); a missing receiver leaves the answer unheard.
    void connectAnswer(const char *signal, QObject *receiver, const char *slot);
    // Ends the dialog; returns false if it had answered already, and the caller
    // then must not emit its answer.
    bool finish(int result);

    virtual bool isActionKey(int key) const;
    // A whole press and release of an action key.
    virtual void actOnKey(int key) = 0;
    // Closed from outside before any answer.
    virtual void answerClosed() = 0;

    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;
    void forwardToOwner(QKeyEvent *event);

private:
    QSet<int> m_forwardedPresses;
    hbiLabel *m_title = nullptr;
    hbiLabel *m_hint = nullptr;
    QVBoxLayout *m_content = nullptr;
    int m_pressedKey = 0;
    bool m_answered = false;
};
