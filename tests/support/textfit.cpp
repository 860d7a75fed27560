#include "support/textfit.h"

#include "widgets/p_combobox.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>
#include <QRadioButton>
#include <QRegularExpression>
#include <QStyleOptionButton>
#include <QStyleOptionComboBox>
#include <QTabBar>
#include <QTextDocument>

namespace TextFit {
namespace {

// Anti-aliasing and rounding may put a text a pixel over its room.
constexpr int kSlack = 2;

QString plain(const QString &text)
{
    QString shown = text;
    shown.remove(QRegularExpression(QStringLiteral("&(?!&)")));
    return shown;
}

// The width of the widest line of a text as the widget's font draws it.
int textWidth(const QWidget *widget, const QString &text)
{
    int widest = 0;
    for (const QString &line : plain(text).split(QLatin1Char('\n')))
        widest = qMax(widest, widget->fontMetrics().horizontalAdvance(line));
    return widest;
}

QString describe(const QWidget *widget, const QString &text, int needed, int room)
{
    return QStringLiteral("%1 \"%2\" needs %3 px, has %4")
        .arg(QLatin1String(widget->metaObject()->className()), text.left(60))
        .arg(needed)
        .arg(room);
}

void checkLabel(QLabel *label, QStringList &clipped)
{
    if (label->text().isEmpty() || label->pixmap() || label->movie())
        return;
    if (label->wordWrap()) {
        const int needed = label->heightForWidth(label->width());
        if (needed > label->height() + kSlack)
            clipped << describe(label, label->text(), needed, label->height()) + QStringLiteral(" (height)");
        // A word is never broken: one wider than the label runs out of it.
        const QMargins margins = label->contentsMargins();
        const int room = label->width() - margins.left() - margins.right() - 2 * label->margin();
        for (const QString &word : plain(label->text()).split(QRegularExpression(QStringLiteral("\\s+")), Qt::SkipEmptyParts)) {
            if (!Qt::mightBeRichText(label->text()) && textWidth(label, word) > room + kSlack)
                clipped << describe(label, word, textWidth(label, word), room) + QStringLiteral(" (word)");
        }
        return;
    }
    int needed = label->sizeHint().width();
    if (Qt::mightBeRichText(label->text()) && label->textFormat() != Qt::PlainText) {
        QTextDocument document;
        document.setDefaultFont(label->font());
        document.setHtml(label->text());
        document.setDocumentMargin(0);
        needed = int(document.idealWidth()) + 2 * label->margin() + label->contentsMargins().left()
            + label->contentsMargins().right();
    }
    if (needed > label->width() + kSlack)
        clipped << describe(label, label->text(), needed, label->width());
}

void checkButton(QAbstractButton *button, QStringList &clipped)
{
    if (button->text().isEmpty())
        return;
    QStyleOptionButton option;
    option.initFrom(button);
    option.text = button->text();
    option.icon = button->icon();
    option.iconSize = button->iconSize();
    QStyle::SubElement contents = QStyle::SE_PushButtonContents;
    if (qobject_cast<QCheckBox *>(button))
        contents = QStyle::SE_CheckBoxContents;
    else if (qobject_cast<QRadioButton *>(button))
        contents = QStyle::SE_RadioButtonContents;
    const int room = button->style()->subElementRect(contents, &option, button).width();
    int needed = textWidth(button, button->text());
    if (!button->icon().isNull())
        needed += button->iconSize().width() + 4;
    if (needed > room + kSlack)
        clipped << describe(button, button->text(), needed, room);
}

void checkCombo(QComboBox *combo, QStringList &clipped)
{
    QStyleOptionComboBox option;
    option.initFrom(combo);
    option.editable = combo->isEditable();
    option.frame = combo->hasFrame();
    option.subControls = QStyle::SC_All;
    const QRect room =
        combo->style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, combo);
    // The console's own boxes put a long row on a second line.
    const bool wraps = qobject_cast<P_ComboBox *>(combo);
    for (int item = 0; item < combo->count(); ++item) {
        const QString text = combo->itemText(item);
        if (wraps) {
            const int needed = combo->fontMetrics()
                                   .boundingRect(QRect(0, 0, room.width(), 1000), Qt::TextWordWrap, text)
                                   .height();
            if (needed > room.height() + kSlack)
                clipped << describe(combo, text, needed, room.height()) + QStringLiteral(" (height)");
            continue;
        }
        const int needed = textWidth(combo, text);
        if (needed > room.width() + kSlack)
            clipped << describe(combo, text, needed, room.width());
    }
}

void checkLineEdit(QLineEdit *edit, QStringList &clipped)
{
    const QString text = edit->text().isEmpty() ? edit->placeholderText() : edit->displayText();
    if (text.isEmpty())
        return;
    const int frame = edit->hasFrame() ? edit->style()->pixelMetric(QStyle::PM_DefaultFrameWidth, nullptr, edit) : 0;
    const QMargins margins = edit->textMargins() + edit->contentsMargins();
    // Qt keeps two pixels each side of the text inside the frame.
    const int room = edit->width() - 2 * frame - margins.left() - margins.right() - 4;
    const int needed = textWidth(edit, text);
    if (needed > room + kSlack)
        clipped << describe(edit, text, needed, room);
}

void checkTabs(QTabBar *tabs, QStringList &clipped)
{
    const int space = tabs->style()->pixelMetric(QStyle::PM_TabBarTabHSpace, nullptr, tabs);
    for (int tab = 0; tab < tabs->count(); ++tab) {
        const int needed = textWidth(tabs, tabs->tabText(tab)) + space / 2;
        const QRect rect = tabs->tabRect(tab);
        if (needed > rect.width() + kSlack)
            clipped << describe(tabs, tabs->tabText(tab), needed, rect.width());
        else if (!tabs->rect().contains(rect))
            clipped << QStringLiteral("tab \"%1\" runs off its bar").arg(tabs->tabText(tab));
    }
}

void checkList(QListWidget *list, QStringList &clipped)
{
    const int room = list->viewport()->width();
    for (int row = 0; row < list->count(); ++row) {
        QListWidgetItem *item = list->item(row);
        const int needed = textWidth(list, item->text()) + 2 * list->style()->pixelMetric(QStyle::PM_FocusFrameHMargin)
            + (item->icon().isNull() ? 0 : list->iconSize().width() + 4);
        if (!list->wordWrap() && needed > room + kSlack)
            clipped << describe(list, item->text(), needed, room);
    }
}

bool shown(QWidget *widget)
{
    return widget->isVisible() && widget->width() > 0 && widget->height() > 0;
}

} // namespace

