#pragma once

#include "widgets/keypaddialog.h"

class hbiLabel;
class hbiLineEdit;

// One line of text from the keypad. The answer is (key, text), text trimmed:
//
//   Escape, or closed from outside   kCancelled (0), with the text as it stands
//   Return or Enter (the OK key)     kAccepted (1)
//   Key_TextMode (the Text key)      kAcceptedTextOnly (2)
//
// Callers that only ask "given or not" test for non-zero. The comment after a
// snapshot tells the two apart: OK files the comment with the snapshot, the Text
// key files it as text alone. A mandatory entry refuses both accept keys while it
// is blank and says so; Escape always answers.
class TextEntryDialog : public KeypadDialog
{
    Q_OBJECT
public:
    enum Answer { kCancelled = 0, kAccepted = 1, kAcceptedTextOnly = 2 };
    Q_ENUM(Answer)

    // The answer goes to receiver's slot, written SLOT(name(int,QString)).
    TextEntryDialog(QWidget *parent, QObject *receiver, const char *slot, const QString &title,
                    const QString &prompt, const QString &text, bool mandatory = false);

    QString text() const;
    void setText(const QString &text);
    bool isMandatory() const;
    // The refusal of a blank mandatory entry is showing.
    bool isRefusing() const;

    void setVisible(bool visible) override;

signals:
    void entered(int key, QString text);

protected:
    bool isActionKey(int key) const override;
    void actOnKey(int key) override;
    void answerClosed() override;

private:
    void answer(Answer key);
    void refuseBlank();

    hbiLabel *m_prompt = nullptr;
    hbiLineEdit *m_edit = nullptr;
    hbiLabel *m_refusal = nullptr;
};
