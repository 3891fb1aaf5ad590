// Renaming one file or folder.
#pragma once

#include "platform/text.h"

namespace QxHost {

// MoveFileW with full paths: never replaces what is there, but may change the letter case of a name. 0, or
// the error number.
DWORD MoveItem(const WString& from, const WString& to);

}  // namespace QxHost
