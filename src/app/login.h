#pragma once

#include "app/iloginscreen.h"
#include "widgets/pipescreen.h"

class Controller;
class QLabel;

// The welcome page: logo and the unit's network address; Return goes on to the main screen.
class Login : public PipeScreen, public ILoginScreen
{
    Q_OBJECT
public:
    explicit Login(QWidget *parent = nullptr);

    QString ipAddressText() const;
    // The first IPv4 address of the unit that is not the loopback, or empty.
    static QString firstIPv4Address();

public slots:
    void setController(Controller *controller) { control = controller; }
    void reload();

protected:
    void showEvent(QShowEvent *event) override;

private:
    QLabel *label_logo = nullptr;
    QLabel *label_password = nullptr;
    QLabel *label_status = nullptr;
    QLabel *label_password_2 = nullptr;
    QLabel *label_ip_address = nullptr;
    Controller *control = nullptr;
};
