#pragma once

#include "widgets/indicatorcell.h"

// The play state of the media browser's player.
class PlaybackIndicator : public IndicatorCell
{
    Q_OBJECT
public:
    enum Mode { kModeNone = 0, kPlay = 1, kStop = 2, kPause = 3, kFastForward = 4, kRewind = 5, kStopPlayback = 6 };
    Q_ENUM(Mode)

    explicit PlaybackIndicator(QWidget *parent = nullptr);

    Mode mode() const { return m_mode; }

public slots:
    void setMode(PlaybackIndicator::Mode mode);

private:
    Mode m_mode = kModeNone;
};
