#include "widgets/indicatorcell.h"

#include "widgets/consolestyle.h"
#include "widgets/graphics.h"

#include <QPainter>

namespace {

constexpr int kCaptionHeight = 22;

QFont stripFont(int pixels)
{
    QFont font(QString::fromLatin1(ConsoleStyle::kFontFamily));
    font.setPixelSize(pixels);
    font.setBold(true);
    return font;
}

} // namespace

IndicatorCell::IndicatorCell(QWidget *parent, int height)
    : QWidget(parent)
    , m_height(height)
{
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
}

QSize IndicatorCell::sizeHint() const
{
    return QSize(kWidth, m_height);
}

QSize IndicatorCell::minimumSizeHint() const
{
    return QSize(kWidth, m_height * 3 / 4);
}

void IndicatorCell::setPicture(const QString &resource)
{
    if (m_picture == resource)
        return;
    m_picture = resource;
    update();
}

void IndicatorCell::setHeadline(const QString &text)
{
    if (m_headline == text)
        return;
    m_headline = text;
    update();
}

void IndicatorCell::setCaption(const QString &text)
{
    if (m_caption == text)
        return;
    m_caption = text;
    update();
}

void IndicatorCell::setAlert(bool alert)
{
    if (m_alert == alert)
        return;
    m_alert = alert;
    update();
}

QRect IndicatorCell::captionArea() const
{
    return QRect(2, height() - kCaptionHeight - 2, width() - 4, kCaptionHeight);
}

void IndicatorCell::paintPictureFile(QPainter &painter, const QString &resource, const QRect &area)
{
    const QPixmap pixmap = graphicsPixmap(resource, area.size());
    if (pixmap.isNull())
        return;
    QRect target(QPoint(), pixmap.size());
    target.moveCenter(area.center());
    painter.drawPixmap(target, pixmap);
}

void IndicatorCell::paintPicture(QPainter &painter, const QRect &area)
{
    if (!m_picture.isEmpty()) {
        paintPictureFile(painter, m_picture, area);
        return;
    }
    if (m_headline.isEmpty())
        return;
    painter.setFont(stripFont(m_headline.size() > 4 ? 17 : 22));
    painter.setPen(ConsoleStyle::stripInk());
    painter.drawText(area, Qt::AlignCenter, m_headline);
}

void IndicatorCell::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), ConsoleStyle::stripGround());
    const QRect caption = m_caption.isEmpty() ? QRect() : captionArea();
    const int pictureBottom = caption.isNull() ? height() - 4 : caption.top() - 2;
    paintPicture(painter, QRect(4, 4, width() - 8, pictureBottom - 4));
    if (caption.isNull())
        return;
    if (m_alert)
        painter.fillRect(caption, ConsoleStyle::alarm());
    painter.setFont(stripFont(m_caption.size() > 6 ? 14 : 17));
    painter.setPen(ConsoleStyle::stripInk());
    painter.drawText(caption, Qt::AlignCenter, m_caption);
}
