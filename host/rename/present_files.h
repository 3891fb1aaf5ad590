// Where the files of an undo file are now. A run, and an undo of it, may have ended at any step, or been
// tried before, so that each file has its old name, its new one, or a temporary one in between; and the user
// may have changed some since.
//
// An example: two files exchange their names, and the program is killed after the first step of the three
// that it takes. The undo file and the folder are then
//
//   ;qxhost planned
//   Z:\f|a|b                     a.qxhost-tmp   has the number 11
//   Z:\f|b|a                     b              has the number 12
//   ;qxhost files of 2
//   ;1 11
//   ;2 12
//
// File 11 is not called a, nor b, but a temporary name of a: it comes back from there. File 12 is called b,
// its old name: there is nothing to take back. If the undo is killed in its turn, or repeated, the next one
// looks in the same way, and finds each file wherever the one before has left it. By names alone, b would be
// there to become a.
//
// Most files need no number (meeting_names.h), and their new names say it.
#pragma once

#include <vector>

#include "host/rename/undo_notes.h"

namespace QxHost {

enum class Presence {
  kByName,  // look for it under its new name; the rename reports it if it is not there
  kThere,   // it has the name that PresentFile says
  kBack,    // it has its old name
  kTaken,   // its new name is that of another file, or may be; or its folder is gone
  kHeld     // it is in a folder that cannot be renamed, as it is the current one or one above it
};

struct PresentFile {
  Presence presence = Presence::kByName;
  WString name = {};
  // The file that goes by its name, where it should have been noted: kNoFile for all others.
  FileIndex found = kNoFile;
};

// Returns where the file of each entry is. `currentFolder` is the full path of the current folder. Reads
// `session.haveRestored`.
std::vector<PresentFile> FindPresentFiles(const Velmora::SDK::MultiRenameUndo& session,
                                          const UndoNotes& notes, const WString& currentFolder);

}  // namespace QxHost
