// Functions that differ between the systems: the folders of the program and of the user's settings, and the
// replacement of a file.
#pragma once

#include "platform/text.h"

namespace QxHost {

// Returns the folder of this program, as a full path without a separator at its end; empty if it is unknown.
WString ProgramFolder();

// Returns the folder for the user's settings: %APPDATA% on Windows, otherwise $XDG_CONFIG_HOME or ~/.config;
// empty if it is unknown.
WString UserConfigFolder();

// Returns the file name of the module in this build.
const WCHAR* ModuleFileName();

// Flushes the file `from` to the disk and renames it to `to`, replacing that file atomically: other programs
// see either the old or the new file. Returns 0 or an error number; after an error `to` is unchanged.
DWORD TakePlaceOf(const WString& from, const WString& to);

}  // namespace QxHost
