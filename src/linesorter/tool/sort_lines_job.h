// A run of the sorter over a list of files, with its questions, log lines and closing message.
#pragma once

#include "frame/host/host_app.h"
#include "linesorter/engine/sort_lines_options.h"

namespace WQLineSorter {

struct SortLinesJob {
  Velmora::SDK::IHostApp& host;
  Velmora::SDK::IHostFileList* files;
  SortLinesOptions options;  // SaveOverwrite is set by the first yes, for all later files (C-133)
  WString targetPattern;     // of BuildTargetName
  bool ownsFiles;            // the list is released at the end of the run
};

// Sorts the files in their order, on the calling thread; a file that fails does not stop the next. The sorted
// and the failed files go back to the host as two lists. A cancel at a question ends the run at once, without
// lists and without a message. The outcome is in the log.
void RunSortLinesJob(SortLinesJob& job);

}  // namespace WQLineSorter
