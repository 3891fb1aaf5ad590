// The information records of the three extensions, which GetExtensionInfo returns.
#pragma once

#include "frame/host/extension_info.h"

// Fills the record of the extension with this index. Bytes that the extension does not set remain unchanged
// (C-003).
void FillExtensionInfo(Velmora::SDK::u32 index, Velmora::SDK::ExtensionInfo& info);
