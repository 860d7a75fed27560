#pragma once

#include <QMessageBox>

// The console's warning and confirmation box: black on yellow, frameless, bold.
// The keypad moves between its buttons with Up/Down or Left/Right, Return or Enter
// presses the one in focus (the default button at first), Escape gives the
// escape button's answer as in QMessageBox.
//
// A frameless box shows no window title: put everything the operator must read
// into the text and the informative text.
class HBIMessageBox : public QMessageBox
{
    Q_OBJECT
public:
    explicit HBIMessageBox(QWidget *parent = nullptr);
    HBIMessageBox(Icon icon, const QString &text, StandardButtons buttons = NoButton,
                  QWidget *parent = nullptr);

    // A wide flat button that reads as an instruction, e.g. "Press Return to
    // Continue."; it becomes the default button.
    QPushButton *addInstructionButton(const QString &text, ButtonRole role = AcceptRole);

protected:
    void keyPressEvent(QKeyEvent *event) override;

private:
    void applyLook();
    void moveButtonFocus(int step);
};
