// The sort of one file, from its format to its output.
#pragma once

#include <string>

#include "linesorter/engine/sort_lines_options.h"
#include "platform/text.h"

namespace WQLineSorter {

struct SortResult {
  std::string message;
  DWORD errorCode = 0;  // a Windows error number, 0 for success
};

// Sorts `source` into `target`, which may be the same path: the source is closed before the output begins.
// Returns 0, or the error number that is in `result` with its text. Nothing is rolled back: a write that
// fails leaves the partial target, and the backup if one was made. With SaveDeleteBackup and a target that
// did not exist, the target just written is deleted (C-131).
//
// 1630 "Text format not supported": UTF-8 that says so (C-101), or binary. 80 "Target file already exists":
// SaveAsNewFile without SaveOverwrite. 14: no memory, or a line too long to load. 87 "Unsupported date
// format". Others as the readers, the detection and the writer say. std exceptions of other kinds pass.
DWORD SortFile(SortResult& result, const WString& source, const WString& target,
               const SortLinesOptions& options);

}  // namespace WQLineSorter
