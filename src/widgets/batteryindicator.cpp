#include "widgets/batteryindicator.h"

#include "widgets/consolestyle.h"

#include <QPainter>

namespace {

constexpr int kSteps = 5;

} // namespace

BatteryIndicator::BatteryIndicator(QWidget *parent)
    : IndicatorCell(parent, 66)
{
}

int BatteryIndicator::litSteps() const
{
    if (m_level == kEmptyLevel)
        return 0;
    return qBound(0, (m_level + 19) / 20, kSteps);
}

QString BatteryIndicator::symbol() const
{
    if (m_level == kEmptyLevel)
        return QStringLiteral(":/graphics/battery-empty.png");
    switch (m_state) {
    case kWarning:
        return QStringLiteral(":/graphics/battery-warning.png");
    case kMains:
        return QStringLiteral(":/graphics/battery-mains.png");
    case kCharging:
        return QStringLiteral(":/graphics/battery-charging.png");
    default:
        return QString();
    }
}

void BatteryIndicator::setLevel(int level)
{
    m_level = level;
    update();
}

void BatteryIndicator::setChargingState(int state)
{
    m_state = state;
    update();
}

void BatteryIndicator::setTimeRemaining(int value)
{
    if (value == kEmptyLevel) {
        setCaption(tr("EMPTY"));
        setAlert(true);
        return;
    }
    setAlert(value >= 0 && value < 20);
    setCaption(value >= 0 && value <= 100 ? tr("%1%").arg(value) : QString());
}

QColor BatteryIndicator::fillColour() const
{
    if (m_level <= 19)
        return ConsoleStyle::alarm();
    if (m_level <= 39)
        return ConsoleStyle::caution();
    return ConsoleStyle::good();
}

void BatteryIndicator::paintPicture(QPainter &painter, const QRect &area)
{
    if (m_level == kEmptyLevel) {
        paintPictureFile(painter, symbol(), area);
        return;
    }
    // Body on the left two thirds, the state symbol over its right end.
    QRect body(area.left(), area.center().y() - 12, area.width() - 18, 24);
    const QRect tip(body.right() + 1, body.center().y() - 6, 5, 12);
    painter.fillRect(tip, ConsoleStyle::stripInk());
    painter.setPen(QPen(ConsoleStyle::stripInk(), 3));
    painter.setBrush(Qt::NoBrush);
    painter.drawRect(body);
    const QRect inside = body.adjusted(4, 4, -3, -3);
    const int stepWidth = inside.width() / kSteps;
    for (int step = 0; step < litSteps(); ++step)
        painter.fillRect(inside.left() + step * stepWidth, inside.top(), stepWidth - 2, inside.height(), fillColour());
    if (!symbol().isEmpty())
        paintPictureFile(painter, symbol(), QRect(area.right() - 29, area.center().y() - 15, 30, 30));
}