QStringList clippedTexts(QWidget *root)
{
    QStringList clipped;
    QList<QWidget *> widgets = root->findChildren<QWidget *>();
    widgets.prepend(root);
    const QRect window = QRect(QPoint(), root->window()->size());
    for (QWidget *widget : widgets) {
        if (!shown(widget))
            continue;
        const bool holdsText = qobject_cast<QLabel *>(widget) || qobject_cast<QAbstractButton *>(widget)
            || qobject_cast<QComboBox *>(widget) || qobject_cast<QLineEdit *>(widget);
        if (holdsText && !window.contains(QRect(widget->mapTo(widget->window(), QPoint()), widget->size()))) {
            clipped << QStringLiteral("%1 \"%2\" runs off its window")
                           .arg(QLatin1String(widget->metaObject()->className()), widget->objectName());
            continue;
        }
        if (auto *label = qobject_cast<QLabel *>(widget))
            checkLabel(label, clipped);
        else if (auto *button = qobject_cast<QAbstractButton *>(widget))
            checkButton(button, clipped);
        else if (auto *combo = qobject_cast<QComboBox *>(widget))
            checkCombo(combo, clipped);
        else if (auto *edit = qobject_cast<QLineEdit *>(widget))
            checkLineEdit(edit, clipped);
        else if (auto *tabs = qobject_cast<QTabBar *>(widget))
            checkTabs(tabs, clipped);
        else if (auto *list = qobject_cast<QListWidget *>(widget))
            checkList(list, clipped);
    }
    return clipped;
}

QImage screenImage(QWidget *window)
{
    QImage image = window->grab().toImage().convertToFormat(QImage::Format_RGB32);
    QPainter painter(&image);
    for (QWidget *top : QApplication::topLevelWidgets()) {
        if (top == window || !top->isVisible() || !top->isWindow() || !(top->windowType() & Qt::Dialog))
            continue;
        painter.drawPixmap(top->mapToGlobal(QPoint()) - window->mapToGlobal(QPoint()), top->grab());
    }
    return image;
}

QRect focusArea(QWidget *focused, QWidget *window)
{
    return QRect(focused->mapTo(window, QPoint()), focused->size()).marginsAdded(QMargins(3, 3, 3, 3));
}

int differingPixels(const QImage &one, const QImage &other, const QRect &area)
{
    int count = 0;
    const QRect inside = area.intersected(one.rect()).intersected(other.rect());
    for (int y = inside.top(); y <= inside.bottom(); ++y) {
        for (int x = inside.left(); x <= inside.right(); ++x) {
            const QRgb a = one.pixel(x, y);
            const QRgb b = other.pixel(x, y);
            if (qAbs(qRed(a) - qRed(b)) + qAbs(qGreen(a) - qGreen(b)) + qAbs(qBlue(a) - qBlue(b)) > 60)
                ++count;
        }
    }
    return count;
}

} // namespace TextFit
