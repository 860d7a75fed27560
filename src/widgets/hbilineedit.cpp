#include "widgets/hbilineedit.h"

#include "widgets/consolestyle.h"

#include <QVariant>

hbiLineEdit::hbiLineEdit(QWidget *parent)
    : hbiLineEdit(QString(), parent)
{
}

hbiLineEdit::hbiLineEdit(const QString &text, QWidget *parent)
    : QLineEdit(text, parent)
{
    connect(this, &QLineEdit::textChanged, this, &hbiLineEdit::updateMissing);
}

void hbiLineEdit::setMandatory(bool mandatory)
{
    m_mandatory = mandatory;
    updateMissing();
}

bool hbiLineEdit::isMissing() const
{
    return m_mandatory && text().trimmed().isEmpty();
}

void hbiLineEdit::updateMissing()
{
    if (isMissing() == m_shownMissing)
        return;
    m_shownMissing = isMissing();
    ConsoleStyle::repolish(this);
}
