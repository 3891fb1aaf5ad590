// What the extension object and the form of its window share. The extension object holds it; it outlives
// every window.
#pragma once

#include <atomic>
#include <mutex>
#include <utility>

#include "multirename/engine/multi_rename_engine.h"
#include "multirename/saved/multi_rename_profiles.h"

namespace Velmora::SDK {

// The rows that the window is to show: a new selection, which the host's main thread puts in, or the entries
// of an undo session, which the window's does. Any thread.
//
// A new selection while a window is open: the main thread calls Set and then posts MRM_NEW_SELECTION to the
// panel. It posts and never sends, as the window's thread may be waiting for the main thread without taking
// messages; and it posts after Set, as the panel passes the message over if it shows the rows of Get already.
class SharedRows {
 public:
  SharedItems Get() const {
    const std::lock_guard lock(mutex_);
    return items_;
  }
  void Set(SharedItems items) {
    const std::lock_guard lock(mutex_);
    items_.swap(items);
  }

 private:
  mutable std::mutex mutex_;
  SharedItems items_;
};

struct RenameContext {
  IHostApp& host;
  MultiRenameEngine& engine;
  MultiRenameProfiles& profiles;  // loaded
  SharedRows rows;
  std::atomic<u32> imageSet{1};          // of the list, for the rows' images
  std::atomic<bool> hostClosing{false};  // nobody waits for the host's main thread any more
};

}  // namespace Velmora::SDK
