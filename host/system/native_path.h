// Converts texts and paths to the form of the native system. Native build only.
#pragma once

#include "platform/text.h"

namespace QxHost {

// Returns the text in UTF-8. An unpaired low surrogate U+DC80..U+DCFF becomes the byte that it encodes.
std::string NativeBytes(WStringView text);

// Returns a full path `Z:\a\b` as /a/b.
std::string NativePath(const WString& fullPath);

// Returns the Windows error number for an errno value of opening, writing or replacing a file.
DWORD NativeError(int number);

}  // namespace QxHost
