// Converts characters and texts of the options to and from the thread's code page (CP_THREAD_ACP).
#pragma once

#include "linesorter/engine/sort_lines_options.h"
#include "platform/text.h"

namespace WQLineSorter {

// Stores a character as the options' end character or separator, for both widths of text: in matchChar
// unchanged, and in matchCharA the first byte of its encoding in the code page.
void SetMatchChar(SortLinesOptions& options, WCHAR character);

// Stores the first `limit` bytes of a date format, at most 128, which is the room in the options, and
// terminates them with a zero.
void SetDateFormat(SortLinesOptions& options, const WString& format, std::size_t limit);

// Returns the stored date format as wide text.
WString DateFormatText(const SortLinesOptions& options);

}  // namespace WQLineSorter
