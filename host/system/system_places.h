// What each system answers in its own way: where the program and the user's settings are, and how a file
// takes the place of another.
#pragma once

#include "platform/text.h"

namespace QxHost {

// The folder of this program, as a full path without a separator at its end. Empty if the system does not
// tell.
WString ProgramFolder();

// Where programs keep the user's settings: %APPDATA% on Windows, else $XDG_CONFIG_HOME or ~/.config. Empty if
// the system does not tell.
WString UserConfigFolder();

// File name of the module in this build.
const WCHAR* ModuleFileName();

// Puts the file `from` on the disk and in the place of `to`, in one step: whoever looks sees the old file or
// the new one. 0, or the error number; then `to` is as it was.
DWORD TakePlaceOf(const WString& from, const WString& to);

}  // namespace QxHost
