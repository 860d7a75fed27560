#include "widgets/textentrydialog.h"

#include "core/uikeys.h"
#include "widgets/hbilabel.h"
#include "widgets/hbilineedit.h"

#include <QVBoxLayout>

TextEntryDialog::TextEntryDialog(QWidget *parent, QObject *receiver, const char *slot,
                                 const QString &title, const QString &prompt, const QString &text,
                                 bool mandatory)
    : KeypadDialog(parent, title)
{
    m_edit = new hbiLineEdit(text, this);
    m_edit->setMandatory(mandatory);
    m_edit->setMinimumWidth(440);
    m_edit->setFocus();
    contentLayout()->addWidget(m_edit);

    m_prompt = new hbiLabel(prompt.trimmed(), this);
    m_prompt->setAlignment(Qt::AlignCenter);
    m_prompt->setVisible(!m_prompt->text().isEmpty());
    contentLayout()->addWidget(m_prompt);

    m_refusal = new hbiLabel(tr("An entry is required"), this, hbiLabel::kWarning);
    m_refusal->setAlignment(Qt::AlignCenter);
    m_refusal->hide();
    contentLayout()->addWidget(m_refusal);
    connect(m_edit, &hbiLineEdit::textEdited, m_refusal, &QWidget::hide);

    setKeyHint(tr("OK: accept   ESC: cancel"));
    setFocusProxy(m_edit);
    connectAnswer(SIGNAL(entered(int, QString)), receiver, slot);
}

QString TextEntryDialog::text() const
{
    return m_edit->text().trimmed();
}

void TextEntryDialog::setText(const QString &text)
{
    m_edit->setText(text);
}

bool TextEntryDialog::isMandatory() const
{
    return m_edit->isMandatory();
}

bool TextEntryDialog::isRefusing() const
{
    return !m_refusal->isHidden();
}

void TextEntryDialog::setVisible(bool visible)
{
    KeypadDialog::setVisible(visible);
    // QDialog focuses its field as if by Tab, which selects the text; a first
    // letter typed before the dialog opened must be continued, not replaced.
    if (visible) {
        m_edit->deselect();
        m_edit->end(false);
    }
}

bool TextEntryDialog::isActionKey(int key) const
{
    return key == Ui::Key_TextMode || KeypadDialog::isActionKey(key);
}

void TextEntryDialog::actOnKey(int key)
{
    if (key == Qt::Key_Escape) {
        answer(kCancelled);
        return;
    }
    if (m_edit->isMissing()) {
        refuseBlank();
        return;
    }
    answer(key == Ui::Key_TextMode ? kAcceptedTextOnly : kAccepted);
}

void TextEntryDialog::answer(Answer key)
{
    const QString given = text();
    if (finish(key == kCancelled ? Rejected : Accepted))
        emit entered(key, given);
}

void TextEntryDialog::answerClosed()
{
    emit entered(kCancelled, text());
}

void TextEntryDialog::refuseBlank()
{
    m_refusal->show();
    m_edit->setFocus();
}
