#include "widgets/messagedialog.h"

#include "widgets/hbilabel.h"

#include <QVBoxLayout>

MessageDialog::MessageDialog(QWidget *parent, const QString &title, const QString &text)
    : MessageDialog(parent, nullptr, nullptr, title, text)
{
}

MessageDialog::MessageDialog(QWidget *parent, QObject *receiver, const char *slot,
                             const QString &title, const QString &text)
    : KeypadDialog(parent, title)
{
    m_text = new hbiLabel(text.trimmed(), this);
    m_text->setAlignment(Qt::AlignCenter);
    m_text->setMinimumWidth(420);
    m_text->setMaximumWidth(620);
    contentLayout()->addWidget(m_text);
    setKeyHint(tr("OK: continue"));
    connectAnswer(SIGNAL(acknowledged(int)), receiver, slot);
}

QString MessageDialog::text() const
{
    return m_text->text();
}

void MessageDialog::actOnKey(int key)
{
    const int answer = key == Qt::Key_Escape ? 0 : 1;
    if (finish(answer == 1 ? Accepted : Rejected))
        emit acknowledged(answer);
}

void MessageDialog::answerClosed()
{
    emit acknowledged(0);
}
