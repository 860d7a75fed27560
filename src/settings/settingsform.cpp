#include "settings/settingsform.h"

#include "core/consolesettings.h"
#include "core/settingkeys.h"
#include "widgets/p_combobox.h"
#include "widgets/p_lineedit.h"

#include <QCoreApplication>
#include <QDebug>
#include <QEvent>
#include <QFormLayout>
#include <QKeyEvent>
#include <QLabel>

SettingsForm::SettingsForm(QWidget *parent) : QWidget(parent)
{
    m_layout = new QFormLayout(this);
    m_layout->setLabelAlignment(Qt::AlignLeft);
    m_layout->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
}

QString SettingsForm::translated(const char *text)
{
    return QCoreApplication::translate("SettingsForm", text);
}

void SettingsForm::addToggle(const char *key, const char *label)
{
    addComboRow(key, label,
                {{QT_TRANSLATE_NOOP("SettingsForm", "Off"), QStringLiteral("false")},
                 {QT_TRANSLATE_NOOP("SettingsForm", "On"), QStringLiteral("true")}});
}

void SettingsForm::addChoices(const char *key, const char *label, const QVector<Choice> &choices)
{
    addComboRow(key, label, choices);
}

void SettingsForm::addRange(const char *key, const char *label, int from, int to, int step)
{
    QVector<Choice> choices;
    for (int value = from; value <= to; value += step)
        choices.append({nullptr, QString::number(value)});
    addComboRow(key, label, choices);
}

void SettingsForm::addComboRow(const char *key, const char *label, const QVector<Choice> &choices)
{
    if (!SettingKeys::isKnown(QLatin1String(key)))
        qWarning() << "Settings row for a key without a default:" << key;
    Row row;
    row.key = QLatin1String(key);
    row.label = label;
    row.labelWidget = new QLabel(this);
    row.combo = new P_ComboBox(this);
    row.combo->setObjectName(row.key);
    row.choices = choices;
    for (const Choice &choice : choices)
        row.combo->addItem(QString(), choice.value);
    m_layout->addRow(row.labelWidget, row.combo);
    m_rows.append(row);
    P_ComboBox *combo = row.combo;
    const QString boundKey = row.key;
    connect(combo, QOverload<int>::of(&QComboBox::currentIndexChanged), this, [this, combo, boundKey](int index) {
        if (!m_loading && index >= 0)
            store(*rowFor(boundKey), combo->itemData(index).toString());
    });
    retranslate();
}

void SettingsForm::addText(const char *key, const char *label)
{
    if (!SettingKeys::isKnown(QLatin1String(key)))
        qWarning() << "Settings row for a key without a default:" << key;
    Row row;
    row.key = QLatin1String(key);
    row.label = label;
    row.labelWidget = new QLabel(this);
    row.edit = new P_LineEdit(this);
    row.edit->setObjectName(row.key);
    m_layout->addRow(row.labelWidget, row.edit);
    m_rows.append(row);
    P_LineEdit *edit = row.edit;
    const QString boundKey = row.key;
    connect(edit, &QLineEdit::textChanged, this, [this, edit, boundKey] {
        if (!m_loading)
            store(*rowFor(boundKey), edit->text());
    });
    retranslate();
}

void SettingsForm::addWidgetRow(const char *label, QWidget *field)
{
    auto *labelWidget = new QLabel(this);
    m_layout->addRow(labelWidget, field);
    m_extraLabels.append(qMakePair(labelWidget, label));
    retranslate();
}

void SettingsForm::store(const Row &row, const QString &value)
{
    ConsoleSettings settings;
    settings.setValue(row.key, value);
    settings.sync();
    emit valueChanged(row.key, value);
}

const SettingsForm::Row *SettingsForm::rowFor(const QString &key) const
{
    for (const Row &row : m_rows) {
        if (row.key == key)
            return &row;
    }
    return nullptr;
}

QStringList SettingsForm::keys() const
{
    QStringList keys;
    for (const Row &row : m_rows)
        keys << row.key;
    return keys;
}

QWidget *SettingsForm::field(const QString &key) const
{
    const Row *row = rowFor(key);
    if (!row)
        return nullptr;
    return row->combo ? static_cast<QWidget *>(row->combo) : row->edit;
}

QString SettingsForm::shownValue(const QString &key) const
{
    const Row *row = rowFor(key);
    if (!row)
        return QString();
    return row->combo ? row->combo->currentData().toString() : row->edit->text();
}

QString SettingsForm::labelText(const QString &key) const
{
    const Row *row = rowFor(key);
    return row ? row->labelWidget->text() : QString();
}

void SettingsForm::load()
{
    m_loading = true;
    for (const Row &row : qAsConst(m_rows)) {
        const QString stored = SettingKeys::value(row.key).toString();
        if (row.edit) {
            row.edit->setText(stored);
            continue;
        }
        int index = row.combo->findData(stored);
        // Booleans written by other parts may be stored as 1 or 0.
        if (index < 0 && (stored == QLatin1String("1") || stored == QLatin1String("0")))
            index = row.combo->findData(stored == QLatin1String("1") ? QStringLiteral("true") : QStringLiteral("false"));
        row.combo->setCurrentIndex(qMax(0, index));
    }
    m_loading = false;
}

void SettingsForm::retranslate()
{
    for (const Row &row : qAsConst(m_rows)) {
        row.labelWidget->setText(translated(row.label));
        if (!row.combo)
            continue;
        for (int i = 0; i < row.choices.size(); ++i) {
            const Choice &choice = row.choices.at(i);
            row.combo->setItemText(i, choice.label ? translated(choice.label) : choice.value);
        }
    }
    for (const auto &extra : qAsConst(m_extraLabels))
        extra.first->setText(translated(extra.second));
}

void SettingsForm::showEvent(QShowEvent *event)
{
    load();
    QWidget::showEvent(event);
}

void SettingsForm::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Up:
        focusNextPrevChild(false);
        return;
    case Qt::Key_Down:
        focusNextPrevChild(true);
        return;
    default:
        QWidget::keyPressEvent(event);
    }
}

void SettingsForm::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}
