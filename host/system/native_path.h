// Texts and paths as the system below the native build takes them.
#pragma once

#include "platform/text.h"

namespace QxHost {

// UTF-8, where a low surrogate U+DC80..U+DCFF without its high one is the byte that it stands for.
std::string NativeBytes(WStringView text);

// A full path, `Z:\a\b`, as /a/b.
std::string NativePath(const WString& fullPath);

// The error number of the host for an errno of opening, writing or replacing a file.
DWORD NativeError(int number);

}  // namespace QxHost
