// The resolution of screens. Windows build only.
#pragma once

#include "platform/windows_api.h"

// Returns the resolution, in pixels per inch, of the monitor that shows `window` (GetDpiForWindow). Before
// Windows 10 it is that of the primary screen.
int PixelsOfAnInch(HWND window);
