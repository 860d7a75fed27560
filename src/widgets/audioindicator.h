#pragma once

#include "widgets/indicatorcell.h"

// The headset symbol. A headset must be reported twice in a row (the detection
// runs every 3 s) before the symbol shows, so a plug wiggled in the socket does
// not make it flicker.
class audioindicator : public IndicatorCell
{
    Q_OBJECT
public:
    explicit audioindicator(QWidget *parent = nullptr);

    bool isHeadsetShown() const { return !picture().isEmpty(); }

public slots:
    // 1 headset seen, 0 or anything else none.
    void setAudioState(int state);

private:
    int m_seenCount = 0;
};
