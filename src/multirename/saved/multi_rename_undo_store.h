// The folder of all undo files. Used on the window's thread, and by the worker at the end of a run, while the
// window waits for it. Errors of files are not reported, except by Delete.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "frame/host/host_app.h"
#include "multirename/saved/multi_rename_undo.h"

namespace Velmora::SDK {

class MultiRenameUndoStore {
 public:
  // Creates the folder "Undo", with the folders above it, in the host's configuration folder; a failure is
  // ignored. Without a host or a configuration folder there is no folder, and nothing is read or written.
  explicit MultiRenameUndoStore(IHostApp* host);

  // Reads all files of the folder, in its order and whatever their names (C-655). Only the first call does
  // so. Does not read subfolders.
  void Load();

  // Reads the same files, with only one session in memory at a time. `use` may delete the session's file.
  void ForEachSession(const std::function<void(std::unique_ptr<MultiRenameUndo>)>& use) const;

  // Writes the session's file, which may exist. Deletes a file that cannot be written completely, as its last
  // line might name a different file. Does nothing for a session of which only a part was read, as the rest
  // of the file would be lost; that such a session was restored is not stored.
  void Save(MultiRenameUndo& session) const;

  // Deletes the session's file (DeleteFileW) and then the session. Changes nothing and returns false if the
  // session is not in the store or its file cannot be deleted.
  bool Delete(const MultiRenameUndo* session);

  // Deletes every session whose file can be deleted.
  void DeleteAll();

  // Returns whether the session is in the store. Does not dereference the pointer.
  bool Contains(const MultiRenameUndo* session) const;

  // Returns the path of the session's file.
  WString PathOf(MultiRenameUndo& session) const;

  bool loaded = false;  // the folder has been read
  WString folder;       // ends in a backslash; empty if undo files have no folder
  std::vector<std::unique_ptr<MultiRenameUndo>> sessions;
};

}  // namespace Velmora::SDK
