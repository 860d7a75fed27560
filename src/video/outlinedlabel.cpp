#include "video/outlinedlabel.h"

#include <QPainter>

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

const QPoint kOutlineOffsets[] = {{1, 1}, {1, -1}, {-1, 1}, {-1, -1}};

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
    QFont font(QStringLiteral("Arial"), ptSize, QFont::Bold);
    font.setStyleHint(QFont::SansSerif, QFont::PreferBitmap);
    QPainter painter(this);
    painter.setFont(font);
    const QString content = text();
    const QRect area = rect();
    painter.setPen(QPen(outline_colour, 5));
    for (const QPoint &offset : kOutlineOffsets)
        painter.drawText(area.translated(offset), Qt::AlignLeft, content);
    painter.setPen(QPen(bck_colour, 5));
    painter.drawText(area, Qt::AlignLeft, content);
}
