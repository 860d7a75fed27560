#include "video/surveydialoghost.h"

#include "video/videoform.h"
#include "widgets/keypaddialog.h"
#include "widgets/menudialog.h"
#include "widgets/messagedialog.h"
#include "widgets/paramentrydialog.h"
#include "widgets/textentrydialog.h"

#include <QCoreApplication>
#include <QDebug>
#include <QKeyEvent>
#include <QWidget>

SurveyDialogHost::SurveyDialogHost(QWidget *screen)
    : m_screen(screen)
{
}

QWidget *SurveyDialogHost::parent() const
{
    return m_screen->parentWidget() ? m_screen->parentWidget() : m_screen;
}

void SurveyDialogHost::place(QWidget *dialog) const
{
    // Centred on the picture, which leaves the status strip at the right free.
    const QWidget *parent = this->parent();
    dialog->adjustSize();
    dialog->move((parent->width() - Ui::Video::kStripWidth - dialog->width()) / 2, (parent->height() - dialog->height()) / 2);
}

bool SurveyDialogHost::open(IVideoScreen::overlay_menu_t type, const QString &title, const QStringList &list,
                            QObject *receiver, const char *slot, bool flag)
{
    // Closing answers the open dialog, and its flow may open its next question
    // at once: that one stays, under the new dialog, and is not lost unanswered.
    closeAll();
    discardAnswered();
    QDialog *dialog = nullptr;
    switch (type) {
    case IVideoScreen::kOverlyMenu:
    case IVideoScreen::kOverlayDialogue:
        dialog = new menuDialog(parent(), receiver, slot, title, list);
        break;
    case IVideoScreen::kOverlayTextEntry:
        dialog = new TextEntryDialog(parent(), receiver, slot, title, list.value(list.size() - 1),
                                                       list.value(0), flag);
        break;
    case IVideoScreen::kOverlayMessage:
        dialog = receiver && slot
            ? new MessageDialog(parent(), receiver, slot, title, list.value(0))
            : new MessageDialog(parent(), title, list.value(0));
        break;
    case IVideoScreen::kOverlayParamEntry:
        dialog = new ParamEntryDialog(parent(), receiver, slot, title, list);
        break;
    default:
        qWarning() << "Unknown dialog type" << type;
        return false;
    }
    dialog->setModal(true);
    place(dialog);
    dialog->show();
    dialog->setFocus();
    return true;
}

QList<KeypadDialog *> SurveyDialogHost::dialogs() const
{
    return parent()->findChildren<KeypadDialog *>(QString(), Qt::FindDirectChildrenOnly);
}

void SurveyDialogHost::closeAll()
{
    for (KeypadDialog *dialog : dialogs()) {
        if (dialog->isHidden())
            continue;
        if (auto *menu = qobject_cast<menuDialog *>(dialog))
            menu->escape();
        else
            dialog->close();
    }
}

bool SurveyDialogHost::acknowledgeOpenNote()
{
    // The flows close their notes by sending Return to the screen: the note that
    // stands open takes it as its OK, as if the operator had pressed it there.
    for (KeypadDialog *dialog : dialogs()) {
        auto *note = qobject_cast<MessageDialog *>(dialog);
        if (!note || !note->isVisible())
            continue;
        QKeyEvent press(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
        QKeyEvent release(QEvent::KeyRelease, Qt::Key_Return, Qt::NoModifier);
        QCoreApplication::sendEvent(note, &press);
        QCoreApplication::sendEvent(note, &release);
        return true;
    }
    return false;
}

void SurveyDialogHost::discardAnswered()
{
    // Later, not now: the dialog may still be inside the signal that answered.
    for (KeypadDialog *dialog : dialogs()) {
        if (dialog->isHidden())
            dialog->deleteLater();
    }
}

QWidget *SurveyDialogHost::openDialog() const
{
    const QList<KeypadDialog *> open = dialogs();
    for (auto it = open.crbegin(); it != open.crend(); ++it) {
        if ((*it)->isVisible())
            return *it;
    }
    return nullptr;
}
