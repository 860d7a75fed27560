#pragma once

#include "widgets/keypaddialog.h"

class QPushButton;

// Asks before a site or survey is deleted. Cancel is in focus at first; Left and
// Right move between Cancel and OK, Return presses the one in focus, Escape cancels.
class DeleteDialog : public KeypadDialog
{
    Q_OBJECT
public:
    DeleteDialog(QWidget *parent, const QString &site, const QString &survey);

    bool okInFocus() const { return m_ok_chosen; }

protected:
    void actOnKey(int key) override;
    void answerClosed() override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    void choose(bool ok);

    QPushButton *m_cancel = nullptr;
    QPushButton *m_ok = nullptr;
    bool m_ok_chosen = false;
};
