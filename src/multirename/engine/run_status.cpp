#include "multirename/engine/run_status.h"

#include <string>

#include "frame/host/host_files.h"

namespace Velmora::SDK {

void RunStatus::CountResult(u32 resultCode) {
  std::atomic<u32>& counter = resultCode == kRenameDone      ? succeeded
                              : resultCode == kRenameIgnored ? ignored
                                                             : failed;
  ++counter;
}

void RunStatus::SetError(WStringView text) {
  const std::lock_guard lock(mutex_);
  hasError_ = true;
  errorText_ = text;
}

void RunStatus::ClearError() {
  const std::lock_guard lock(mutex_);
  hasError_ = false;
  errorText_.clear();
}

bool RunStatus::HasError() const {
  const std::lock_guard lock(mutex_);
  return hasError_;
}

WString RunStatus::ErrorText() const {
  const std::lock_guard lock(mutex_);
  return errorText_;
}

void RunStatus::BeginRun(RunKind kind) {
  ClearError();
  succeeded = 0;
  failed = 0;
  ignored = 0;
  runKind = kind;
}

WString StatusText(const RunStatus& status) {
  if (status.HasError()) return status.ErrorText();
  const u32 kind = status.runKind;
  if (kind != kRenameRun && kind != kRestoreRun) return {};
  const struct {
    u32 count;
    const char* word;
  } counts[] = {
      {status.succeeded, kind == kRenameRun ? " Renamed" : " Restored"},
      {status.ignored, " Ignored"},
      {status.failed, " Failed"},
  };
  std::string text;
  for (const auto& [count, word] : counts) {
    if (count == 0) continue;
    if (!text.empty()) text += ", ";
    // A signed number, as with %d.
    text += std::to_string(static_cast<s32>(count)) + word;
  }
  return FromUtf8(text);
}

}  // namespace Velmora::SDK
