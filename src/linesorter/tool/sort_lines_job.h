// Sorts a list of files, with questions, log lines and a closing message.
#pragma once

#include "frame/host/host_app.h"
#include "linesorter/engine/sort_lines_options.h"

namespace WQLineSorter {

struct SortLinesJob {
  Velmora::SDK::IHostApp& host;
  Velmora::SDK::IHostFileList* files;
  SortLinesOptions options;  // the first yes to a question sets SaveOverwrite for all later files (C-133)
  WString targetPattern;     // a pattern for BuildTargetName
  bool ownsFiles;            // release the list at the end of the run
};

// Sorts the files in order on the calling thread; continues after a file that fails. Then passes the sorted
// and the failed files to the host as two lists. If the user cancels at a question, the run ends at once,
// without lists and without a message. The result for each file is in the log.
void RunSortLinesJob(SortLinesJob& job);

}  // namespace WQLineSorter
