#pragma once

#include "widgets/indicatorcell.h"

// The wireless link: Wi-Fi strength bars (or the tether symbol when the phone is
// on the USB cable) and, beside them, the mobile app's symbol while it is linked.
class WifiIndicator : public IndicatorCell
{
    Q_OBJECT
public:
    explicit WifiIndicator(QWidget *parent = nullptr);

    QString wifiPicture() const;
    QString ostraPicture() const;
    int lastOstraState() const { return m_lastOstraState; }

public slots:
    // 2 low, 3 medium, 4 full; anything else (1 is "not connected") shows no bars.
    void updateWifiIcon(int state);
    // Non-zero: the app is linked.
    void updateOstraIcon(int state);
    void setTethered(bool tethered);

protected:
    void paintPicture(QPainter &painter, const QRect &area) override;

private:
    int m_wifiState = 0;
    int m_lastOstraState = 0;
    bool m_tethered = false;
};
