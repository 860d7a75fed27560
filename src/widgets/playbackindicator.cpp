#include "widgets/playbackindicator.h"

PlaybackIndicator::PlaybackIndicator(QWidget *parent)
    : IndicatorCell(parent, 64)
{
}

void PlaybackIndicator::setMode(PlaybackIndicator::Mode mode)
{
    m_mode = mode;
    switch (mode) {
    case kPlay:
        setPicture(QStringLiteral(":/graphics/ball-green-32.png"));
        setCaption(tr("PLAY"));
        break;
    case kStop:
        setPicture(QStringLiteral(":/graphics/ball-red-32.png"));
        setCaption(tr("STOP"));
        break;
    case kPause:
        setPicture(QStringLiteral(":/graphics/paused-record.png"));
        setCaption(tr("PAUSE"));
        break;
    case kFastForward:
        setPicture(QStringLiteral(":/graphics/ball-orange-32.png"));
        setCaption(tr("FWD"));
        break;
    case kRewind:
        setPicture(QStringLiteral(":/graphics/ball-orange-32.png"));
        setCaption(tr("REW"));
        break;
    case kStopPlayback:
        setPicture(QStringLiteral(":/graphics/square-green-32.png"));
        setCaption(tr("END"));
        break;
    case kModeNone:
        setPicture(QString());
        setCaption(QString());
        break;
    }
}
