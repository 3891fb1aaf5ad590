#include "host/rename/run_undo.h"

#include "host/output/error_text.h"
#include "host/rename/planned_undo.h"
#include "host/rename/undo_file.h"
#include "host/services/lock_in_turn.h"
#include "host/system/paths.h"
#include "multirename/saved/undo_date.h"

namespace QxHost {

using Velmora::SDK::DateOfSeconds;
using Velmora::SDK::MultiRenameUndo;
using Velmora::SDK::SecondsOfDate;

void RunUndo::TakeName(MultiRenameUndo& session) const {
  SYSTEMTIME now{};
  GetLocalTime(&now);
  const auto first = SecondsOfDate(now);
  for (auto second = first;; ++second) {
    session.date = second == first ? now : DateOfSeconds(second);
    session.fileName.clear();
    if (GetFileAttributesW(SystemPath(store_.PathOf(session)).c_str()) == INVALID_FILE_ATTRIBUTES) return;
  }
}

bool RunUndo::Begin(MultiRenameUndo planned, bool areIndependent) {
  DWORD error = LockInTurn(lock_, store_.folder + W("qxhost.lock"), output_);
  if (error == ERROR_SUCCESS) {
    TakeName(planned);
    date_ = planned.date;
    fileName_ = planned.fileName;
    hasPlan_ = !planned.entries.empty();
    if (hasPlan_) {
      error = WriteUndoFile(store_.PathOf(planned), planned, HeadOfPlannedUndo(planned, areIndependent));
    }
  }
  if (error == ERROR_SUCCESS) return true;
  output_.Problem("no undo file can be written in " + ToUtf8(store_.folder) + ": " + ErrorText(error) +
                  ". Nothing was renamed; --no-undo renames without one");
  return false;
}

bool RunUndo::End(MultiRenameUndo* done) {
  if (!done) {
    if (hasPlan_) Delete();
    return true;
  }
  done->date = date_;
  done->fileName = fileName_;
  const WString path = store_.PathOf(*done);
  const DWORD error = WriteUndoFile(path, *done, {});
  if (error == ERROR_SUCCESS) return true;
  output_.Problem("the undo file could not be written: " + ToUtf8(path) + ": " + ErrorText(error) +
                  (hasPlan_ ? ". The one from before the run stays, and takes back what was renamed" : ""));
  return false;
}

void RunUndo::Delete() { DeleteFileW(SystemPath(store_.folder + fileName_).c_str()); }

}  // namespace QxHost
