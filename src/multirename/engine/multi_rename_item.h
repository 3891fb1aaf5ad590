// The rows of MultiRename: one item for each file or folder, and the set of them that a window, the engine
// and a list share.
//
// Threads: rows are made on the host's main thread or the window's, and read on all. While the worker
// computes, only it writes `state` and the new name, and only through StoreNewName; others read the name
// through CopyNewName then. While the worker is idle, `newName` itself may be read.
#pragma once

#include <atomic>
#include <deque>
#include <memory>

#include "frame/host/host_app.h"
#include "multirename/engine/shared_text.h"

namespace Velmora::SDK {

class MultiRenameUndo;

// A file name can hold no more; a text that grows beyond it under the rules is cut there.
constexpr std::size_t kLongestName = 32767;

enum ItemState : u32 {
  StateReady = 0,        // computed, nothing against it
  StateDuplicate = 1,    // the new name equals the new name of the first row
  StateInvalidName = 2,  // the new name holds a forbidden character
  StateFailed = 3,       // the host refused the rename
  StateIgnored = 4,      // the host reported code 10 for the rename
  StateSkipped = 5,      // reserved: rows in it are not computed, and nothing assigns it (C-616)
  StateRenamed = 6       // renamed, or loaded from an undo session
};

// True for a row that keeps a run from starting.
constexpr bool BlocksStart(u32 state) { return state >= StateDuplicate && state <= StateIgnored; }

class MultiRenameItem {
 public:
  MultiRenameItem() = default;
  // A row of a host's item: folder and name are asked for, each into a buffer of 4096 characters. A folder of
  // the same path as `neighbour` shares its text.
  explicit MultiRenameItem(IHostFileItem& item, const SharedText& neighbour = {});
  MultiRenameItem(const MultiRenameItem&) = delete;
  MultiRenameItem& operator=(const MultiRenameItem&) = delete;

  // Replaces the new name; its memory is used again. For the worker.
  void StoreNewName(WStringView name);
  // Copies the new name, cut at the buffer's size and terminated. Any thread, at any time; a row that is
  // being computed gives the old or the new text, never a mixture.
  void CopyNewName(WCHAR* buffer, u32 size) const;

  u32 tag = 0;            // kItemTag for an item of the host's
  SharedText folderPath;  // as the host gives it
  WString oldName;        // never changes, not even after a successful rename (C-672)
  WString newName;
  std::atomic<u32> state{StateReady};
  bool isFolder = false;              // then the name has no extension
  s64 rowImage = 0;                   // -1 until the list first asks; 0 without a host item
  IHostFileItem* hostItem = nullptr;  // the host's; null for a row of an undo session

 private:
  mutable std::atomic_flag copying_;  // held for the copy of one name
};

constexpr u32 kItemTag = 0xDEAD7654;

// Rows stay where they are for as long as anybody holds the set: the engine that still computes them, or a
// list that still shows them. A new selection is a new set.
using MultiRenameItems = std::deque<MultiRenameItem>;
using SharedItems = std::shared_ptr<MultiRenameItems>;

// Reads the host's selection (FileListRequest 21215 with mode 16) into a new set. On the host's main thread.
// Never null; empty if the host gives no list or no items.
SharedItems ReadSelection(IHostApp& host);

// One row in state StateRenamed for each entry of a session, in its order. They have no host item.
SharedItems LoadSession(const MultiRenameUndo& session);

}  // namespace Velmora::SDK
