#include "support/fakevideoscreen.h"

#include <QKeyEvent>

void FakeVideoScreen::keyPressEvent(QKeyEvent *event)
{
    log("keyPressEvent", event->key());
}

void FakeVideoScreen::keyReleaseEvent(QKeyEvent *event)
{
    log("keyReleaseEvent", event->key());
}
