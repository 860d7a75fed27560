#include "widgets/paramentrydialog.h"

#include "core/consolesettings.h"
#include "core/uikeys.h"
#include "widgets/hbilabel.h"
#include "widgets/hbilineedit.h"

#include <QCoreApplication>
#include <QGridLayout>
#include <QKeyEvent>
#include <QRegularExpression>
#include <QVBoxLayout>

namespace {

const QString kMandatoryMark = QStringLiteral("*");
constexpr int kSizeStep = 10;
constexpr int kFieldMinWidth = 260;

// Settings keys of the auto-filled fields, by survey mode.
QString modeKey(const QString &mode, const char *wincanKey, const char *ostraKey)
{
    if (mode == QLatin1String("WinCan"))
        return QLatin1String(wincanKey);
    if (mode == QLatin1String("Ostra"))
        return QLatin1String(ostraKey);
    return QString();
}

} // namespace

ParamEntryDialog::ParamEntryDialog(QWidget *parent, QObject *receiver, const char *slot, const QString &title,
                                   const QStringList &labels)
    : KeypadDialog(parent, title), mList(labels)
{
    mObsCode = QString(title).remove(QStringLiteral("* = Mandatory Field")).remove(QStringLiteral("Code: ")).trimmed();
    // The start node's dialog leaves the flag set for the water level's, which follows it.
    mStartFlag = ConsoleSettings().value(QStringLiteral("WinCanData/startFlag"), false).toBool();
    auto *grid = new QGridLayout;
    grid->setHorizontalSpacing(12);
    for (int i = 0; i < labels.size(); ++i) {
        QString text = labels.at(i).trimmed();
        auto *label = new hbiLabel(text, this);
        label->setObjectName(QStringLiteral("lbl") + QString::number(i));
        label->setWordWrap(false);
        auto *edit = new hbiLineEdit(autoFill(text), this);
        edit->setObjectName(QString::number(i));
        edit->setMinimumWidth(kFieldMinWidth);
        if (text.endsWith(kMandatoryMark)) {
            mMandatoryEntries << i;
            text.chop(1);
            label->setText(text.trimmed());
            QFont bold = label->font();
            bold.setBold(true);
            label->setFont(bold);
            edit->setMandatory(true);
        }
        connect(edit, &QLineEdit::textChanged, this, &ParamEntryDialog::textChanged);
        grid->addWidget(label, i, 0);
        grid->addWidget(edit, i, 1);
        mLabels << label;
        mLineEdits << edit;
    }
    contentLayout()->addLayout(grid);
    lbl_up_down = new hbiLabel(tr("Press Up/Down To Change Fields"), this, hbiLabel::kHint);
    lbl_esc = new hbiLabel(tr("Press ESC to Cancel"), this, hbiLabel::kHint);
    lbl_ok = new hbiLabel(QStringLiteral(" "), this, hbiLabel::kHint);
    for (QLabel *hint : {lbl_up_down, lbl_esc, lbl_ok}) {
        hint->setAlignment(Qt::AlignCenter);
        contentLayout()->addWidget(hint);
    }
    if (!mLineEdits.isEmpty()) {
        setFocusProxy(mLineEdits.first());
        mLineEdits.first()->setFocus();
    }
    QFont font = this->font();
    font.setPointSize(mPointSize);
    setFont(font);
    connectAnswer(SIGNAL(entered(QStringList)), receiver, slot);
    textChanged(QString());
}

QString ParamEntryDialog::okHint() const
{
    return lbl_ok->text();
}

void ParamEntryDialog::textChanged(QString)
{
    lbl_ok->setText(validate() ? tr("Press OK to Confirm") : QStringLiteral(" "));
}

QStringList ParamEntryDialog::texts() const
{
    QStringList result;
    for (const hbiLineEdit *edit : mLineEdits)
        result << edit->text();
    return result;
}

// Labels whose answer is words, not a number.
bool ParamEntryDialog::isFreeText(const QString &label)
{
    static const QStringList contained = {QStringLiteral("Node reference"), QStringLiteral("Node Reference"),
                                          QStringLiteral("Band")};
    static const QStringList starts = {QStringLiteral("Continuous"), QStringLiteral("Remarks"),
                                       QStringLiteral("Material"),   kMandatoryMark,
                                       QStringLiteral("Start Node"), QStringLiteral("Finish Node")};
    for (const QString &word : contained) {
        if (label.contains(word))
            return true;
    }
    for (const QString &word : starts) {
        if (label.startsWith(word))
            return true;
    }
    return false;
}

