// The placement of MultiRename's frame in the settings. Windows build only.
#pragma once

#include "frame/host/host_app.h"

namespace Velmora::SDK {

// Returns whether a stored placement can be used: its length is that of the structure, and its rectangle is
// possible for a window.
bool IsSanePlacement(const WINDOWPLACEMENT& placement);

// Gives the frame the stored size, limited to the screen, and centers it over its owner or in the work area.
// Does not use the stored position (C-679).
void PlaceFrame(IHostApp& host, HWND frame);

void StorePlacement(IHostApp& host, HWND frame);

}  // namespace Velmora::SDK
