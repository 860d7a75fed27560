#pragma once

class QKeyEvent;

// A key that acts only when held: the real press starts the count, each
// auto-repeat adds one, and the hold acts once when the count passes its
// threshold; holding on does nothing more until the key is pressed again.
class KeyHold
{
public:
    explicit KeyHold(int threshold) : m_threshold(threshold) {}

    // True for the one event that completes the hold.
    bool press(const QKeyEvent *event);

private:
    int m_threshold;
    int m_count = 0;
};
