// The common part of runs over a list of files: the iteration over the list, and the two lists of results
// that are passed to the host.
#pragma once

#include "frame/host/host_app.h"
#include "frame/host/host_objects.h"

namespace Velmora::SDK {

// The category of all lines that a run logs.
inline constexpr u32 kRunLogCategory = 0;

// The files that a run has processed and those that failed. If the host refuses to create a list, its files
// are not recorded.
class FileRunLists {
 public:
  explicit FileRunLists(IHostApp& host)
      : host_(host), failed_(host.CreateFileList()), done_(host.CreateFileList()) {}

  void AddDone(IHostFileItem& item) { AddTo(done_, item); }
  void AddFailed(IHostFileItem& item) { AddTo(failed_, item); }
  bool HasFailed() const { return failed_ && failed_->GetCount() != 0; }

  void ReportDone() { ReportList(done_, kDoneFiles); }
  void ReportFailed() { ReportList(failed_, kFailedFiles); }

  void Release() {
    done_.Release();
    failed_.Release();
  }

 private:
  // Modes of kListResult.
  static constexpr u32 kDoneFiles = 0;
  static constexpr u32 kFailedFiles = 1;

  static void AddTo(HostObject<IHostFileList>& list, IHostFileItem& item) {
    if (list) list->AddItem(&item);
  }
  void ReportList(HostObject<IHostFileList>& list, u32 mode) {
    if (list) host_.FileListRequest(kListResult, list.Get(), mode, 0);
  }

  IHostApp& host_;
  HostObject<IHostFileList> failed_;
  HostObject<IHostFileList> done_;
};

// Calls `runOne(item)` for the files of a list in order, and `onMissing()` for each index without an item,
// until `runOne` returns false. Returns false in that case, otherwise true. `count` is the number of items in
// the list.
template <typename RunOne, typename OnMissing>
bool RunOverFiles(IHostFileList& files, u32 count, RunOne runOne, OnMissing onMissing) {
  for (u32 index = 0; index < count; ++index) {
    IHostFileItem* const item = files.GetItem(index);
    if (!item) {
      onMissing();
    } else if (!runOne(*item)) {
      return false;
    }
  }
  return true;
}

}  // namespace Velmora::SDK
