#pragma once

#include "widgets/keyhold.h"

class QKeyEvent;
class Video;

// What the keys do on the main screen: overlay pages and their editing, the
// picture controls, pause and stop, the zero-counter hold, and the mode keys
// that hand over to the survey or ask for another screen.
class VideoKeys
{
public:
    // Counted events of a held Zero key before the counter is zeroed.
    static constexpr int kZeroCounterHold = 7;

    explicit VideoKeys(Video *video);

    // True when the key was taken; the screen passes the others on.
    bool press(QKeyEvent *event);
    bool release(QKeyEvent *event);

private:
    bool handleZeroCounterPress(QKeyEvent *event);
    bool handlePictureControlPress(int key);
    bool handlePlainRelease(int key);

    Video *m_video;
    KeyHold m_zeroCounterHold{kZeroCounterHold};
};
