#pragma once

#include <QPushButton>

// A button the keypad can press: Return or Enter clicks it while it has the focus,
// and the key's release is kept from the form behind it, so one key does one thing.
class P_PushButton : public QPushButton
{
    Q_OBJECT
public:
    explicit P_PushButton(QWidget *parent = nullptr);
    explicit P_PushButton(const QString &text, QWidget *parent = nullptr);

protected:
    void keyPressEvent(QKeyEvent *event) override;
    void keyReleaseEvent(QKeyEvent *event) override;

private:
    int m_clickKey = 0;
};
