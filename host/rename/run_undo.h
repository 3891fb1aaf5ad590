// The undo file of one run: it is there before the first rename, with all that is planned, and after the last
// one with what was done.
#pragma once

#include <vector>

#include "host/output/output.h"
#include "host/rename/undo_lock.h"
#include "host/rename/undo_notes.h"
#include "multirename/saved/multi_rename_undo_store.h"

namespace QxHost {

// Waits until no other process has the lock of runs that write undo files, of undos and of deletions. 0, or
// an error number if no lock can be had in the folder.
DWORD LockUndoFiles(UndoLock& lock, const Velmora::SDK::MultiRenameUndoStore& store, Output& output);

class RunUndo {
 public:
  RunUndo(Output& output, const Velmora::SDK::MultiRenameUndoStore& store) : output_(output), store_(store) {}

  // Before the run is planned, so that no other one changes names in between.
  void Lock();

  // Before the run: takes a file name that no file has, which the lock keeps, and writes what is planned, if
  // anything is. `areIndependent` if no name of it is in another one's way. False, after a message, if that
  // cannot be written whole.
  bool Begin(Velmora::SDK::MultiRenameUndo planned, bool areIndependent = false);

  // After the run: gives the session that was done, or null, the name and the date, and writes it in the
  // place of what was planned. False, after a message, if it could not be; what was planned stays then.
  // Without a session the file is deleted.
  bool End(Velmora::SDK::MultiRenameUndo* done);

  // Deletes the file again, which takes nothing back.
  void Delete();

  // Lets the next run, undo or deletion begin.
  void Unlock();

  // Of the session that End has written.
  const NotedFiles& Noted() const { return notes_.files; }

  // The name of the file with what was planned; empty if nothing was.
  const WString& PlanName() const { return hasPlan_ ? fileName_ : kNoName; }

 private:
  inline static const WString kNoName;

  // Gives the session the first moment from now on of which there is no file.
  void TakeName(Velmora::SDK::MultiRenameUndo& session) const;
  // What was noted of the planned entries, by entry of the session.
  NotedFiles NotedOf(const Velmora::SDK::MultiRenameUndo& session) const;

  Output& output_;
  const Velmora::SDK::MultiRenameUndoStore& store_;
  UndoLock lock_;
  bool isLocked_ = false;
  DWORD lockError_ = ERROR_SUCCESS;
  SYSTEMTIME date_{};
  WString fileName_;
  bool hasPlan_ = false;
  UndoNotes notes_;
  std::vector<Velmora::SDK::MultiRenameUndoEntry> planned_;  // empty if nothing was noted
};

}  // namespace QxHost
