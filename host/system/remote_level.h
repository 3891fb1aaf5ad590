// Tells whether an item is on this machine or on another one.
#pragma once

#include <cstdint>

#include "platform/text.h"

namespace QxHost {

// Returns whether the drive (`Z:`) is a network drive. Always false in the native build.
bool IsNetworkDrive(const WString& drive);

// Returns 1 for the root of a server (`\\server\share`) and for a drive for which `isNetworkDrive` returns
// true; otherwise 0.
std::int32_t RemoteLevelOfRoot(const WString& root, bool (*isNetworkDrive)(const WString&) = IsNetworkDrive);

}  // namespace QxHost
