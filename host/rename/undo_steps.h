// What an undo does with each file that it has found.
#pragma once

#include <vector>

#include "host/rename/present_files.h"

namespace QxHost {

// A file that an undo leaves alone.
struct LeftFile {
  WString folder;
  WString name;
  WString oldName;
  Presence why;
};

// What an undo comes to, before it is done.
struct UndoSteps {
  Velmora::SDK::MultiRenameUndo session;  // each file by the name that it has now
  std::vector<LeftFile> left;
  std::size_t back = 0;  // files that have their old names
};

UndoSteps StepsOf(const Velmora::SDK::MultiRenameUndo& taken, const std::vector<PresentFile>& files);

// Notes the files that go by their names, so that an undo that is cut off finds them again. False if there
// are none.
bool NoteFound(const std::vector<PresentFile>& files, NotedFiles& noted);

}  // namespace QxHost
