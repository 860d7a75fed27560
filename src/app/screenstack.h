#pragma once

#include <QStack>
#include <QString>

#include <memory>

class IMainWindow;
class ReportManager;

// The pages the operator can go back to, and the rules for moving between
// them: forms and the report are refused while recording, the live picture is
// the root and empties the stack, the splash and login are never gone back to.
class ScreenStack
{
public:
    explicit ScreenStack(IMainWindow *window);
    ~ScreenStack();

    int current() const;
    QStack<int> stack() const { return m_screenStack; }

    void push(int n);
    void pop();
    // The media browser's model while the report screen has been shown; each
    // visit makes a new one that starts at the device list.
    ReportManager *reportManager() const { return m_reportManager.get(); }

private:
    bool configure(int n);
    // The help page to show: the stored one when it is in the console's
    // language, else that language's index, else the English one.
    static QString helpPageFor(const QString &firstPage, const QString &language);

    IMainWindow *m_window = nullptr;
    QStack<int> m_screenStack;
    std::unique_ptr<ReportManager> m_reportManager;
};
