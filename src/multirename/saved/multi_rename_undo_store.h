// The folder of all undo files. On the window's thread; the worker uses it at the end of a run, while the
// window waits for it. No error of a file is reported, but for that of Delete.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "frame/host/host_app.h"
#include "multirename/saved/multi_rename_undo.h"

namespace Velmora::SDK {

class MultiRenameUndoStore {
 public:
  // Without a host, or with one that has no configuration folder, there is no folder: nothing is read or
  // written. Otherwise it is "Undo" in that one and is made, with the folders above it; that it cannot be
  // made is ignored.
  explicit MultiRenameUndoStore(IHostApp* host);

  // Reads all files of the folder, in its order and whatever their names (C-655), once. Does not go into its
  // folders.
  void Load();

  // Reads the same files, but holds one session at a time. `use` may delete its file.
  void ForEachSession(const std::function<void(std::unique_ptr<MultiRenameUndo>)>& use) const;

  // Writes the session's file, over one that is there. A file that cannot be written whole is deleted: its
  // last line might name another file. One of which only a part was read is left as it is, and would lose the
  // rest; that it was restored is not kept then.
  void Save(MultiRenameUndo& session) const;

  // Deletes the session's file (DeleteFileW) and then the session. False, with nothing changed, if it is none
  // of the store's or its file cannot be deleted.
  bool Delete(const MultiRenameUndo* session);

  // Deletes every session whose file can be deleted.
  void DeleteAll();

  // True if the session is one of the store's; a pointer to one that is gone is not followed.
  bool Holds(const MultiRenameUndo* session) const;

  // Where the session's file is.
  WString PathOf(MultiRenameUndo& session) const;

  bool loaded = false;  // the folder was read
  WString folder;       // ends in a backslash; empty if there is none
  std::vector<std::unique_ptr<MultiRenameUndo>> sessions;
};

}  // namespace Velmora::SDK
