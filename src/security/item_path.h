// The path of a host's item, for the tools of file security.
#pragma once

#include <optional>

#include "frame/host/host_files.h"

// Returns the full path of an item, read with a buffer of 4096 characters; empty for an item without a path.
// Returns std::nullopt if the path was truncated, because it would name another file. A path of 4095
// characters may have been truncated, so it is compared with the item's folder and name.
std::optional<WString> SecurityPathOf(Velmora::SDK::IHostFileItem& item);
