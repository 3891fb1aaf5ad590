// Undo files as the host reads and writes them: a line that may be cut is never followed, and a file is there
// whole or not at all.
#pragma once

#include <memory>

#include "host/rename/undo_notes.h"
#include "multirename/saved/multi_rename_undo.h"

namespace QxHost {

struct UndoFile {
  DWORD error = 0;  // of reading it
  // Null for what is no undo file. Without entries if its only line is cut.
  std::unique_ptr<Velmora::SDK::MultiRenameUndo> session;
  UndoNotes notes;
  bool isLong =
      false;           // it goes on with other lines than notes after kMostOfUndoFile, and they were not read
  bool isCut = false;  // its last line has no line end, and was left out: it may name another file
  bool isWhole = false;  // all of it was read, and `text` is it
  WString text;
};

UndoFile ReadUndoFile(const WString& path);

// Whether the file begins as that of a run that was cut off, or is not at its end.
bool IsPlan(const WString& path);

// Writes the session with its notes under the path, in the place of a file that is there. It is on the disk
// then. 0, or an error number: then the file that was there is as it was. The folder "writing" in that of the
// file is for this, and is deleted again with what others have left there, so that one process at a time may
// write (LockInTurn).
DWORD WriteUndoFile(const WString& path, const Velmora::SDK::MultiRenameUndo& session,
                    const UndoNotes& notes);

// Writes a file that was read whole with the present `haveRestored` and the present noted files; all else
// stays as it is. As WriteUndoFile.
DWORD RewriteUndoFile(const WString& path, const UndoFile& file);

}  // namespace QxHost
