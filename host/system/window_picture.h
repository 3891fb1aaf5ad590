// Pictures of windows. Windows build only.
#pragma once

#include "platform/text.h"

namespace QxHost {

// Redraws the window and saves the image that it has drawn, with its frame, as a PNG. Returns false if the
// picture could not be taken or written. Call it on the window's thread.
bool SaveWindowPicture(HWND window, const WString& path);

}  // namespace QxHost
