// Pictures of windows. Windows build only.
#pragma once

#include "platform/text.h"

namespace QxHost {

// Paints what is due, and saves the window with its frame as a PNG: as it has painted itself, whether or not
// it is on the screen. False if the picture could not be taken or written. On the window's thread.
bool SaveWindowPicture(HWND window, const WString& path);

}  // namespace QxHost
