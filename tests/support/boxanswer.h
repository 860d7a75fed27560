#pragma once

#include <QList>
#include <QString>
#include <QTimer>
#include <functional>

class QMessageBox;

// Answers the next message box as an operator does: once it is the modal window
// (and, when answering by keys, holds the focus), never on a guess about time.
// A box that opens inside exec() is answered from its own event loop; what it
// said is kept for the test to check.
class BoxAnswer
{
public:
    using Action = std::function<void(QMessageBox *)>;

    // Keys pressed on the box's focus widget.
    explicit BoxAnswer(QList<int> keys);
    // Anything done to the box, e.g. clicking a button.
    explicit BoxAnswer(Action action);

    QString text;
    QString question;
    bool shown = false;

private:
    void poll();

    QList<int> m_keys;
    Action m_action;
    QTimer m_timer;
};
