#pragma once

#include "settings/iclock.h"

#include <QDateTime>
#include <QWidget>

class ClockControl;
class QLabel;
class P_LineEdit;
class P_PushButton;
class SettingsForm;

// The clock tab: 24 or 12 hour display, and the date and time the unit's clock
// is set to, through the clock control and its script.
class SettingsClock : public QWidget, public IClock
{
    Q_OBJECT
public:
    explicit SettingsClock(QWidget *parent = nullptr);

    void setControl(ClockControl *clock) override;
    SettingsForm *form() const { return m_form; }
    P_LineEdit *dateField() const { return m_date; }
    P_LineEdit *timeField() const { return m_time; }
    QString resultText() const;

    // The typed date and time; invalid when either cannot be read.
    static QDateTime parse(const QString &date, const QString &time);

public slots:
    void setClock();

protected:
    void showEvent(QShowEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void fillNow();
    void retranslate();

    ClockControl *m_clock = nullptr;
    SettingsForm *m_form = nullptr;
    P_LineEdit *m_date = nullptr;
    P_LineEdit *m_time = nullptr;
    P_PushButton *m_set = nullptr;
    QLabel *m_result = nullptr;
};
