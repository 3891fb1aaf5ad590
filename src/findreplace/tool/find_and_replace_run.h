// Replaces text in a list of files, with questions, log lines and a summary.
#pragma once

#include <cstdint>

#include "findreplace/engine/find_and_replace_options.h"
#include "findreplace/tool/confirm_replace_dlg.h"
#include "frame/host/host_app.h"
#include "frame/services/file_run.h"

namespace QXFindAndReplace {

class FindAndReplaceRun {
 public:
  // If `ownsFiles` is true, releases the list at the end of the run.
  FindAndReplaceRun(Velmora::SDK::IHostApp& host, Velmora::SDK::IHostFileList* files,
                    const FindAndReplaceOptions& options, WString targetPattern, bool ownsFiles,
                    ConfirmReplaceDialog show = ShowConfirmReplaceDlg);

  // Processes the files in order on the calling thread; continues after a file that fails. The result for
  // each file is in the log. May be called only once.
  void Run();

 private:
  void RunOne(Velmora::SDK::IHostFileItem& item);
  void ShowSummary();

  WString targetPattern;  // a pattern for BuildTargetName
  // A first yes to a question and Replace All set flags for all later files (C-237, C-238).
  FindAndReplaceOptions options;
  Velmora::SDK::IHostApp& host;
  Velmora::SDK::IHostFileList* files;
  Velmora::SDK::FileRunLists lists;
  bool ownsFiles;
  bool cancelled = false;
  std::uint32_t doneCount = 0;
  std::int64_t totalChanges = 0;  // a failed file reduces it by one (C-235)
  ConfirmReplaceDialog show_;     // shows the question about a match
};

// Runs Find and Replace over the files. Does nothing for an empty list, except release it if `ownsFiles` is
// true.
void StartFindAndReplace(Velmora::SDK::IHostApp& host, Velmora::SDK::IHostFileList* files,
                         const FindAndReplaceOptions& options, const WString& targetPattern, bool ownsFiles);

}  // namespace QXFindAndReplace
