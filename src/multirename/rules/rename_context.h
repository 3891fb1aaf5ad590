// The state that the extension object shares with the form of its window. The extension object owns it, and
// it outlives every window.
#pragma once

#include <atomic>
#include <mutex>
#include <utility>

#include "multirename/engine/multi_rename_engine.h"
#include "multirename/saved/multi_rename_profiles.h"

namespace Velmora::SDK {

// The rows that the window shows: a new selection, set by the host's main thread, or the entries of an undo
// session, set by the window's thread. May be used on any thread.
//
// If a window is open, the main thread calls Set and then posts MRM_NEW_SELECTION to the panel. It must not
// send the message, as the window's thread may be waiting for the main thread without processing messages. It
// must post after Set, as the panel ignores the message if it already shows the rows that Get returns.
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
  MultiRenameProfiles& profiles;  // already loaded
  SharedRows rows;
  std::atomic<u32> imageSet{1};          // the list's image set, from which the images of the rows are taken
  std::atomic<bool> hostClosing{false};  // threads no longer wait for the host's main thread
};

}  // namespace Velmora::SDK
