#include "video/vidmarker.h"

#include <QDateTime>

namespace {

uint currentSecond()
{
    return static_cast<uint>(QDateTime::currentSecsSinceEpoch());
}

} // namespace

VidMarker::VidMarker(int count, const QImage &data, uint lifetimeSeconds)
    : m_expire_time(currentSecond() + lifetimeSeconds)
    , m_count(count)
    , m_data(data)
{
}

void VidMarker::expire()
{
    m_expire_time = 0;
}

bool VidMarker::hasExpired() const
{
    return m_expire_time < currentSecond();
}

bool VidMarker::operator==(const VidMarker &other) const
{
    return m_expire_time == other.m_expire_time && m_count == other.m_count && m_data == other.m_data;
}
