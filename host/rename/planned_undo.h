// The undo file that is written before a run, of all renames that it is to do: it is what is left if the run
// is cut off. Those that were not done are passed over when it is taken back.
//
// For most of them names alone say which those are: a new name that is not there, or an old one that still
// is. Files that exchange their names have all names in use before the run as well as after it, so the
// comments at the head of the file say which file had which.
#pragma once

#include <string>
#include <unordered_map>

#include "multirename/saved/multi_rename_undo.h"

namespace QxHost {

// What WriteUndoFile puts before the session of a run that is about to begin. Looks at the files, unless the
// renames are known to be independent of each other.
WString HeadOfPlannedUndo(const Velmora::SDK::MultiRenameUndo& planned, bool areIndependent = false);

struct UndoPlan {
  bool isPlan = false;  // the file was written before its run
  std::unordered_map<WString, std::string> identities;
};

// Reads the head of an undo file.
UndoPlan ReadUndoPlan(const WString& head);

// Leaves out the renames that were not done, of files that exchange their names, and names the file that has
// a temporary name by that one. Returns how many it has left out.
std::size_t LeaveOutUndone(const UndoPlan& plan, Velmora::SDK::MultiRenameUndo& session);

}  // namespace QxHost
