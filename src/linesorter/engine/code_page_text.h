// Characters and texts of the options in the thread's code page (WideCharToMultiByte with CP_THREAD_ACP).
#pragma once

#include "linesorter/engine/sort_lines_options.h"
#include "platform/text.h"

namespace WQLineSorter {

// Stores a character as the options' end character or separator, for both widths of text: as it is, and as
// the first byte that it has in the code page.
void SetMatchChar(SortLinesOptions& options, WCHAR character);

// Stores a date format: at most `limit` bytes of it (128 at most, the record's room), zero-terminated.
void SetDateFormat(SortLinesOptions& options, const WString& format, std::size_t limit);

// The stored format as wide text.
WString DateFormatText(const SortLinesOptions& options);

}  // namespace WQLineSorter