bool ParamEntryDialog::isValidNumber(const QString &label, const QString &text)
{
    static const QRegularExpression digits(QStringLiteral("^\\d*$"));
    if (!digits.match(text).hasMatch())
        return false;
    const int value = text.toInt();
    if (label.contains(QLatin1String("o'clock")))
        return value >= 1 && value <= 12;
    if (label.contains(QLatin1Char('%')))
        return value >= 0 && value <= 100;
    return true;
}

bool ParamEntryDialog::validate() const
{
    for (int i = 0; i < mLineEdits.size(); ++i) {
        if (!mMandatoryEntries.contains(i))
            continue;
        const QString text = mLineEdits.at(i)->text();
        if (text.isEmpty())
            return false;
        const QString label = mLabels.at(i)->text();
        if (!isFreeText(label) && !isValidNumber(label, text))
            return false;
    }
    return true;
}

QString ParamEntryDialog::autoFill(const QString &label)
{
    ConsoleSettings settings;
    const QString mode = settings.value(QStringLiteral("General/survey_mode")).toString();
    QString key;
    if (label.startsWith(QLatin1String("Node")) || label.startsWith(QLatin1String("Start"))
        || label.startsWith(QLatin1String("Finish"))) {
        if (mObsCode.endsWith(QLatin1Char('F')) && mObsCode.size() >= 3) {
            key = modeKey(mode, "WinCanData/PCDEndNode", "SurveyData/End");
        } else {
            mStartFlag = true;
            settings.setValue(QStringLiteral("WinCanData/startFlag"), true);
            key = modeKey(mode, "WinCanData/PCDStartNode", "SurveyData/Start");
        }
    } else if (mStartFlag && label.startsWith(QLatin1String("Remarks"))) {
        key = modeKey(mode, "WinCanData/startRemarks", "SurveyData/startRemarks");
    } else if (mStartFlag && label.startsWith(QLatin1String("Water"))) {
        mStartFlag = false;
        settings.setValue(QStringLiteral("WinCanData/startFlag"), false);
        key = modeKey(mode, "WinCanData/waterLevel", "SurveyData/waterLevel");
    }
    return key.isEmpty() ? QString() : settings.value(key).toString();
}

bool ParamEntryDialog::isActionKey(int key) const
{
    return key == Ui::Key_Size || KeypadDialog::isActionKey(key);
}

void ParamEntryDialog::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Up:
        moveFocus(-1);
        event->accept();
        return;
    case Qt::Key_Down:
        moveFocus(1);
        event->accept();
        return;
    default:
        // Keys without a use here, the mode key among them, reach the screen behind.
        KeypadDialog::keyPressEvent(event);
    }
}

void ParamEntryDialog::moveFocus(int step)
{
    if (mLineEdits.isEmpty())
        return;
    const int count = mLineEdits.size();
    lineEditIdx = (lineEditIdx + step + count) % count;
    mLineEdits.at(lineEditIdx)->setFocus();
}

void ParamEntryDialog::actOnKey(int key)
{
    if (key == Ui::Key_Size) {
        updateSize();
        return;
    }
    if (!validate())
        return;
    const QStringList answer = key == Qt::Key_Escape ? QStringList() : texts();
    if (finish(key == Qt::Key_Escape ? Rejected : Accepted))
        emit entered(answer);
}

// Closed from outside: the observation is still filed, as by Escape.
void ParamEntryDialog::answerClosed()
{
    emit entered(QStringList());
}

void ParamEntryDialog::incrementSize()
{
    switch (mTextSize) {
    case kDialogTextSmall:
        mTextSize = kDialogTextMedium;
        mPointSize += kSizeStep;
        break;
    case kDialogTextMedium:
        mTextSize = kDialogTextLarge;
        mPointSize += kSizeStep;
        break;
    case kDialogTextLarge:
        mTextSize = kDialogTextSmall;
        mPointSize -= 2 * kSizeStep;
        break;
    }
}

void ParamEntryDialog::updateSize()
{
    incrementSize();
    QFont font = this->font();
    font.setPointSize(mPointSize);
    setFont(font);
    for (QWidget *widget : findChildren<QWidget *>()) {
        QFont own = widget->font();
        own.setPointSize(mPointSize);
        widget->setFont(own);
    }
    adjustSize();
    if (QWidget *owner = parentWidget())
        move((owner->width() - 80 - width()) / 2, (owner->height() - height()) / 2);
}
