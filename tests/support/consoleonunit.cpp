#include "support/consoleonunit.h"

#include "app/controller.h"
#include "app/mainwindow.h"
#include "support/keypadoperator.h"

#include <QtTest>

bool ConsoleOnUnit::logIn()
{
    window = new MainWindow;
    keypad = new KeypadOperator(window);
    Controller::create(window, window);
    window->show();
    if (!QTest::qWaitForWindowActive(window)) {
        qWarning("the console window never became active");
        return false;
    }
    if (!QTest::qWaitFor([this] { return window->screen() == Controller::kScreenLogin; }, 5000)) {
        qWarning("the login screen never showed");
        return false;
    }
    keypad->key(Qt::Key_Return);
    if (!QTest::qWaitFor([this] { return window->screen() == Controller::kScreenVideo; }, 5000)) {
        qWarning("login did not lead to the live picture");
        return false;
    }
    return true;
}
