// The path of a host's item, as the tools of file security take it.
#pragma once

#include <optional>

#include "frame/host/host_files.h"

// The full path of an item, fetched with a limit of 4096 characters; empty for an item without one. Nothing
// for one that the limit has cut: a cut path would be another file's. A path of 4095 characters, which is as
// long as a cut one, is compared with the item's folder and name.
std::optional<WString> SecurityPathOf(Velmora::SDK::IHostFileItem& item);
