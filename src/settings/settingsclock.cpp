#include "settings/settingsclock.h"

#include "core/consolesettings.h"
#include "instrument/clockcontrol.h"
#include "settings/settingsform.h"
#include "widgets/p_lineedit.h"
#include "widgets/p_pushbutton.h"

#include <QEvent>
#include <QLabel>
#include <QVBoxLayout>

namespace {
const char kDateFormat[] = "dd/MM/yyyy";
} // namespace

SettingsClock::SettingsClock(QWidget *parent) : QWidget(parent)
{
    auto *layout = new QVBoxLayout(this);
    m_form = new SettingsForm(this);
    m_form->addChoices("Clock_mode", QT_TRANSLATE_NOOP("SettingsForm", "Clock display"),
                       {{QT_TRANSLATE_NOOP("SettingsForm", "24 hour"), QStringLiteral("0")},
                        {QT_TRANSLATE_NOOP("SettingsForm", "12 hour"), QStringLiteral("1")}});
    m_date = new P_LineEdit(m_form);
    m_date->setObjectName(QStringLiteral("clockDate"));
    m_date->setInputMask(QStringLiteral("99/99/9999"));
    m_time = new P_LineEdit(m_form);
    m_time->setObjectName(QStringLiteral("clockTime"));
    m_time->setInputMask(QStringLiteral("99:99"));
    m_form->addWidgetRow(QT_TRANSLATE_NOOP("SettingsForm", "Date (dd/mm/yyyy)"), m_date);
    m_form->addWidgetRow(QT_TRANSLATE_NOOP("SettingsForm", "Time (hh:mm, 24 hour)"), m_time);
    m_set = new P_PushButton(m_form);
    m_set->setObjectName(QStringLiteral("setClock"));
    m_form->addWidgetRow(QT_TRANSLATE_NOOP("SettingsForm", "Apply"), m_set);
    layout->addWidget(m_form);
    m_result = new QLabel(this);
    m_result->setWordWrap(true);
    layout->addWidget(m_result);
    layout->addStretch(1);
    connect(m_set, &QPushButton::clicked, this, &SettingsClock::setClock);
    retranslate();
}

void SettingsClock::setControl(ClockControl *clock)
{
    m_clock = clock;
}

QDateTime SettingsClock::parse(const QString &date, const QString &time)
{
    const QDate day = QDate::fromString(date.trimmed(), QLatin1String(kDateFormat));
    const QTime hour = QTime::fromString(time.trimmed(), QStringLiteral("hh:mm"));
    if (!day.isValid() || !hour.isValid())
        return QDateTime();
    return QDateTime(day, hour);
}

QString SettingsClock::resultText() const
{
    return m_result->text();
}

void SettingsClock::setClock()
{
    QDateTime when = parse(m_date->text(), m_time->text());
    if (!when.isValid()) {
        m_result->setText(tr("Please enter the date as dd/mm/yyyy and the time as hh:mm"));
        return;
    }
    if (!m_clock) {
        m_result->setText(tr("The clock cannot be set now"));
        return;
    }
    const int mode = ConsoleSettings().value(QStringLiteral("Clock_mode"), 0).toInt();
    m_clock->setSystemTimeDate(when, mode);
    m_result->setText(tr("Clock set to %1").arg(when.toString(QStringLiteral("dd/MM/yyyy hh:mm"))));
}

void SettingsClock::fillNow()
{
    const QDateTime now = QDateTime::currentDateTime();
    m_date->setText(now.toString(QLatin1String(kDateFormat)));
    m_time->setText(now.toString(QStringLiteral("hh:mm")));
}

void SettingsClock::showEvent(QShowEvent *event)
{
    fillNow();
    m_result->clear();
    QWidget::showEvent(event);
}

void SettingsClock::retranslate()
{
    m_set->setText(tr("Set Clock"));
}

void SettingsClock::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}
