// The scale of screens. Windows build only.
#pragma once

#include "platform/windows_api.h"

// The scale of the monitor that a window is on, as pixels of an inch. Before Windows 10 all windows have that
// of the screen.
int PixelsOfAnInch(HWND window);
