#include "app/helpscreen.h"

#include "core/consolesettings.h"
#include "core/unitpaths.h"

#include <QDebug>
#include <QEvent>
#include <QFileInfo>
#include <QLabel>
#include <QTextBrowser>
#include <QUrl>
#include <QVBoxLayout>

HelpScreen::HelpScreen(QWidget *parent) : PipeScreen(parent)
{
    setWhatsThis(QStringLiteral("Help Screen"));
    m_browser = new QTextBrowser(this);
    m_browser->setOpenExternalLinks(false);
    m_browser->setOpenLinks(true);
    m_hint = new QLabel(this);
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(4, 4, 4, 4);
    layout->addWidget(m_browser, 1);
    layout->addWidget(m_hint);
    setFocusProxy(m_browser);
    retranslate();
}

QString HelpScreen::existingPage(const QString &page)
{
    if (QFileInfo(page).isFile())
        return page;
    // The first page remembered may be a bare language code, as it is on a new
    // unit: the language's index stands in for it.
    for (const QString &language : {ConsoleSettings::languageCode(), QStringLiteral("en-GB")}) {
        const QString index = unitPath(QStringLiteral("/opt/hbi/languages/%1/help/index.html").arg(language));
        if (QFileInfo(index).isFile())
            return index;
    }
    return QString();
}

void HelpScreen::setPage(QString page)
{
    m_page = existingPage(page);
    if (m_page.isEmpty()) {
        qInfo().noquote() << "No help page at" << page;
        m_browser->setHtml(tr("<h2>Help</h2><p>The help pages are missing from this unit.</p>"));
        return;
    }
    m_browser->setSearchPaths({QFileInfo(m_page).absolutePath()});
    m_browser->setSource(QUrl::fromLocalFile(m_page));
}

QString HelpScreen::title() const
{
    return m_browser->documentTitle();
}

void HelpScreen::retranslate()
{
    m_hint->setText(tr("Up/Down: scroll   Tab: next link   OK: open link   ESC: leave"));
}

void HelpScreen::changeEvent(QEvent *event)
{
    if (event->type() == QEvent::LanguageChange)
        retranslate();
    PipeScreen::changeEvent(event);
}
