// The information records of the three extensions, which GetExtensionInfo returns.
#pragma once

#include "frame/host/extension_info.h"

// Fills the record of the extension; the bytes that its row does not name stay as they are (C-003).
void FillExtensionInfo(Velmora::SDK::u32 index, Velmora::SDK::ExtensionInfo& info);
