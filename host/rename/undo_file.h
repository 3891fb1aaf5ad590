// Reads and writes undo files without the risk of wrong names: a line that may be cut is never used, and a
// file is written completely or not at all.
#pragma once

#include <memory>

#include "host/rename/undo_notes.h"
#include "multirename/saved/multi_rename_undo.h"

namespace QxHost {

struct UndoFile {
  DWORD error = 0;  // of reading the file
  // Null if the file is not an undo file. Without entries if its only line is cut.
  std::unique_ptr<Velmora::SDK::MultiRenameUndo> session;
  UndoNotes notes;
  bool isLong = false;   // unread lines, other than notes, follow after kMaxUndoFileBytes
  bool isCut = false;    // the last line has no line end and was skipped, as it may name another file
  bool isWhole = false;  // the whole file was read and is in `text`
  WString text;
};

UndoFile ReadUndoFile(const WString& path);

// Returns whether the file begins as that of a run that was cut off or is still in progress.
bool IsPlan(const WString& path);

// Writes the session with its notes to the path, replacing an existing file, and flushes it to the disk.
// Returns 0 or an error number; an existing file is unchanged after an error. Uses the folder "writing" in
// the file's folder, and deletes it with anything that others have left there, so only one process at a time
// may write (LockInTurn).
DWORD WriteUndoFile(const WString& path, const Velmora::SDK::MultiRenameUndo& session,
                    const UndoNotes& notes);

// Writes a file that was read completely again, with the present `haveRestored` and the present noted files;
// the rest is unchanged. The result is as for WriteUndoFile.
DWORD RewriteUndoFile(const WString& path, const UndoFile& file);

}  // namespace QxHost
