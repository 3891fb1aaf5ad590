// Plans a rename batch: decides which renames are refused, and in which order the others run, so that each
// new name is free when it is needed. Only reads the disk.
//
// A rename gives a file another name in its folder. All renames of a batch count as requested at once:
// - A name that another rename of the batch gives up is free. Renames that wait for each other's names are a
//   chain, which runs from its free end; a chain without a free end is a cycle, and uses one temporary name.
// - Of two renames to the same name, the first in order gets it and the other is refused (183). Of two
//   renames of one file, the first in order counts; the other is ignored (10) if it has the same new name,
//   and otherwise fails because its file does not exist (2).
// - A rename to a name that a file keeps is refused (183), and so is a rename that waits for a refused one.
// - A file in a folder that is renamed too is renamed before its folder. A path may also contain the new name
//   of a folder, as all paths of a restore do: such a file is renamed after its folder, and is refused (183)
//   if the folder is.
// - The file system decides whether names that differ only in letter case are the same name.
#pragma once

#include <cstdint>
#include <vector>

#include "host/rename/name_tree.h"

namespace QxHost {

struct WantedRename {
  std::uint32_t folder = 0;  // index into WantedRenames::folders
  WStringView name;
  WStringView newName;
  bool isByPath = false;  // false if the file is known to exist in this folder
  DWORD refusal = 0;      // if not 0, the rename is already decided and not planned
};

struct WantedRenames {
  std::vector<WString> folders;    // full paths that end in a backslash
  std::vector<WantedRename> rows;  // in the order of the batch
  WString currentFolder;           // neither it nor a folder above it is renamed (32)
};

// Renames that wait for each other's names: `count` rows of RenamePlan::order from `first`.
struct RenameChain {
  std::uint32_t first = 0;
  std::uint32_t count = 0;
  // For a cycle, an index into RenamePlan::temporaryNames: the file of the last row gets this name before the
  // first row runs. kNoRow for a chain with a free end.
  std::uint32_t temporaryName = kNoRow;
  // The row of the folder that must be renamed before; kNoRow if no folder must.
  std::uint32_t waitsFor = kNoRow;
};

struct RenamePlan {
  // By row: 0 for a rename to be done, otherwise its result.
  std::vector<DWORD> results;
  // By row: the file's folder before the run, in the same spelling for all paths of a folder. An index into
  // WantedRenames::folders or, from its size on, into `otherFolders`.
  std::vector<std::uint32_t> folders;
  std::vector<WString> otherFolders;
  std::vector<RenameChain> chains;  // in the order in which they run
  std::vector<std::uint32_t> order;
  std::vector<WString> temporaryNames;
  bool areIndependent = false;  // all renames to be done were decided by flat_renames.h
};

// The texts of `wanted` must be valid during the call only.
RenamePlan PlanRenames(const WantedRenames& wanted, FileView& files);

}  // namespace QxHost
