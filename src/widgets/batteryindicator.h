#pragma once

#include "widgets/indicatorcell.h"

// The battery: a body filled in five steps (red up to 19, orange up to 39, green
// above), a symbol for the charging state and, for the level kEmptyLevel that the
// power board's decoding gives below the last threshold, the empty-battery picture.
class BatteryIndicator : public IndicatorCell
{
    Q_OBJECT
public:
    static constexpr int kEmptyLevel = 200;
    // Charging states of the power board: 3 is running on the battery.
    enum ChargingState { kWarning = 0, kMains = 1, kCharging = 2, kOnBattery = 3 };

    explicit BatteryIndicator(QWidget *parent = nullptr);

    int level() const { return m_level; }
    int chargingState() const { return m_state; }
    // How many of the five steps are lit.
    int litSteps() const;
    // The picture now standing for the battery: the empty battery, or the symbol
    // of the charging state over the drawn body; empty when there is none.
    QString symbol() const;

public slots:
    void setLevel(int level);
    void setChargingState(int state);
    // The board gives no time estimate; the main screen passes the capacity level
    // here, so it is shown as a percentage (or "EMPTY").
    void setTimeRemaining(int value);

protected:
    void paintPicture(QPainter &painter, const QRect &area) override;

private:
    QColor fillColour() const;

    int m_level = 0;
    int m_state = kOnBattery;
};
