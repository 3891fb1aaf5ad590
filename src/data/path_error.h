// Throws the exception for a failed call on a file, for readers and writers.
#pragma once

#include "data/data_exception.h"
#include "platform/text.h"

namespace WQDR {

// Throws WQDataReaderException with GetLastError as it was at the call, and `words` followed by the path in
// the thread's code page (CP_THREAD_ACP). The path is left out if it has no form there (C-040).
[[noreturn]] void ThrowLastError(const char* words, const WString& path);

}  // namespace WQDR
