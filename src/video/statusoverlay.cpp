#include "video/statusoverlay.h"

#include "widgets/hbilabel.h"

#include <QHBoxLayout>

statusOverlay::statusOverlay(const QString &text, QWidget *parent)
    : QWidget(parent)
    , m_label(new hbiLabel(text, this, hbiLabel::kTitle))
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addWidget(m_label);
}

QString statusOverlay::statusText() const
{
    return m_label->text();
}

void statusOverlay::setStatusText(const QString &text)
{
    m_label->setText(text);
}
