#pragma once

#include "widgets/keypaddialog.h"

#include <QList>
#include <QStringList>

class hbiLabel;
class hbiLineEdit;
class QLabel;

// The parameters of one observation, one labelled field each. A label ending in
// "*" is a mandatory field (shown bold, without the star). OK (Return or Enter)
// answers all texts in order; Escape answers an empty list, which files the
// observation without parameters. Both are refused while validate() fails, so a
// mandatory field can never be skipped. Up and Down move between the fields,
// wrapping round; the Size key steps the text through three sizes.
//
// Fields of the node and water-level questions are filled in beforehand from
// what the section form or the last start node gave.
class ParamEntryDialog : public KeypadDialog
{
    Q_OBJECT
public:
    enum kDialogText_t { kDialogTextSmall = 0, kDialogTextMedium = 1, kDialogTextLarge = 2 };
    Q_ENUM(kDialogText_t)
    static constexpr int kSmallPointSize = 24;

    // The answer goes to receiver's slot, written SLOT(name(QStringList)).
    ParamEntryDialog(QWidget *parent, QObject *receiver, const char *slot, const QString &title,
                     const QStringList &labels);

    bool validate() const;
    QStringList texts() const;
    bool isMandatory(int index) const { return mMandatoryEntries.contains(index); }
    // "Press OK to Confirm" while every mandatory field is valid, else blank.
    QString okHint() const;
    int pointSize() const { return mPointSize; }
    kDialogText_t textSize() const { return mTextSize; }
    QString obsCode() const { return mObsCode; }

signals:
    void entered(QStringList values);

public slots:
    void textChanged(QString text);

protected:
    bool isActionKey(int key) const override;
    void actOnKey(int key) override;
    void answerClosed() override;
    void keyPressEvent(QKeyEvent *event) override;

private:
    QString autoFill(const QString &label);
    static bool isFreeText(const QString &label);
    static bool isValidNumber(const QString &label, const QString &text);
    void moveFocus(int step);
    void updateSize();
    void incrementSize();

    QList<hbiLineEdit *> mLineEdits;
    QList<hbiLabel *> mLabels;
    QList<int> mMandatoryEntries;
    QStringList mList;
    QLabel *lbl_up_down = nullptr;
    QLabel *lbl_esc = nullptr;
    QLabel *lbl_ok = nullptr;
    QString mObsCode;
    bool mStartFlag = false;
    int lineEditIdx = 0;
    kDialogText_t mTextSize = kDialogTextSmall;
    int mPointSize = kSmallPointSize;
};
