// The position of dialogs on the screen.
#pragma once

#include "platform/windows_api.h"

namespace Ui {

// Returns the work area of the monitor that shows the window or is nearest to it (GetMonitorInfoW), in screen
// coordinates; empty if the system does not report it.
RECT WorkAreaOf(HWND window);

// Centres a window over its owner, or in the work area if it has no visible owner. Keeps the window within
// the work area of the owner's monitor; if the window is larger, its upper left corner is visible.
void CenterOverOwner(HWND window);

// Moves a window into its work area by the shortest distance.
void MoveInside(HWND window);

}  // namespace Ui
