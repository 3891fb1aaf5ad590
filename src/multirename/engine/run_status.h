// The result of a run, written by the worker and the host's callbacks and read by the window.
#pragma once

#include <atomic>
#include <mutex>

#include "frame/host/host_types.h"

namespace Velmora::SDK {

enum RunKind : u32 { kNoRun = 0, kRenameRun = 2, kRestoreRun = 3 };

// May be used on any thread.
class RunStatus {
 public:
  std::atomic<u32> runKind{kNoRun};
  std::atomic<u32> succeeded{0};  // code 0
  std::atomic<u32> failed{0};     // any other code
  std::atomic<u32> ignored{0};    // code 10

  // Adds a result to the count of its code.
  void CountResult(u32 resultCode);

  // The error of a rule that could not be compiled: the compiler's message.
  void SetError(WStringView text);
  void ClearError();
  bool HasError() const;
  WString ErrorText() const;

  // Sets all counters to zero and clears the error, for a new run.
  void BeginRun(RunKind kind);

 private:
  mutable std::mutex mutex_;  // guards the error
  bool hasError_ = false;
  WString errorText_;
};

// Returns the text of the status bar's second pane: the error, or the counts of the last run that are not
// zero ("3 Renamed, 1 Failed"), or nothing.
WString StatusText(const RunStatus& status);

}  // namespace Velmora::SDK
