#include "widgets/p_combobox.h"

#include "core/uikeys.h"
#include "widgets/widgettag.h"

#include <QAbstractItemView>
#include <QKeyEvent>
#include <QStyleOptionComboBox>
#include <QStylePainter>

namespace {
constexpr Qt::Alignment kTextAlignment = Qt::AlignLeft | Qt::AlignVCenter;
constexpr int kMostLines = 3;
} // namespace

P_ComboBox::P_ComboBox(QWidget *parent)
    : QComboBox(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    view()->installEventFilter(this);
    QSizePolicy policy = sizePolicy();
    // The height follows the width: one line, or two for rows too long for one.
    policy.setVerticalPolicy(QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
}

QRect P_ComboBox::textRoom(int width) const
{
    QStyleOptionComboBox option;
    initStyleOption(&option);
    option.rect = QRect(0, 0, width, qMax(height(), sizeHint().height()));
    return style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
}

int P_ComboBox::linesFor(int width) const
{
    const int room = textRoom(width).width();
    int lines = 1;
    for (int row = 0; row < count() && lines < kMostLines; ++row) {
        const QRect needed = fontMetrics().boundingRect(QRect(0, 0, room, 1000), Qt::TextWordWrap, itemText(row));
        lines = qMax(lines, needed.height() / qMax(1, fontMetrics().lineSpacing()));
    }
    return qMin(lines, kMostLines);
}

int P_ComboBox::heightForWidth(int width) const
{
    return QComboBox::sizeHint().height() + (linesFor(width) - 1) * fontMetrics().lineSpacing();
}

void P_ComboBox::paintEvent(QPaintEvent *)
{
    QStylePainter painter(this);
    painter.setPen(palette().color(QPalette::Text));
    QStyleOptionComboBox option;
    initStyleOption(&option);
    const QString text = option.currentText;
    option.currentText.clear();
    painter.drawComplexControl(QStyle::CC_ComboBox, option);
    const QRect room = style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxEditField, this);
    painter.drawText(room, int(kTextAlignment) | Qt::TextWordWrap, text);
}

void P_ComboBox::setTag(const QString &tag)
{
    WidgetTag::set(this, tag);
}

QString P_ComboBox::tag() const
{
    return WidgetTag::get(this);
}

void P_ComboBox::sendValue()
{
    if (!tag().isEmpty())
        emit send(tag(), currentText());
}

void P_ComboBox::showPopup()
{
    // Installing again puts this filter first, also after a setView().
    view()->installEventFilter(this);
    m_pendingFormKey = 0;
    QComboBox::showPopup();
}

bool P_ComboBox::isFormKey(int key)
{
    return key == Ui::Key_Survey || key == Ui::Key_WinCan || key == Qt::Key_Escape
        || key == Qt::Key_PageUp || key == Qt::Key_PageDown;
}

void P_ComboBox::closeListFor(int key)
{
    if (key != Qt::Key_Escape) {
        const int highlighted = view()->currentIndex().row();
        if (highlighted >= 0)
            setCurrentIndex(highlighted);
    }
    m_pendingFormKey = key;
    hidePopup();
}

bool P_ComboBox::finishFormKey(int key)
{
    if (m_pendingFormKey == 0 || key != m_pendingFormKey)
        return false;
    m_pendingFormKey = 0;
    switch (key) {
    case Ui::Key_Survey:
        emit corvaneKeyRelease();
        break;
    case Ui::Key_WinCan:
        emit wincanKeyRelease();
        break;
    case Qt::Key_Escape:
        emit escKeyRelease();
        break;
    case Qt::Key_PageUp:
        emit pageUpRelease();
        break;
    case Qt::Key_PageDown:
        emit pageDownRelease();
        break;
    default:
        break;
    }
    return true;
}

bool P_ComboBox::eventFilter(QObject *watched, QEvent *event)
{
    if (watched == view() && (event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease)) {
        auto *keyEvent = static_cast<QKeyEvent *>(event);
        const int key = keyEvent->key();
        if (isFormKey(key) && !keyEvent->isAutoRepeat()) {
            if (event->type() == QEvent::KeyPress)
                closeListFor(key);
            else
                finishFormKey(key);
            return true;
        }
    }
    return QComboBox::eventFilter(watched, event);
}

void P_ComboBox::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        event->ignore();
        return;
    case Qt::Key_Left:
        if (currentIndex() > 0)
            setCurrentIndex(currentIndex() - 1);
        event->accept();
        return;
    case Qt::Key_Right:
        if (currentIndex() < count() - 1)
            setCurrentIndex(currentIndex() + 1);
        event->accept();
        return;
    default:
        QComboBox::keyPressEvent(event);
    }
}

void P_ComboBox::keyReleaseEvent(QKeyEvent *event)
{
    if (!event->isAutoRepeat() && finishFormKey(event->key())) {
        event->accept();
        return;
    }
    QComboBox::keyReleaseEvent(event);
}
