// The place of MultiRename's frame in the settings. Windows build only.
#pragma once

#include "frame/host/host_app.h"

namespace Velmora::SDK {

// Whether a stored placement can be used: it has the size of its own record, and a rectangle that a window
// can have.
bool IsSanePlacement(const WINDOWPLACEMENT& placement);

// Gives the frame the size that is stored, within the screen, and puts it in the middle: of its owner, or of
// the work area. The stored position is not used (C-679).
void PlaceFrame(IHostApp& host, HWND frame);

void StorePlacement(IHostApp& host, HWND frame);

}  // namespace Velmora::SDK
