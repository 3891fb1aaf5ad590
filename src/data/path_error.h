// Throws the exception for a failed call on a file, for readers and writers.
#pragma once

#include "data/data_exception.h"
#include "platform/text.h"

namespace WQDR {

// Throws WQDataReaderException with the value of GetLastError and the text `words` followed by the path in
// the thread's code page (CP_THREAD_ACP). Omits a path that cannot be converted (C-040).
[[noreturn]] void ThrowLastError(const char* words, const WString& path);

}  // namespace WQDR
