#pragma once

#include <Qt>

// Key codes the keypad's key map produces. Letters keep their Qt values so the
// codes typed on a bench keyboard reach the same handlers.
namespace Ui {
enum Key {
    Key_Help = 0x1000030,
    Key_Survey = 0x1000031,
    Key_WinCan = 0x1000032,
    Key_TextMode = 0x1000033,
    Key_Style = 0x1000034,
    Key_Size = 0x1000035,
    Key_CounterMode = 0x1000036,
    Key_Report = 0x1000037,
    Key_Settings = 0x1000038,
    Key_Sonde = 0x1000039,
    Key_F1 = 0x100003a,
    Key_LampOff = 0x100003c,
    Key_LampDown = 0x100003d,
    Key_LampUp = 0x100003e,
    Key_MediaRewind = 0x100003f,
    Key_MediaPlay = 0x1000040,
    Key_MediaForward = 0x1000041,
    Key_MediaStop = 0x1000042,
    Key_MediaPause = 0x1000043,
    Key_MediaRecord = 0x1000044,
    Key_Snapshot = 0x1000045,
    Key_ZeroCounter = 0x1000046,
    Key_CameraControls = 0x1000050,
    Key_GraphicMode = 71,
    Key_DateMode = 68,
    Key_Rotate = 82,
    Key_TimeMode = 84,
    Key_a = 97,
    Key_z = 122,
};
}

// Not a keypad key: the tilt switch reaches the program as F12.
static_assert(Qt::Key_F12 == 0x100003b, "the tilt switch sits between Key_F1 and Key_LampOff");
