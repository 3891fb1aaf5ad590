// One run of renames that can be undone, in memory and as the text of its file.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <vector>

#include "multirename/engine/multi_rename_item.h"

namespace Velmora::SDK {

struct MultiRenameUndoEntry {
  SharedText folder;
  WString newName;
  WString oldName;
};

class MultiRenameUndo {
 public:
  // Appends an entry for each row, in order, or only for those in state StateRenamed. Does not set the date.
  void FromRows(std::span<MultiRenameItem* const> rows, bool onlyRenamed);

  // Returns the name of the file, such as "MultiRenameUndoData-2026-03-05-140709.dat". It is created from the
  // date by the first call and then stored, so that saving the session again replaces its file. Two sessions
  // of the same second have the same name (C-656).
  const WString& GetFileName();

  WString fileName;   // without a path; empty until it is first needed
  SYSTEMTIME date{};  // local, of the run
  bool haveRestored = false;
  bool isPartOfFile = false;                  // the file continues after the part that was read
  std::vector<MultiRenameUndoEntry> entries;  // in row order
};

// Returns the date and the time in the user's language, separated by a blank.
WString DateText(const MultiRenameUndo& session);

// Passes the text of the session's file to `write`, in pieces: UTF-16 without a byte order mark (C-651).
void WriteUndoText(const MultiRenameUndo& session, const std::function<void(WStringView)>& write);

// Reads a session from the bytes of such a file; only the first kMaxUndoFileBytes bytes are used. Returns
// null if they are not UTF-16 or contain no entries. Skips lines that are not valid entries, whatever number
// of items the file states (C-652). Does not set fileName.
std::unique_ptr<MultiRenameUndo> ReadUndoText(std::span<const std::uint8_t> bytes);
constexpr std::size_t kMaxUndoFileBytes = 0x500000;

}  // namespace Velmora::SDK
