#include "widgets/p_textedit.h"

#include "widgets/widgettag.h"

#include <QKeyEvent>
#include <QTextCursor>

P_TextEdit::P_TextEdit(QWidget *parent)
    : QTextEdit(parent)
{
    setAcceptRichText(false);
    setTabChangesFocus(true);
    connect(this, &QTextEdit::textChanged, this, &P_TextEdit::enforceMaxLength);
}

void P_TextEdit::setTag(const QString &tag)
{
    WidgetTag::set(this, tag);
}

QString P_TextEdit::tag() const
{
    return WidgetTag::get(this);
}

void P_TextEdit::setMaxLength(int length)
{
    m_maxLength = qMax(0, length);
    enforceMaxLength();
}

void P_TextEdit::sendValue()
{
    if (!tag().isEmpty())
        emit send(tag(), toPlainText());
}

bool P_TextEdit::cursorCanMove(int key) const
{
    QTextCursor probe = textCursor();
    return probe.movePosition(key == Qt::Key_Up ? QTextCursor::Up : QTextCursor::Down);
}

void P_TextEdit::keyPressEvent(QKeyEvent *event)
{
    const int key = event->key();
    if (key == Qt::Key_Up || key == Qt::Key_Down) {
        if (!cursorCanMove(key)) {
            event->ignore();
            return;
        }
        m_movedKey = key;
    }
    QTextEdit::keyPressEvent(event);
}

void P_TextEdit::keyReleaseEvent(QKeyEvent *event)
{
    if (event->key() == m_movedKey) {
        if (!event->isAutoRepeat())
            m_movedKey = 0;
        event->accept();
        return;
    }
    QTextEdit::keyReleaseEvent(event);
}

void P_TextEdit::enforceMaxLength()
{
    const QString text = toPlainText();
    if (m_maxLength == 0 || text.size() <= m_maxLength)
        return;
    const QSignalBlocker blocker(this);
    setPlainText(text.left(m_maxLength));
    moveCursor(QTextCursor::End);
}
