// The rows of MultiRename: one item for each file or folder, and the set of items that a window, the engine
// and a list share.
//
// Threads: rows are created on the host's main thread or the window's, and read on all threads. While the
// worker computes, only the worker writes `state` and the new name, the latter only with StoreNewName; other
// threads then read the name with CopyNewName. While the worker is idle, `newName` itself may be read.
#pragma once

#include <atomic>
#include <deque>
#include <memory>

#include "frame/host/host_app.h"
#include "multirename/engine/shared_text.h"

namespace Velmora::SDK {

class MultiRenameUndo;

// The longest name that a file can have. The rules cut longer texts.
constexpr std::size_t kLongestName = 32767;

enum ItemState : u32 {
  StateReady = 0,        // computed, without a conflict
  StateDuplicate = 1,    // the new name equals the new name of the first row
  StateInvalidName = 2,  // the new name contains a forbidden character
  StateFailed = 3,       // the host reported a failure
  StateIgnored = 4,      // the host reported code 10 for the rename
  StateSkipped = 5,      // reserved: rows in this state are not computed, and nothing sets it (C-616)
  StateRenamed = 6       // renamed, or loaded from an undo session
};

// Returns whether a row in this state prevents a run from starting.
constexpr bool BlocksStart(u32 state) { return state >= StateDuplicate && state <= StateIgnored; }

class MultiRenameItem {
 public:
  MultiRenameItem() = default;
  // Creates the row of an item of the host. Reads its folder and its name into buffers of 4096 characters
  // each. If the folder's path equals `neighbour`, both share one text.
  explicit MultiRenameItem(IHostFileItem& item, const SharedText& neighbour = {});
  MultiRenameItem(const MultiRenameItem&) = delete;
  MultiRenameItem& operator=(const MultiRenameItem&) = delete;

  // Replaces the new name and reuses its memory. Only the worker calls it.
  void StoreNewName(WStringView name);
  // Copies the new name, cut at the buffer's size in characters and terminated. May be called on any thread
  // at any time; while the row is being computed, copies the old or the new text, never a mixture.
  void CopyNewName(WCHAR* buffer, u32 size) const;

  u32 tag = 0;            // kItemTag for an item of the host
  SharedText folderPath;  // as the host returns it
  WString oldName;        // never changes, not even after a successful rename (C-672)
  WString newName;
  std::atomic<u32> state{StateReady};
  bool isFolder = false;              // a folder's name has no extension
  s64 rowImage = 0;                   // -1 until the list first requests it; 0 without a host item
  IHostFileItem* hostItem = nullptr;  // null for a row of an undo session

 private:
  mutable std::atomic_flag copying_;  // set while the name is copied
};

constexpr u32 kItemTag = 0xDEAD7654;

// The address of a row does not change while the set has an owner: the engine, which may still compute it, or
// a list, which may still show it. A new selection is a new set.
using MultiRenameItems = std::deque<MultiRenameItem>;
using SharedItems = std::shared_ptr<MultiRenameItems>;

// Reads the host's selection (FileListRequest 21215 with mode 16) into a new set. Call it on the host's main
// thread. Never returns null; the set is empty if the host provides no list or no items.
SharedItems ReadSelection(IHostApp& host);

// Creates one row in state StateRenamed for each entry of a session, in its order. The rows have no host
// item.
SharedItems LoadSession(const MultiRenameUndo& session);

}  // namespace Velmora::SDK
