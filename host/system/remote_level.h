// How far away an item is: on this machine or on another.
#pragma once

#include <cstdint>

#include "platform/text.h"

namespace QxHost {

// Whether the system says that the drive (`Z:`) is one of the network. Never natively.
bool IsNetworkDrive(const WString& drive);

// 1 for what lies in the root of a server (`\\server\share`) or of a drive that `isNetworkDrive` says is one;
// otherwise 0.
std::int32_t RemoteLevelOfRoot(const WString& root, bool (*isNetworkDrive)(const WString&) = IsNetworkDrive);

}  // namespace QxHost
