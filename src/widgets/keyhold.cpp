#include "widgets/keyhold.h"

#include <QKeyEvent>

bool KeyHold::press(const QKeyEvent *event)
{
    if (!event->isAutoRepeat()) {
        m_count = 1;
        return false;
    }
    if (m_count == 0 || ++m_count <= m_threshold)
        return false;
    m_count = 0;
    return true;
}
