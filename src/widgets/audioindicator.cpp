#include "widgets/audioindicator.h"

audioindicator::audioindicator(QWidget *parent)
    : IndicatorCell(parent, 44)
{
}

void audioindicator::setAudioState(int state)
{
    if (state != 1) {
        m_seenCount = 0;
        setPicture(QString());
        return;
    }
    ++m_seenCount;
    if (m_seenCount > 1)
        setPicture(QStringLiteral(":/graphics/headset.png"));
}
