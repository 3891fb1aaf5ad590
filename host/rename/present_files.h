// Finds the present names of the files of an undo file. A run, or an undo of it, may have ended at any step
// or have been tried before, so each file may have its old name, its new name, or a temporary name; and the
// user may have changed some files since.
//
// Example: two files exchange their names, and the program is killed after the first of the three steps that
// this takes. The undo file and the folder are then
//
//   ;qxhost planned
//   Z:\f|a|b                     a.qxhost-tmp   has the number 11
//   Z:\f|b|a                     b              has the number 12
//   ;qxhost files of 2
//   ;1 11
//   ;2 12
//
// File 11 has neither the name a nor the name b, but a temporary name of a, from which it is restored. File
// 12 has its old name b, so there is nothing to restore. If the undo is killed too, or repeated, the next one
// finds each file in the same way, wherever the previous one has left it. By the names alone, an undo would
// rename b to a.
//
// Most files need no number, as their new names identify them (colliding_names.h).
#pragma once

#include <vector>

#include "host/rename/undo_notes.h"

namespace QxHost {

enum class Presence {
  kByName,  // to be found by its new name; the rename reports it if it does not exist
  kThere,   // it has the name in PresentFile::name
  kBack,    // it has its old name
  kTaken,   // its new name is, or may be, that of another file, or its folder no longer exists
  kHeld     // it is in a folder that cannot be renamed: the current one or one above it
};

struct PresentFile {
  Presence presence = Presence::kByName;
  WString name = {};
  // The file that was found by its name, although it should have been noted; kNoFile for all others.
  FileIndex found = kNoFile;
};

// Returns the place of each entry's file. `currentFolder` is the full path of the current folder. Uses
// `session.haveRestored`.
std::vector<PresentFile> FindPresentFiles(const Velmora::SDK::MultiRenameUndo& session,
                                          const UndoNotes& notes, const WString& currentFolder);

}  // namespace QxHost
