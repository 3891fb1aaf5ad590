// The plan of a rename batch: which renames are refused, and in which order the others run, so that each
// finds its new name free. It only looks at the disk and changes nothing.
//
// A rename gives a file another name in its folder. All renames of a batch count as asked for at once:
// - A name that another rename of the batch gives up is free. Renames that wait for each other's names are a
//   chain, which runs from its free end; a chain without one is a cycle, and runs by way of one temporary
//   name.
// - Of two renames to one name the first in order gets it, and the other is refused (183). Of two renames of
//   one file the first in order counts; the other is ignored (10) if it asks for the same name, and otherwise
//   does not find its file (2).
// - A name that a file keeps is refused (183), and so is a rename that waits for a refused one.
// - A file in a folder that is renamed too goes before its folder. A path may also lie below the name that a
//   folder is to have, as all paths of a restore do: such a file goes after its folder, and is refused (183)
//   if the folder is.
// - Whether names that differ in letter case alone are one name is asked of the file system.
#pragma once

#include <cstdint>
#include <vector>

#include "host/rename/name_tree.h"

namespace QxHost {

struct WantedRename {
  std::uint32_t folder = 0;  // index into WantedRenames::folders
  WStringView name;
  WStringView newName;
  bool isByPath = false;  // false if the file is known to exist in this very folder
  DWORD refusal = 0;      // if not 0, the rename is decided already and takes no part
};

struct WantedRenames {
  std::vector<WString> folders;    // full paths that end in a backslash
  std::vector<WantedRename> rows;  // in the order of the batch
  WString currentFolder;           // is not renamed (32), nor is a folder above it
};

// Renames that wait for each other's names: `count` rows of RenamePlan::order from `first`.
struct RenameChain {
  std::uint32_t first = 0;
  std::uint32_t count = 0;
  // A cycle, whose last row goes aside to a temporary name before the first row runs: an index into
  // RenamePlan::temporaryNames. kNoRow for a chain with a free end.
  std::uint32_t temporaryName = kNoRow;
  // The row of the folder that must have its new name before. kNoRow if no folder must.
  std::uint32_t waitsFor = kNoRow;
};

struct RenamePlan {
  // By row: 0 for a rename that is to be done, otherwise its result.
  std::vector<DWORD> results;
  // By row: where the file is before the run, in one spelling for all paths of a folder; an index into
  // WantedRenames::folders or, from its size on, into `otherFolders`.
  std::vector<std::uint32_t> folders;
  std::vector<WString> otherFolders;
  std::vector<RenameChain> chains;  // in the order in which they are to run
  std::vector<std::uint32_t> order;
  std::vector<WString> temporaryNames;
  bool areIndependent = false;  // all that are to be done were decided at first sight (flat_renames.h)
};

// The texts of `wanted` must last for the call alone.
RenamePlan PlanRenames(const WantedRenames& wanted, FileView& files);

}  // namespace QxHost
