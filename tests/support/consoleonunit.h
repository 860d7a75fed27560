#pragma once

class KeypadOperator;
class MainWindow;

// The real window, controller and screens on the simulated unit, with an
// operator at the keypad. The test's TestUnit must exist first.
class ConsoleOnUnit
{
public:
    // Starts the console and logs in as an operator does; false, with the step
    // that never came logged, when it does not reach the live picture.
    bool logIn();

    MainWindow *window = nullptr;
    KeypadOperator *keypad = nullptr;
};
