#include "survey/forms/baseinfo.h"

#include "core/consolesettings.h"
#include "core/uikeys.h"
#include "survey/corvane/corvanecontroller.h"
#include "survey/surveydata.h"
#include "survey/surveymanager.h"
#include "survey/wincan/wincancontroller.h"
#include "widgets/graphics.h"
#include "widgets/hbilabel.h"
#include "widgets/hbimessagebox.h"
#include "widgets/p_combobox.h"
#include "widgets/p_lineedit.h"
#include "widgets/wrappingrowdelegate.h"

#include <QAbstractItemView>
#include <QDateTime>
#include <QDebug>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QListView>
#include <QPushButton>
#include <QVBoxLayout>

namespace {
const QString kTimeTag = QStringLiteral("Time");
const QString kDateTag = QStringLiteral("Date");
const QSize kKeyPictureSize(64, 40);
constexpr int kComboMinimumCharacters = 12;
// The console's screen; an open list never reaches past it.
constexpr int kScreenWidth = 800;
// A row's padding on both sides, the list's frame and its scroll bar.
constexpr int kRowPaddingFrameAndScrollBar = 2 * 13 + 2 * 3 + 22;
} // namespace

BaseInfo::BaseInfo(QWidget *parent) : PipeScreen(parent) {}

void BaseInfo::initialise()
{
    connect(this, &BaseInfo::send, surveyData(), &SurveyData::set, Qt::UniqueConnection);
}

SurveyData *BaseInfo::surveyData() const
{
    if (m_winCanData)
        return WinCanController::instance()->surveyData();
    return SurveyManager::instance()->getSurveyData();
}

int BaseInfo::readClockMode()
{
    return ConsoleSettings().value(QStringLiteral("Clock_mode"), 0).toInt();
}

QString BaseInfo::clockText(int mode)
{
    return QTime::currentTime().toString(mode == 0 ? QStringLiteral("hh:mm") : QStringLiteral("hh:mm AP"));
}

QString BaseInfo::formatDate(const char *format)
{
    return QDate::currentDate().toString(QString::fromLatin1(format));
}

QString BaseInfo::dateOrToday(QString text)
{
    static const QString kDateFormat = QStringLiteral("yyyy-MM-dd");
    for (const QChar separator : {QLatin1Char(':'), QLatin1Char('.'), QLatin1Char('\\'), QLatin1Char('/')})
        text.replace(separator, QLatin1Char('-'));
    if (QDate::fromString(text, kDateFormat).isValid())
        return text;
    return QDate::currentDate().toString(kDateFormat);
}

QString BaseInfo::timeOrNow(const QString &text, int mode)
{
    const QString format = mode == 0 ? QStringLiteral("hh:mm") : QStringLiteral("hh:mm AP");
    return QTime::fromString(text, format).isValid() ? text : clockText(mode);
}

QString BaseInfo::completeDecimal(QString text)
{
    if (text.startsWith(QLatin1Char('.')))
        text.prepend(QLatin1Char('0'));
    if (text.endsWith(QLatin1Char('.')))
        text.append(QLatin1Char('0'));
    return text;
}

void BaseInfo::showEvent(QShowEvent *event)
{
    PipeScreen::showEvent(event);
    clockmode = readClockMode();
    fillFromSurveyData();
}

void BaseInfo::fillFromSurveyData()
{
    SurveyData *data = surveyData();
    for (P_LineEdit *edit : findChildren<P_LineEdit *>()) {
        const QString tag = edit->tag();
        if (tag == kTimeTag)
            edit->setText(clockText(clockmode));
        else if (tag == kDateTag)
            edit->setText(formatDate("dd/MM/yyyy"));
        else if (!tag.isEmpty())
            setFieldText(edit, data->get(tag));
    }
    for (P_ComboBox *box : findChildren<P_ComboBox *>()) {
        if (box->tag().isEmpty())
            continue;
        box->setCurrentIndex(qMax(0, box->findText(data->get(box->tag()), Qt::MatchExactly)));
    }
}

void BaseInfo::saveFields()
{
    for (P_LineEdit *edit : findChildren<P_LineEdit *>()) {
        if (!edit->tag().isEmpty())
            emit send(edit->tag(), edit->text());
    }
    for (P_ComboBox *box : findChildren<P_ComboBox *>()) {
        if (!box->tag().isEmpty())
            emit send(box->tag(), box->currentText());
    }
}

