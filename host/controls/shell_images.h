// The images of rows: the shell's small images. All lists use the same set.
#pragma once

#include "frame/host/host_types.h"

namespace QxHost {

using Velmora::SDK::s64;
using Velmora::SDK::u32;

// The number of the set, as IHostList::GetImageSet returns it.
constexpr u32 kShellImages = 5;

// The image of a row that has none.
constexpr s64 kNoImage = -1;

// Returns the image for a file name and attributes, without accessing the file. Returns 0 in the native
// build, which has no images.
s64 ShellImageOf(const WString& fullPath, u32 attributes);

}  // namespace QxHost
