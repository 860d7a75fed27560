#pragma once

#include "settings/serviceactions.h"

#include "widgets/textentrydialog.h"

#include <QPointer>
#include <QVector>
#include <QWidget>

class QLabel;
class P_PushButton;


// The service console tab, for the service engineer: locked until the service
// code is given. Saves the logs and the settings to a USB stick, loads settings
// back, installs a software update or a customer's logo from the stick.
class ServiceConsole : public QWidget
{
    Q_OBJECT
public:
    enum Action { kSaveLogs, kSaveSettings, kLoadSettings, kUpdateSoftware, kUpdateLogo, kActionCount };

    explicit ServiceConsole(QWidget *parent = nullptr);

    static QString serviceCode() { return QStringLiteral("7410"); }

    bool isUnlocked() const { return m_unlocked; }
    QString resultText() const;
    P_PushButton *button(Action action) const { return m_buttons.value(action); }
    TextEntryDialog *codeDialog() const { return m_codeDialog; }
    // Where the actions look for the stick; the first USB stick when unset.
    void setStickPath(const QString &path) { m_stick = path; }

public slots:
    void askForCode();
    void codeEntered(int key, QString code);
    void run(int action);
    void lock();

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void hideEvent(QHideEvent *event) override;
    void changeEvent(QEvent *event) override;

private:
    void retranslate();
    void showLockState();
    QString stick() const;

    QVector<P_PushButton *> m_buttons;
    QLabel *m_lockText = nullptr;
    QLabel *m_result = nullptr;
    QPointer<TextEntryDialog> m_codeDialog;
    QString m_stick;
    bool m_unlocked = false;
};
