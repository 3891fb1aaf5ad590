// A run of find and replace over a list of files, with its questions, log lines and summary.
#pragma once

#include <cstdint>

#include "findreplace/engine/find_and_replace_options.h"
#include "findreplace/tool/confirm_replace_dlg.h"
#include "frame/host/host_app.h"
#include "frame/services/file_run.h"

namespace QXFindAndReplace {

class FindAndReplaceRun {
 public:
  // With `ownsFiles` the list is released at the end of the run.
  FindAndReplaceRun(Velmora::SDK::IHostApp& host, Velmora::SDK::IHostFileList* files,
                    const FindAndReplaceOptions& options, WString targetPattern, bool ownsFiles,
                    ConfirmReplaceDialog show = ShowConfirmReplaceDlg);

  // Goes through the files in their order, on the calling thread, which it blocks; a file that fails does not
  // stop the next. The outcome is in the log. Called once.
  void Run();

 private:
  void RunOne(Velmora::SDK::IHostFileItem& item);
  void ShowSummary();

  WString targetPattern;  // of BuildTargetName
  FindAndReplaceOptions
      options;  // its flags change in the run: a first yes and a Replace All hold for the rest (C-238)
  Velmora::SDK::IHostApp& host;
  Velmora::SDK::IHostFileList* files;
  Velmora::SDK::FileRunLists lists;
  bool ownsFiles;
  bool cancelled = false;
  std::uint32_t doneCount = 0;
  std::int64_t totalChanges = 0;  // a failed file lowers it by one (C-235)
  ConfirmReplaceDialog show_;     // how a match is asked about
};

// Makes the run and runs it; does nothing for an empty list, but for releasing it with `ownsFiles`.
void StartFindAndReplace(Velmora::SDK::IHostApp& host, Velmora::SDK::IHostFileList* files,
                         const FindAndReplaceOptions& options, const WString& targetPattern, bool ownsFiles);

}  // namespace QXFindAndReplace
