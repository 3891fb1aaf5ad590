// The undo file of one run. It exists before the first rename, with all planned renames, and contains those
// that were done after the last one.
#pragma once

#include <vector>

#include "host/output/output.h"
#include "host/rename/undo_lock.h"
#include "host/rename/undo_notes.h"
#include "multirename/saved/multi_rename_undo_store.h"

namespace QxHost {

// Waits for the lock that allows only one run with an undo file, undo or deletion at a time, and takes it.
// Returns 0, or an error number if the folder cannot have a lock.
DWORD LockUndoFiles(UndoLock& lock, const Velmora::SDK::MultiRenameUndoStore& store, Output& output);

class RunUndo {
 public:
  RunUndo(Output& output, const Velmora::SDK::MultiRenameUndoStore& store) : output_(output), store_(store) {}

  // Takes the lock. Call it before the run is planned, so that no other run changes names in between.
  void Lock();

  // Call it before the run. Chooses a file name that is not in use, which the lock reserves, and writes the
  // planned renames, if there are any. `areIndependent` is true if no name conflicts with another. Returns
  // false, after a message, if the file cannot be written completely.
  bool Begin(Velmora::SDK::MultiRenameUndo planned, bool areIndependent = false);

  // Call it after the run. Sets the name and the date of the session that was done and writes it over the
  // plan; if `done` is null, deletes the file. Returns false, after a message, if writing fails; the plan
  // then remains.
  bool End(Velmora::SDK::MultiRenameUndo* done);

  // Deletes the file, which would undo nothing.
  void Delete();

  // Releases the lock, so that the next run, undo or deletion can begin.
  void Unlock();

  // Returns the noted files of the session that End has written.
  const NotedFiles& Noted() const { return notes_.files; }

  // Returns the name of the file with the plan; empty if there is no plan.
  const WString& PlanName() const { return hasPlan_ ? fileName_ : kNoName; }

 private:
  inline static const WString kNoName;

  // Sets the session's date to the first second from now on for which no file exists, and its name
  // accordingly.
  void TakeName(Velmora::SDK::MultiRenameUndo& session) const;
  // Returns the noted files of the plan for the entries of the session.
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