void BaseInfo::keyReleaseEvent(QKeyEvent *event)
{
    if (event->isAutoRepeat()) {
        event->accept();
        return;
    }
    switch (event->key()) {
    case Qt::Key_Escape:
        escapeKeyTrapped();
        break;
    case Qt::Key_Enter:
        okKeyTrapped();
        break;
    case Qt::Key_Up:
        focusPreviousChild();
        break;
    case Qt::Key_Down:
        focusNextChild();
        break;
    case Qt::Key_PageUp:
        previousInfo();
        break;
    case Qt::Key_PageDown:
        nextInfo();
        break;
    case Ui::Key_Survey:
        corvaneKeyTrapped();
        break;
    case Ui::Key_WinCan:
        wincanKeyTrapped();
        break;
    default:
        PipeScreen::keyReleaseEvent(event);
        return;
    }
    event->accept();
}

void BaseInfo::okKeyTrapped()
{
    saveFields();
    emit selectVideoScreen();
}

void BaseInfo::nextInfo() {}

void BaseInfo::previousInfo() {}

void BaseInfo::corvaneKeyTrapped() {}

void BaseInfo::wincanKeyTrapped() {}

void BaseInfo::escapeKeyTrapped()
{
    emit selectVideoScreen();
}

QVBoxLayout *BaseInfo::buildFrame(const QString &title, const QString &keyPicture, const QString &keyHint)
{
    auto *page = new QVBoxLayout(this);
    page->setContentsMargins(16, 8, 16, 8);
    page->setSpacing(6);
    auto *heading = new hbiLabel(title, this, hbiLabel::kTitle);
    heading->setAlignment(Qt::AlignCenter);
    page->addWidget(heading);

    auto *body = new QVBoxLayout;
    body->setSpacing(6);
    page->addLayout(body, 1);

    page->addLayout(keyHintRow(this, keyPicture, keyHint));
    return body;
}

QHBoxLayout *BaseInfo::keyHintRow(QWidget *page, const QString &keyPicture, const QString &keyHint)
{
    auto *foot = new QHBoxLayout;
    foot->addStretch();
    foot->addWidget(new hbiLabel(tr("Press the"), page));
    auto *key = new QLabel(page);
    key->setPixmap(graphicsPixmap(keyPicture, kKeyPictureSize));
    foot->addWidget(key);
    foot->addWidget(new hbiLabel(keyHint, page));
    foot->addStretch();
    return foot;
}

QFormLayout *BaseInfo::addColumn(QBoxLayout *into, int stretch)
{
    auto *column = new QFormLayout;
    column->setLabelAlignment(Qt::AlignRight | Qt::AlignVCenter);
    column->setFieldGrowthPolicy(QFormLayout::AllNonFixedFieldsGrow);
    column->setVerticalSpacing(6);
    into->addLayout(column, stretch);
    return column;
}

QLabel *BaseInfo::fieldLabel(const QString &text, QWidget *field)
{
    auto *label = new hbiLabel(text, this);
    // A name that has to go on two lines stays against its field.
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setBuddy(field);
    return label;
}

P_LineEdit *BaseInfo::addLineEdit(QFormLayout *column, const QString &label, const QString &tag)
{
    auto *edit = new P_LineEdit(this);
    edit->setTag(tag);
    column->addRow(fieldLabel(label, edit), edit);
    return edit;
}

P_ComboBox *BaseInfo::addComboBox(QFormLayout *column, const QString &label, const QString &tag,
                                  const QStringList &rows)
{
    auto *box = new P_ComboBox(this);
    box->setTag(tag);
    // The closed box shows as much of its row as its column has room for; it must
    // not take the room of the fields beside it.
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(kComboMinimumCharacters);
    setRows(box, rows);
    column->addRow(fieldLabel(label, box), box);
    return box;
}

void BaseInfo::connectSurveyKeys()
{
    for (P_ComboBox *box : findChildren<P_ComboBox *>()) {
        connect(box, &P_ComboBox::corvaneKeyRelease, this, &BaseInfo::corvaneKeyTrapped, Qt::UniqueConnection);
        connect(box, &P_ComboBox::wincanKeyRelease, this, &BaseInfo::wincanKeyTrapped, Qt::UniqueConnection);
        connect(box, &P_ComboBox::escKeyRelease, this, &BaseInfo::escapeKeyTrapped, Qt::UniqueConnection);
        connect(box, &P_ComboBox::pageUpRelease, this, &BaseInfo::previousInfo, Qt::UniqueConnection);
        connect(box, &P_ComboBox::pageDownRelease, this, &BaseInfo::nextInfo, Qt::UniqueConnection);
    }
}

