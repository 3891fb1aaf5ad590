// The images of rows: the shell's small ones, one set for all lists.
#pragma once

#include "frame/host/host_types.h"

namespace QxHost {

using Velmora::SDK::s64;
using Velmora::SDK::u32;

// The set's number, as IHostList::GetImageSet gives it.
constexpr u32 kShellImages = 5;

// A row without an image.
constexpr s64 kNoImage = -1;

// The image of a file by its name and attributes; the file is not looked at. 0 in the native build, which has
// none.
s64 ShellImageOf(const WString& fullPath, u32 attributes);

}  // namespace QxHost
