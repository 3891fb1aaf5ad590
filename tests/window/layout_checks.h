// What must hold for the layout of every dialog, whatever texts it shows. Each check fails the test with the
// number of the control.
#pragma once

#include "platform/text.h"

// The place of a control in its dialog's client area, in pixels.
RECT AreaOf(HWND dialog, int control);

void ExpectControlsInsideClientArea(HWND dialog);
void ExpectNoControlsOverlap(HWND dialog);

// Labels, buttons, rows and hints of combo boxes, and the title, in their own fonts against their room.
void ExpectNoTextCutOff(HWND dialog);

// No two controls answer to the same access key, and each label's key leads to a field.
void ExpectAccessKeysDiffer(HWND dialog);

// All four of the above.
void ExpectLayoutHolds(HWND dialog);

// To a pixel, the parity of the sizes aside.
void ExpectCenteredOver(HWND dialog, HWND owner);
