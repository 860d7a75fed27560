#include "widgets/keypaddialog.h"

#include "widgets/hbilabel.h"

#include <QCoreApplication>
#include <QDebug>
#include <QKeyEvent>
#include <QVBoxLayout>

KeypadDialog::KeypadDialog(QWidget *parent, const QString &title)
    : QDialog(parent, Qt::FramelessWindowHint | Qt::Dialog)
{
    setFocusPolicy(Qt::StrongFocus);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(16, 12, 16, 12);
    layout->setSpacing(10);
    // The dialog always takes the size its content asks for, also when a line
    // such as a refusal appears.
    layout->setSizeConstraint(QLayout::SetFixedSize);
    m_title = new hbiLabel(title.trimmed(), this, hbiLabel::kTitle);
    m_title->setAlignment(Qt::AlignCenter);
    m_title->setVisible(!m_title->text().isEmpty());
    layout->addWidget(m_title);
    m_content = new QVBoxLayout;
    m_content->setSpacing(8);
    layout->addLayout(m_content, 1);
    m_hint = new hbiLabel(QString(), this, hbiLabel::kHint);
    m_hint->setAlignment(Qt::AlignCenter);
    layout->addWidget(m_hint);
}

QString KeypadDialog::title() const
{
    return m_title->text();
}

QString KeypadDialog::keyHint() const
{
    return m_hint->text();
}

void KeypadDialog::setKeyHint(const QString &text)
{
    m_hint->setText(text);
}

void KeypadDialog::connectAnswer(const char *signal, QObject *receiver, const char *slot)
{
    if (!receiver || !slot)
        return;
    if (!connect(this, signal, receiver, slot))
        qWarning() << "Dialog" << title() << "cannot answer to" << slot;
}

bool KeypadDialog::finish(int result)
{
    if (m_answered)
        return false;
    m_answered = true;
    QDialog::done(result);
    return true;
}

void KeypadDialog::done(int result)
{
    if (!finish(result))
        return;
    answerClosed();
}

bool KeypadDialog::isActionKey(int key) const
{
    return key == Qt::Key_Escape || key == Qt::Key_Return || key == Qt::Key_Enter;
}

void KeypadDialog::keyPressEvent(QKeyEvent *event)
{
    if (isActionKey(event->key())) {
        if (!event->isAutoRepeat())
            m_pressedKey = event->key();
        event->accept();
        return;
    }
    QDialog::keyPressEvent(event);
    if (!event->isAccepted())
        m_forwardedPresses.insert(event->key());
    forwardToOwner(event);
}

void KeypadDialog::forwardToOwner(QKeyEvent *event)
{
    // Keys the dialog has no use for belong to the screen behind it: the mode
    // key still opens its menu and the lamp keys still work while a question
    // or a note is showing.
    QWidget *owner = parentWidget();
    if (event->isAccepted() || !owner)
        return;
    event->accept();
    QCoreApplication::sendEvent(owner, event);
}

void KeypadDialog::keyReleaseEvent(QKeyEvent *event)
{
    const int key = event->key();
    if (isActionKey(key)) {
        event->accept();
        if (event->isAutoRepeat() || key != m_pressedKey)
            return;
        m_pressedKey = 0;
        actOnKey(key);
        return;
    }
    QDialog::keyReleaseEvent(event);
    // A release goes the way its press went: letters typed into an entry stay here.
    if (!m_forwardedPresses.contains(key))
        return;
    if (!event->isAutoRepeat())
        m_forwardedPresses.remove(key);
    forwardToOwner(event);
}
