#include "video/pageoverlays.h"

#include "video/overlay.h"
#include "widgets/indicators.h"

#include <QDebug>

PageOverlays::PageOverlays(overlay *target, QObject *parent)
    : QObject(parent)
    , m_overlay(target)
{
}

void PageOverlays::show(int page)
{
    if (page < 0 || page > overlay::kPageCount) {
        qDebug() << "No page overlay" << page;
        return;
    }
    hide();
    m_active_page = page;
    m_current_page = page;
    if (page != 0) {
        m_active_buff = true;
        m_overlay->show();
        m_overlay->showPage(page);
        emit modeChanged(Indicators::kPage1 + page - 1);
    }
    emit changed();
}

void PageOverlays::edit()
{
    if (m_edit_page != 0 || m_current_page < 1 || m_current_page > overlay::kPageCount)
        return;
    m_active_page = m_current_page;
    m_edit_page = m_current_page;
    emit changed();
}

void PageOverlays::hide()
{
    if (m_current_page != 0)
        m_overlay->hidePage(m_current_page);
    m_active_buff = false;
    m_current_page = 0;
    emit modeChanged(Indicators::kModeNone);
}

void PageOverlays::clearEditing()
{
    m_active_buff = false;
    m_active_page = 0;
    m_edit_page = 0;
}
