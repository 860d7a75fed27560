#include "video/capture/cascadedplaybackstatushandler.h"

void CascadedPlaybackStatusHandler::videoPlaybackErrorHandler(std::string message)
{
    m_observers.forEach([&](VideoPlaybackStatusHandler *h) { h->videoPlaybackErrorHandler(message); });
}

void CascadedPlaybackStatusHandler::videoPlaybackPausedHandler()
{
    m_observers.forEach([](VideoPlaybackStatusHandler *h) { h->videoPlaybackPausedHandler(); });
}

void CascadedPlaybackStatusHandler::videoPlaybackRunningHandler()
{
    m_observers.forEach([](VideoPlaybackStatusHandler *h) { h->videoPlaybackRunningHandler(); });
}

void CascadedPlaybackStatusHandler::videoShutdownCompleteHandler()
{
    m_observers.forEach([](VideoPlaybackStatusHandler *h) { h->videoShutdownCompleteHandler(); });
}
