#pragma once

#include "video/capture/observerset.h"
#include "video/capture/statushandlers.h"

// Hands every playback event on to all the handlers registered with it.
class CascadedPlaybackStatusHandler : public VideoPlaybackStatusHandler
{
public:
    void registerObserver(VideoPlaybackStatusHandler *observer) { m_observers.registerObserver(observer); }
    void removeObserver(VideoPlaybackStatusHandler *observer) { m_observers.removeObserver(observer); }

    void videoPlaybackErrorHandler(std::string message) override;
    void videoPlaybackPausedHandler() override;
    void videoPlaybackRunningHandler() override;
    void videoShutdownCompleteHandler() override;

private:
    ObserverSet<VideoPlaybackStatusHandler> m_observers;
};
