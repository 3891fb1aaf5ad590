// The undo file of one run: it is there before the first rename, with all that is planned, and after the last
// one with what was done.
#pragma once

#include "host/output/output.h"
#include "host/rename/undo_lock.h"
#include "multirename/saved/multi_rename_undo_store.h"

namespace QxHost {

class RunUndo {
 public:
  RunUndo(Output& output, const Velmora::SDK::MultiRenameUndoStore& store) : output_(output), store_(store) {}

  // Before the run: waits for other runs, takes a file name that no file has, which the lock keeps, and
  // writes what is planned, if anything is. False, after a message, if that cannot be written whole. Files of
  // independent renames exchange no names.
  bool Begin(Velmora::SDK::MultiRenameUndo planned, bool areIndependent = false);

  // After the run: gives the session that was done, or null, the name and the date, and writes it in the
  // place of what was planned. False, after a message, if it could not be; what was planned stays then.
  // Without a session the file is deleted.
  bool End(Velmora::SDK::MultiRenameUndo* done);

  // Deletes the file again, which takes nothing back.
  void Delete();

 private:
  // Gives the session the first moment from now on of which there is no file.
  void TakeName(Velmora::SDK::MultiRenameUndo& session) const;

  Output& output_;
  const Velmora::SDK::MultiRenameUndoStore& store_;
  UndoLock lock_;
  SYSTEMTIME date_{};
  WString fileName_;
  bool hasPlan_ = false;
};

}  // namespace QxHost
