#include "settings/serviceconsole.h"

#include "widgets/p_pushbutton.h"
#include "widgets/textentrydialog.h"

#include <QDebug>
#include <QEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QTimer>
#include <QVBoxLayout>

namespace {
const char *const kActionTitles[ServiceConsole::kActionCount] = {
    QT_TRANSLATE_NOOP("ServiceConsole", "Save logs to USB"),
    QT_TRANSLATE_NOOP("ServiceConsole", "Save settings to USB"),
    QT_TRANSLATE_NOOP("ServiceConsole", "Load settings from USB"),
    QT_TRANSLATE_NOOP("ServiceConsole", "Software update from USB"),
    QT_TRANSLATE_NOOP("ServiceConsole", "Logo update from USB"),
};
} // namespace

ServiceConsole::ServiceConsole(QWidget *parent) : QWidget(parent)
{
    auto *layout = new QVBoxLayout(this);
    m_lockText = new QLabel(this);
    m_lockText->setWordWrap(true);
    layout->addWidget(m_lockText);
    for (int action = 0; action < kActionCount; ++action) {
        auto *button = new P_PushButton(this);
        connect(button, &QPushButton::clicked, this, [this, action] { run(action); });
        layout->addWidget(button);
        m_buttons.append(button);
    }
    m_result = new QLabel(this);
    m_result->setWordWrap(true);
    layout->addWidget(m_result);
    layout->addStretch(1);
    setFocusPolicy(Qt::StrongFocus);
    retranslate();
    showLockState();
}

QString ServiceConsole::resultText() const
{
    return m_result->text();
}

QString ServiceConsole::stick() const
{
    return m_stick.isEmpty() ? ServiceActions::usbPath() : m_stick;
}

void ServiceConsole::showLockState()
{
    for (P_PushButton *button : qAsConst(m_buttons))
        button->setVisible(m_unlocked);
    m_lockText->setText(m_unlocked ? tr("Service console. Up/Down: choose   OK: run   L: lock")
                                   : tr("Service console locked. Press OK to enter the service code."));
}

void ServiceConsole::askForCode()
{
    if (m_unlocked || m_codeDialog)
        return;
    m_codeDialog = new TextEntryDialog(this, this, SLOT(codeEntered(int, QString)), tr("Service Code"),
                                       tr("Enter the service code"), QString());
    m_codeDialog->setModal(true);
    m_codeDialog->show();
    m_codeDialog->setFocus();
}

void ServiceConsole::codeEntered(int key, QString code)
{
    if (m_codeDialog)
        m_codeDialog->deleteLater();
    m_codeDialog = nullptr;
    if (key == TextEntryDialog::kCancelled)
        return;
    m_unlocked = code == serviceCode();
    m_result->setText(m_unlocked ? QString() : tr("Wrong service code"));
    qInfo() << "Service console" << (m_unlocked ? "unlocked" : "refused a wrong code");
    showLockState();
    // The code dialog hands the focus back as it closes; the first action takes it after that.
    QWidget *next = m_unlocked ? static_cast<QWidget *>(m_buttons.first()) : this;
    QTimer::singleShot(0, next, [next] { next->setFocus(); });
}

void ServiceConsole::run(int action)
{
    if (!m_unlocked)
        return;
    const QString path = stick();
    ServiceActions::Result result;
    switch (action) {
    case kSaveLogs:
        result = ServiceActions::saveLogs(path);
        break;
    case kSaveSettings:
        result = ServiceActions::saveSettings(path);
        break;
    case kLoadSettings:
        result = ServiceActions::loadSettings(path);
        break;
    case kUpdateSoftware:
        result = ServiceActions::updateSoftware(path);
        break;
    case kUpdateLogo:
        result = ServiceActions::updateLogo(path);
        break;
    default:
        return;
    }
    m_result->setText(result.message);
}

void ServiceConsole::lock()
{
    m_unlocked = false;
    m_result->clear();
    showLockState();
}

void ServiceConsole::keyPressEvent(QKeyEvent *event)
{
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        if (!m_unlocked) {
            askForCode();
            return;
        }
        break;
    case Qt::Key_L:
        lock();
        setFocus();
        return;
    case Qt::Key_Up:
        focusNextPrevChild(false);
        return;
    case Qt::Key_Down:
        focusNextPrevChild(true);
        return;
    default:
        break;
    }
    QWidget::keyPressEvent(event);
}

void ServiceConsole::hideEvent(QHideEvent *event)
{
    // Leaving the tab locks it: the next person needs the code again.
    lock();
    QWidget::hideEvent(event);
}

void ServiceConsole::retranslate()
{
    for (int action = 0; action < kActionCount; ++action)
        m_buttons[action]->setText(tr(kActionTitles[action]));
    showLockState();
}

void ServiceConsole::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    QWidget::changeEvent(event);
}
