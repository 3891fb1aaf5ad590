// The message of a failed call on a file, for readers and writers.
#pragma once

#include "data/data_exception.h"
#include "platform/text.h"

namespace WQDR {

// Throws WQDataReaderException with GetLastError as it was at the call, and `words` with the path behind them
// in the thread's code page (CP_THREAD_ACP). A path that has no form there leaves the words alone.
[[noreturn]] void ThrowLastError(const char* words, const WString& path);

}  // namespace WQDR
