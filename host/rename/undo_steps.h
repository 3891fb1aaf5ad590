// Decides what an undo does with each file that was found.
#pragma once

#include <vector>

#include "host/rename/present_files.h"

namespace QxHost {

// A file that an undo does not restore.
struct LeftFile {
  WString folder;
  WString name;
  WString oldName;
  Presence why;
};

// The steps of an undo before they are done.
struct UndoSteps {
  Velmora::SDK::MultiRenameUndo session;  // each file with its present name
  std::vector<LeftFile> left;
  std::size_t back = 0;  // files that have their old names
};

UndoSteps StepsOf(const Velmora::SDK::MultiRenameUndo& taken, const std::vector<PresentFile>& files);

// Records the files that were found by their names, so that an undo that is cut off finds them again. Returns
// false if no file was.
bool NoteFound(const std::vector<PresentFile>& files, NotedFiles& noted);

}  // namespace QxHost
