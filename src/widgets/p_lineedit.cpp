#include "widgets/p_lineedit.h"

#include "widgets/widgettag.h"

P_LineEdit::P_LineEdit(QWidget *parent)
    : QLineEdit(parent)
{
}

void P_LineEdit::setTag(const QString &tag)
{
    WidgetTag::set(this, tag);
}

QString P_LineEdit::tag() const
{
    return WidgetTag::get(this);
}

void P_LineEdit::sendValue()
{
    if (!tag().isEmpty())
        emit send(tag(), text());
}
