#pragma once

#include <QLineEdit>

// The entry field of the keypad dialogs. A mandatory field shows red while it is
// empty, so the operator sees why OK is refused before pressing it.
class hbiLineEdit : public QLineEdit
{
    Q_OBJECT
    Q_PROPERTY(bool missing READ isMissing)
public:
    explicit hbiLineEdit(QWidget *parent = nullptr);
    explicit hbiLineEdit(const QString &text, QWidget *parent = nullptr);

    void setMandatory(bool mandatory);
    bool isMandatory() const { return m_mandatory; }
    // Mandatory and still blank (blanks alone do not count as an entry).
    bool isMissing() const;

private:
    void updateMissing();

    bool m_mandatory = false;
    bool m_shownMissing = false;
};
