#include "video/outlinedlabel.h"

#include <QFontMetrics>
#include <QPainter>
#include <QPainterPath>

namespace {

constexpr int kStyleCount = 6;
constexpr int kSizeCount = 3;

struct Look {
    Qt::GlobalColor text;
    Qt::GlobalColor outline;
};

const Look kLooks[kStyleCount] = {
    {Qt::white, Qt::black},   {Qt::magenta, Qt::black}, {Qt::darkBlue, Qt::blue},
    {Qt::red, Qt::black},     {Qt::black, Qt::white},   {Qt::green, Qt::black},
};

const int kPointSizes[kSizeCount] = {15, 20, 27};

int wrapped(int value, int count)
{
    return ((value % count) + count) % count;
}

} // namespace

OutlinedLabel::OutlinedLabel(QWidget *parent)
    : QLabel(parent)
{
}

void OutlinedLabel::nextColour()
{
    setTextColour(colour_Counter + 1);
}

void OutlinedLabel::nextSize()
{
    setTextSize(m_textSize + 1);
}

void OutlinedLabel::setTextColour(int style)
{
    colour_Counter = wrapped(style, kStyleCount);
    bck_colour = kLooks[colour_Counter].text;
    outline_colour = kLooks[colour_Counter].outline;
    repaint();
}

void OutlinedLabel::setTextSize(int size)
{
    m_textSize = wrapped(size, kSizeCount);
    ptSize = kPointSizes[m_textSize];
    repaint();
}

void OutlinedLabel::paintEvent(QPaintEvent *)
{
    if (m_picture.size() != size() || m_pictureKey != pictureKey())
        drawPicture();
    QPainter(this).drawImage(0, 0, m_picture);
}

QString OutlinedLabel::pictureKey() const
{
    return QStringLiteral("%1 %2 %3 %4").arg(ptSize).arg(bck_colour.rgba()).arg(outline_colour.rgba()).arg(text());
}

void OutlinedLabel::drawPicture()
{
    m_pictureKey = pictureKey();
    m_picture = QImage(size(), QImage::Format_ARGB32_Premultiplied);
    m_picture.fill(Qt::transparent);
    QFont font(QStringLiteral("Arial"), ptSize, QFont::Bold);
    font.setStyleHint(QFont::SansSerif, QFont::PreferBitmap);
    const QFontMetrics metrics(font);
    // A ring around every glyph a fifth of the line high: thin enough to keep
    // the letters open, wide enough to part them from a picture of their own colour.
    const int outline = qMax(6, metrics.height() / 5);
    QPainterPath path;
    const QStringList lines = text().split(QLatin1Char('\n'));
    for (int i = 0; i < lines.size(); ++i)
        path.addText(outline / 2, outline / 2 + metrics.ascent() + i * metrics.lineSpacing(), font, lines.at(i));
    QPainter painter(&m_picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.strokePath(path, QPen(outline_colour, outline, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.fillPath(path, bck_colour);
}
