#pragma once

#include "widgets/pipescreen.h"

#include <QString>
#include <QStringList>

class P_ComboBox;
class P_LineEdit;
class QFormLayout;
class QBoxLayout;
class QHBoxLayout;
class QLabel;
class QVBoxLayout;
class QKeyEvent;
class QShowEvent;
class SurveyData;

// A full-screen form of survey facts. Every field tagged with a survey-data key
// shows that key's value when the form is shown and is stored under it when the
// form is saved. The keypad drives it: Up and Down move between fields, the mode
// keys save, Escape leaves, the page keys turn the pages of a two-page form.
class BaseInfo : public PipeScreen
{
    Q_OBJECT
public:
    explicit BaseInfo(QWidget *parent = nullptr);

    // The survey data of the current mode takes what the form sends.
    void initialise() override;

    // The time as the clock setting shows it: "hh:mm", or "hh:mm AP" in 12-hour mode.
    static QString clockText(int mode);
    static QString formatDate(const char *format);
    // The foot of a page: "Press the", the picture of the key, and what the keys do.
    static QHBoxLayout *keyHintRow(QWidget *page, const QString &keyPicture, const QString &keyHint);

    // What the WinCan forms make of typed dates, times and decimals before they
    // are stored. A date written with ":", ".", "\" or "/" between its parts is
    // read as "yyyy-MM-dd"; one that still does not parse is today.
    static QString dateOrToday(QString text);
    // A time that does not parse by the clock setting is the time now.
    static QString timeOrNow(const QString &text, int mode);
    // "12." is "12.0" and ".5" is "0.5": the exchange file wants a digit each side of the point.
    static QString completeDecimal(QString text);

public slots:
    // Saves without asking and returns to the live picture.
    virtual void okKeyTrapped();
    virtual void nextInfo();
    virtual void previousInfo();
    virtual void corvaneKeyTrapped();
    virtual void wincanKeyTrapped();
    // Returns to the live picture without saving.
    virtual void escapeKeyTrapped();
    void saveFields();

signals:
    void send(QString tag, QString value);
    // The form is done with: the screen controller goes back to the live picture.
    void selectVideoScreen();
    // The WinCan section's two pages turn to each other.
    void selectWCSectionInfoScreen();
    void selectWCSectionInfoScreen2();

protected:
    void showEvent(QShowEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;

    // The frame every form shares: the title over the fields, the keys under them.
    // The returned body takes columns of labelled fields, or rows of columns.
    QVBoxLayout *buildFrame(const QString &title, const QString &keyPicture, const QString &keyHint);
    QFormLayout *addColumn(QBoxLayout *into, int stretch = 1);
    P_LineEdit *addLineEdit(QFormLayout *column, const QString &label, const QString &tag);
    P_ComboBox *addComboBox(QFormLayout *column, const QString &label, const QString &tag,
                            const QStringList &rows);
    // An open list takes every key, so it hands the form's own keys back as signals.
    void connectSurveyKeys();

    // The black-on-yellow question before a form is saved; true on "Yes".
    bool confirmSave(const QString &title, const QString &question);
    // The WinCan forms are shown before the WinCan survey is the current one
    // (a new project's form comes first), so they name their store themselves.
    void keepWinCanData() { m_winCanData = true; }
    SurveyData *surveyData() const;
    static int readClockMode();

    // Rows of a list that changes with the coding specification; the row shown
    // is taken again from the survey data by the next fillFromSurveyData().
    static void setRows(P_ComboBox *box, const QStringList &rows);
    // Shows every tagged field's stored value, a list's row 0 when none matches.
    void fillFromSurveyData();
    void validateDateField(P_LineEdit *date);
    void completeDecimals(const QList<P_LineEdit *> &fields);
    static void setFieldText(P_LineEdit *field, const QString &text);

    // The section forms' date, time and size fields: masks that keep the keypad's
    // input in shape, and on every showing today's date, the time by the clock
    // setting and the size's unit by the counter's units.
    static void maskRunFields(P_LineEdit *date, P_LineEdit *time, P_LineEdit *size);
    // The size's label names the unit: the metric one, or inchLabel.
    void stampRunFields(P_LineEdit *date, P_LineEdit *time, P_LineEdit *size, const QString &inchLabel);
    QLabel *labelOf(QWidget *field) const;
    QLabel *fieldLabel(const QString &text, QWidget *field);

    // The Corvane flow's steps after a project or section form.
    void saveProjectAndContinue();
    void abandonProject();
    void closeSection();
    void saveSectionAndContinue();

    // The WinCan flow's steps after a project or section form.
    void saveWinCanProjectAndContinue();
    void abandonWinCanProject();
    void closeWinCanSection();
    void openWinCanSection();

    // The clock setting read when the form was last shown.
    int clockmode = 0;

private:
    bool m_winCanData = false;
};
