#include "widgets/p_combobox.h"

#include "core/uikeys.h"
#include "widgets/widgettag.h"

#include <QAbstractItemView>
#include <QKeyEvent>

P_ComboBox::P_ComboBox(QWidget *parent)
    : QComboBox(parent)
{
    setFocusPolicy(Qt::StrongFocus);
    view()->installEventFilter(this);
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
