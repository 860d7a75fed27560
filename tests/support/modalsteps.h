#pragma once

#include <QApplication>
#include <QMessageBox>
#include <QTimer>
#include <QWidget>
#include <QtTest>

#include <functional>

// Answers the modal dialogs that a key opens, in order, as each shows: a step
// names the dialog's class and the keys to press in it. Message boxes' texts are
// kept for the test to read.
class ModalSteps : public QObject
{
public:
    ModalSteps()
    {
        m_timer.setInterval(20);
        QObject::connect(&m_timer, &QTimer::timeout, [this]() { step(); });
    }
    ModalSteps &expect(const char *className, const QList<int> &keys, std::function<void()> first = {})
    {
        m_steps.append({className, keys, first});
        m_timer.start();
        return *this;
    }
    bool done() const { return m_steps.isEmpty(); }
    QStringList texts;

private:
    struct Step {
        QByteArray className;
        QList<int> keys;
        std::function<void()> first;
    };
    void step()
    {
        QWidget *modal = QApplication::activeModalWidget();
        if (m_steps.isEmpty() || !modal || !modal->isVisible() || !modal->inherits(m_steps.first().className))
            return;
        const Step current = m_steps.takeFirst();
        if (current.first)
            current.first();
        if (auto *box = qobject_cast<QMessageBox *>(modal))
            texts << box->text() + box->informativeText();
        for (int key : current.keys)
            QTest::keyClick(modal, Qt::Key(key));
        if (m_steps.isEmpty())
            m_timer.stop();
    }
    QTimer m_timer;
    QList<Step> m_steps;
};
