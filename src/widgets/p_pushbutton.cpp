#include "widgets/p_pushbutton.h"

#include <QKeyEvent>

namespace {

bool isAcceptKey(int key)
{
    return key == Qt::Key_Return || key == Qt::Key_Enter;
}

} // namespace

P_PushButton::P_PushButton(QWidget *parent)
    : P_PushButton(QString(), parent)
{
}

P_PushButton::P_PushButton(const QString &text, QWidget *parent)
    : QPushButton(text, parent)
{
    setFocusPolicy(Qt::StrongFocus);
}

void P_PushButton::keyPressEvent(QKeyEvent *event)
{
    if (isAcceptKey(event->key())) {
        event->accept();
        if (!event->isAutoRepeat()) {
            m_clickKey = event->key();
            click();
        }
        return;
    }
    QPushButton::keyPressEvent(event);
}

void P_PushButton::keyReleaseEvent(QKeyEvent *event)
{
    if (event->key() == m_clickKey) {
        if (!event->isAutoRepeat())
            m_clickKey = 0;
        event->accept();
        return;
    }
    QPushButton::keyReleaseEvent(event);
}
