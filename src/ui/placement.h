// Where a dialog is on the screen.
#pragma once

#include "platform/windows_api.h"

namespace Ui {

// The part of the monitor that windows may take; the monitor is the one that shows the window or is nearest
// to it. Empty if the system does not say.
RECT WorkAreaOf(HWND window);

// Puts a window in the middle of its owner, or of the work area if no owner can be seen. The window stays in
// the work area of the owner's monitor; of one that is larger the beginning shows.
void CenterOverOwner(HWND window);

// Moves a window into its work area, by no more than that takes.
void MoveInside(HWND window);

}  // namespace Ui
