#pragma once

#include <QObject>

class overlay;

// The nine pages of text the operator lays over the picture: which one shows,
// which one the keys are writing into, and whether one is on screen at all.
class PageOverlays : public QObject
{
    Q_OBJECT
public:
    explicit PageOverlays(overlay *target, QObject *parent = nullptr);

    // 0 hides; pages outside 0 to 9 are ignored.
    void show(int page);
    void edit();
    void hide();
    // Ends editing; the page shown stays.
    void clearEditing();

    bool isShowing() const { return m_active_buff; }
    int currentPage() const { return m_current_page; }
    int activePage() const { return m_active_page; }
    int editPage() const { return m_edit_page; }

signals:
    // Indicators::Mode for the strip.
    void modeChanged(int mode);
    // The overlay needs redrawing.
    void changed();

private:
    overlay *m_overlay;
    bool m_active_buff = false;
    int m_current_page = 0;
    int m_active_page = 0;
    int m_edit_page = 0;
};
