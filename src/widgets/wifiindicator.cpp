#include "widgets/wifiindicator.h"

#include <QPainter>

WifiIndicator::WifiIndicator(QWidget *parent)
    : IndicatorCell(parent, 46)
{
}

QString WifiIndicator::wifiPicture() const
{
    if (m_tethered)
        return QStringLiteral(":/graphics/usb-tether.png");
    switch (m_wifiState) {
    case 2:
        return QStringLiteral(":/graphics/wifi_low.png");
    case 3:
        return QStringLiteral(":/graphics/wifi_medium.png");
    case 4:
        return QStringLiteral(":/graphics/wifi_full.png");
    default:
        return QString();
    }
}

QString WifiIndicator::ostraPicture() const
{
    return m_lastOstraState != 0 ? QStringLiteral(":/graphics/Ostra_no_back.png") : QString();
}

void WifiIndicator::updateWifiIcon(int state)
{
    m_wifiState = state;
    update();
}

void WifiIndicator::updateOstraIcon(int state)
{
    m_lastOstraState = state;
    update();
}

void WifiIndicator::setTethered(bool tethered)
{
    m_tethered = tethered;
    update();
}

void WifiIndicator::paintPicture(QPainter &painter, const QRect &area)
{
    const int half = area.width() / 2;
    paintPictureFile(painter, wifiPicture(), QRect(area.left(), area.top(), half, area.height()));
    paintPictureFile(painter, ostraPicture(), QRect(area.left() + half, area.top(), half, area.height()));
}
