// One run of renames that can be taken back, in memory and as the text of its file.
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
  // Appends an entry for each row, in order, or only for those in state StateRenamed. Leaves the date alone.
  void FromRows(std::span<MultiRenameItem* const> rows, bool onlyRenamed);

  // "MultiRenameUndoData-2026-03-05-140709.dat": made of the date when it is first asked for, and kept, so
  // that writing the session again replaces its file. Two sessions of one second have one name (C-656).
  const WString& GetFileName();

  WString fileName;   // without a path; empty until it was first needed
  SYSTEMTIME date{};  // local, of the run
  bool haveRestored = false;
  bool isPartOfFile = false;                  // the file goes on after what was read of it
  std::vector<MultiRenameUndoEntry> entries;  // in row order
};

// The date and the time in the user's language, with a blank between.
WString DateText(const MultiRenameUndo& session);

// Passes the text of the session's file to `write`, piece by piece: UTF-16 without a byte order mark (C-651).
void WriteUndoText(const MultiRenameUndo& session, const std::function<void(WStringView)>& write);

// Reads the bytes of such a file, of which the first kMostOfUndoFile count. Returns null for what is not
// UTF-16 and for a file without entries. A damaged file loses the lines that do not fit, whatever number of
// items it names (C-652). The file's name is left to the caller.
std::unique_ptr<MultiRenameUndo> ReadUndoText(std::span<const std::uint8_t> bytes);
constexpr std::size_t kMostOfUndoFile = 0x500000;

}  // namespace Velmora::SDK
