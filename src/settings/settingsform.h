#pragma once

#include <QVector>
#include <QWidget>

class QFormLayout;
class QLabel;
class P_ComboBox;
class P_LineEdit;

// A settings tab's rows, each bound to one settings key: a choice the keypad
// steps through with Left and Right, or a line of text. Up and Down move between
// rows; a change is stored at once. Labels and choices are translated texts of
// the "SettingsForm" context, so the tab follows a change of language.
class SettingsForm : public QWidget
{
    Q_OBJECT
public:
    struct Choice {
        const char *label;   // QT_TRANSLATE_NOOP("SettingsForm", ...), or a number
        QString value;       // as stored
    };

    explicit SettingsForm(QWidget *parent = nullptr);

    void addToggle(const char *key, const char *label);
    // The first choice stands for a stored value that matches none.
    void addChoices(const char *key, const char *label, const QVector<Choice> &choices);
    void addRange(const char *key, const char *label, int from, int to, int step);
    void addText(const char *key, const char *label);
    // A row of the tab's own, not bound to a key.
    void addWidgetRow(const char *label, QWidget *field);

    QStringList keys() const;
    // The field bound to a key (a P_ComboBox or P_LineEdit), or null.
    QWidget *field(const QString &key) const;
    QString shownValue(const QString &key) const;
    QString labelText(const QString &key) const;

    // Shows what the settings file holds now.
    void load();

signals:
    void valueChanged(const QString &key, const QString &value);

protected:
    void showEvent(QShowEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    struct Row {
        QString key;
        const char *label = nullptr;
        QLabel *labelWidget = nullptr;
        P_ComboBox *combo = nullptr;
        P_LineEdit *edit = nullptr;
        QVector<Choice> choices;
    };

    void addComboRow(const char *key, const char *label, const QVector<Choice> &choices);
    void store(const Row &row, const QString &value);
    const Row *rowFor(const QString &key) const;
    void retranslate();
    static QString translated(const char *text);

    QFormLayout *m_layout = nullptr;
    QVector<Row> m_rows;
    QVector<QPair<QLabel *, const char *>> m_extraLabels;
    bool m_loading = false;
};