bool BaseInfo::confirmSave(const QString &title, const QString &question)
{
    HBIMessageBox box(this);
    box.setText(title);
    box.setInformativeText(question);
    QPushButton *yes = box.addButton(tr("Yes"), QMessageBox::YesRole);
    QPushButton *no = box.addButton(tr("No"), QMessageBox::NoRole);
    box.setDefaultButton(yes);
    box.setEscapeButton(no);
    box.exec();
    return box.clickedButton() == yes;
}

void BaseInfo::saveProjectAndContinue()
{
    okKeyTrapped();
    CorvaneController::instance()->setProjectPath();
}

void BaseInfo::abandonProject()
{
    CorvaneController *ostra = CorvaneController::instance();
    ostra->setEnabled(false);
    ostra->cvStopped();
    emit selectVideoScreen();
}

void BaseInfo::closeSection()
{
    CorvaneController::instance()->setSectionOpen(false);
    emit selectVideoScreen();
}

void BaseInfo::saveSectionAndContinue()
{
    okKeyTrapped();
    CorvaneController::instance()->editSectionDatabase();
}

void BaseInfo::saveWinCanProjectAndContinue()
{
    okKeyTrapped();
    WinCanController::instance()->setProjectPath();
}

void BaseInfo::abandonWinCanProject()
{
    WinCanController *wincan = WinCanController::instance();
    wincan->setEnabled(false);
    wincan->setSectionOpen(false);
    wincan->wcStopped();
    emit selectVideoScreen();
}

void BaseInfo::closeWinCanSection()
{
    WinCanController::instance()->setSectionOpen(false);
    emit selectVideoScreen();
}

void BaseInfo::openWinCanSection()
{
    okKeyTrapped();
    WinCanController::instance()->setSectionOpen(true);
}

void BaseInfo::setRows(P_ComboBox *box, const QStringList &rows)
{
    box->clear();
    box->addItems(rows);
    // Long rows must be read whole in the open list even where the closed box is
    // narrow; a row wider than the screen goes on two lines.
    auto *list = qobject_cast<QListView *>(box->view());
    int widest = 0;
    for (const QString &row : rows)
        widest = qMax(widest, box->fontMetrics().horizontalAdvance(row));
    const int wanted = widest + kRowPaddingFrameAndScrollBar;
    if (wanted > kScreenWidth && list && !qobject_cast<WrappingRowDelegate *>(box->itemDelegate())) {
        list->setWordWrap(true);
        list->setUniformItemSizes(false);
        box->setItemDelegate(new WrappingRowDelegate(list));
    }
    box->view()->setMinimumWidth(qMin(wanted, kScreenWidth));
}

void BaseInfo::validateDateField(P_LineEdit *date)
{
    date->setText(dateOrToday(date->text()));
}

void BaseInfo::completeDecimals(const QList<P_LineEdit *> &fields)
{
    for (P_LineEdit *field : fields)
        setFieldText(field, completeDecimal(field->text()));
}

// A masked decimal fills its digits from the left, so "1.5" would show as
// "1    .5"; blanks in front keep the number against its point.
void BaseInfo::setFieldText(P_LineEdit *field, const QString &text)
{
    const int maskPoint = field->inputMask().indexOf(QLatin1Char('.'));
    const int point = text.indexOf(QLatin1Char('.'));
    if (maskPoint > 0 && point >= 0 && point < maskPoint)
        field->setText(QString(maskPoint - point, QLatin1Char(' ')) + text);
    else
        field->setText(text);
}

QLabel *BaseInfo::labelOf(QWidget *field) const
{
    for (QLabel *label : findChildren<QLabel *>()) {
        if (label->buddy() == field)
            return label;
    }
    return nullptr;
}

void BaseInfo::maskRunFields(P_LineEdit *date, P_LineEdit *time, P_LineEdit *size)
{
    date->setInputMask(QStringLiteral("0000-00-00; "));
    time->setInputMask(QStringLiteral("00:00; "));
    size->setInputMask(QStringLiteral("99999999; "));
}

void BaseInfo::stampRunFields(P_LineEdit *date, P_LineEdit *time, P_LineEdit *size, const QString &inchLabel)
{
    clockmode = readClockMode();
    date->setText(formatDate("yyyy-MM-dd"));
    time->setText(clockText(clockmode));
    const bool imperial = ConsoleSettings().value(QStringLiteral("Coiler/Imperial"), false).toBool();
    if (QLabel *label = labelOf(size))
        label->setText(imperial ? inchLabel : tr("Size (mm)"));
}
