#include "widgets/hbilabel.h"

#include "widgets/consolestyle.h"

#include <QVariant>

namespace {

const char *lookName(hbiLabel::Look look)
{
    switch (look) {
    case hbiLabel::kTitle:
        return "title";
    case hbiLabel::kHint:
        return "hint";
    case hbiLabel::kWarning:
        return "warning";
    case hbiLabel::kBody:
        break;
    }
    return "body";
}

} // namespace

hbiLabel::hbiLabel(QWidget *parent)
    : hbiLabel(QString(), parent)
{
}

hbiLabel::hbiLabel(const QString &text, QWidget *parent, Look look)
    : QLabel(text, parent)
{
    setWordWrap(true);
    setLook(look);
}

void hbiLabel::setLook(Look look)
{
    m_look = look;
    setProperty("look", QString::fromLatin1(lookName(look)));
    ConsoleStyle::repolish(this);
}
