#pragma once

#include "widgets/keypaddialog.h"

class hbiLabel;

// A note for the operator. OK (Return or Enter) answers 1, Escape or a close from
// outside answers 0, so a note that leads back to a menu only does so when the
// operator read it and pressed OK.
class MessageDialog : public KeypadDialog
{
    Q_OBJECT
public:
    MessageDialog(QWidget *parent, const QString &title, const QString &text);
    // The answer goes to receiver's slot, written SLOT(name(int)) or SLOT(name()).
    MessageDialog(QWidget *parent, QObject *receiver, const char *slot, const QString &title,
                  const QString &text);

    QString text() const;

signals:
    void acknowledged(int key);

protected:
    void actOnKey(int key) override;
    void answerClosed() override;

private:
    hbiLabel *m_text = nullptr;
};
