// Undo files as the host reads and writes them: a line that may be cut is never followed, and a file is there
// whole or not at all.
#pragma once

#include <memory>

#include "multirename/saved/multi_rename_undo.h"

namespace QxHost {

struct UndoFile {
  DWORD error = 0;  // of reading it
  // Null for what is no undo file. Without entries if its only line is cut.
  std::unique_ptr<Velmora::SDK::MultiRenameUndo> session;
  WString head;          // the comments before the first other line
  bool isLong = false;   // longer than kMostOfUndoFile, which is all that was read
  bool isCut = false;    // its last line has no line end, and was left out: it may name another file
  bool isWhole = false;  // all of it was read
};

UndoFile ReadUndoFile(const WString& path);

// Writes the session under the path, with `head` before it, and in the place of a file that is there. It is
// on the disk then. 0, or an error number: then the file that was there is as it was.
DWORD WriteUndoFile(const WString& path, const Velmora::SDK::MultiRenameUndo& session, const WString& head);

}  // namespace QxHost
