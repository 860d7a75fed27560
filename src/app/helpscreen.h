#pragma once

#include "app/ihelpscreen.h"
#include "widgets/pipescreen.h"

class QLabel;
class QTextBrowser;

// The help page: the unit's own HTML for the language in force, in a light
// browser that fits the screen. Up and Down scroll, Page Up and Page Down turn a
// page, OK follows the highlighted link, Tab moves between links; Escape leaves.
class HelpScreen : public PipeScreen, public IHelpScreen
{
    Q_OBJECT
public:
    explicit HelpScreen(QWidget *parent = nullptr);

    void setPage(QString page) override;
    QString page() const { return m_page; }
    QString title() const;
    QTextBrowser *browser() const { return m_browser; }

protected:
    void changeEvent(QEvent *event) override;

private:
    static QString existingPage(const QString &page);
    void retranslate();

    QTextBrowser *m_browser = nullptr;
    QLabel *m_hint = nullptr;
    QString m_page;
};
