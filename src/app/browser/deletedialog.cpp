#include "app/browser/deletedialog.h"

#include "widgets/hbilabel.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QPushButton>
#include <QVBoxLayout>

DeleteDialog::DeleteDialog(QWidget *parent, const QString &site, const QString &survey)
    : KeypadDialog(parent, tr("Delete"))
{
    contentLayout()->addWidget(new hbiLabel(tr("Site: %1").arg(site), this));
    contentLayout()->addWidget(new hbiLabel(tr("Survey: %1").arg(survey), this));
    contentLayout()->addWidget(new hbiLabel(tr("This cannot be undone."), this, hbiLabel::kWarning));
    auto *buttons = new QHBoxLayout;
    m_cancel = new QPushButton(tr("Cancel"), this);
    m_ok = new QPushButton(tr("OK"), this);
    for (QPushButton *button : {m_cancel, m_ok}) {
        button->setFocusPolicy(Qt::NoFocus);
        button->setCheckable(true);
        buttons->addWidget(button);
    }
    contentLayout()->addLayout(buttons);
    setKeyHint(tr("Left/Right: choose   OK: confirm   ESC: cancel"));
    choose(false);
}

void DeleteDialog::choose(bool ok)
{
    m_ok_chosen = ok;
    m_ok->setChecked(ok);
    m_cancel->setChecked(!ok);
}

void DeleteDialog::keyPressEvent(QKeyEvent *event)
{
    if (event->key() == Qt::Key_Left || event->key() == Qt::Key_Right) {
        choose(event->key() == Qt::Key_Right);
        event->accept();
        return;
    }
    KeypadDialog::keyPressEvent(event);
}

void DeleteDialog::actOnKey(int key)
{
    finish(key != Qt::Key_Escape && m_ok_chosen ? Accepted : Rejected);
}

void DeleteDialog::answerClosed() {}
