#include "widgets/hbimessagebox.h"

#include "widgets/consolestyle.h"

#include <QAbstractButton>
#include <QKeyEvent>
#include <QPushButton>

HBIMessageBox::HBIMessageBox(QWidget *parent)
    : QMessageBox(parent)
{
    applyLook();
}

HBIMessageBox::HBIMessageBox(Icon icon, const QString &text, StandardButtons buttons, QWidget *parent)
    : QMessageBox(icon, QString(), text, buttons, parent)
{
    applyLook();
}

void HBIMessageBox::applyLook()
{
    setWindowFlag(Qt::FramelessWindowHint);
    QPalette yellow = palette();
    for (QPalette::ColorRole role : {QPalette::Window, QPalette::Button, QPalette::Base})
        yellow.setColor(role, ConsoleStyle::selection());
    for (QPalette::ColorRole role : {QPalette::WindowText, QPalette::ButtonText, QPalette::Text})
        yellow.setColor(role, ConsoleStyle::ink());
    setPalette(yellow);
    setAutoFillBackground(true);
    QFont bold(QString::fromLatin1(ConsoleStyle::kFontFamily));
    bold.setPixelSize(ConsoleStyle::kBodyPixels);
    bold.setBold(true);
    setFont(bold);
}

QPushButton *HBIMessageBox::addInstructionButton(const QString &text, ButtonRole role)
{
    QPushButton *button = addButton(text, role);
    button->setFlat(true);
    button->setMinimumWidth(360);
    setDefaultButton(button);
    return button;
}

void HBIMessageBox::moveButtonFocus(int step)
{
    const QList<QAbstractButton *> all = buttons();
    if (all.size() < 2)
        return;
    int at = all.indexOf(qobject_cast<QAbstractButton *>(focusWidget()));
    at = at < 0 ? 0 : (at + step + all.size()) % all.size();
    all.at(at)->setFocus(Qt::TabFocusReason);
    if (auto *push = qobject_cast<QPushButton *>(all.at(at)))
        setDefaultButton(push);
}

void HBIMessageBox::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Up:
    case Qt::Key_Left:
        moveButtonFocus(-1);
        break;
    case Qt::Key_Down:
    case Qt::Key_Right:
        moveButtonFocus(1);
        break;
    default:
        QMessageBox::keyPressEvent(event);
        return;
    }
    event->accept();
}
