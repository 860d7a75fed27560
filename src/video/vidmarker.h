#pragma once

#include <QImage>

// A picture that belongs in the recording for a limited time, such as a page of
// text the operator called up; the video screen drops it once it has expired.
class VidMarker
{
public:
    VidMarker(int count, const QImage &data, uint lifetimeSeconds);

    void expire();
    bool hasExpired() const;
    bool operator==(const VidMarker &other) const;

    QImage getData() const { return m_data; }
    int getCount() const { return m_count; }
    uint expireTime() const { return m_expire_time; }

private:
    uint m_expire_time;
    int m_count;
    QImage m_data;
};
