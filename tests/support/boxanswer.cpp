#include "support/boxanswer.h"

#include <QApplication>
#include <QMessageBox>
#include <QtTest>

BoxAnswer::BoxAnswer(QList<int> keys) : m_keys(std::move(keys))
{
    QObject::connect(&m_timer, &QTimer::timeout, [this] { poll(); });
    m_timer.start(10);
}

BoxAnswer::BoxAnswer(Action action) : m_action(std::move(action))
{
    QObject::connect(&m_timer, &QTimer::timeout, [this] { poll(); });
    m_timer.start(10);
}

void BoxAnswer::poll()
{
    auto *box = qobject_cast<QMessageBox *>(QApplication::activeModalWidget());
    if (!box || !box->isVisible())
        return;
    QWidget *focus = QApplication::focusWidget();
    // Keys sent before the box holds the focus go to the window under it and are lost.
    if (!m_action && (!focus || (focus != box && !box->isAncestorOf(focus))))
        return;
    m_timer.stop();
    shown = true;
    text = box->text();
    question = box->informativeText();
    if (m_action) {
        m_action(box);
        return;
    }
    for (int key : m_keys) // a key may move the focus to another button
        QTest::keyClick(QApplication::focusWidget() ? QApplication::focusWidget() : box, Qt::Key(key));
}
