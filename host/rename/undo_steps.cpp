#include "host/rename/undo_steps.h"

#include "host/system/paths.h"

namespace QxHost {

using Velmora::SDK::MultiRenameUndo;
using Velmora::SDK::MultiRenameUndoEntry;

UndoSteps StepsOf(const MultiRenameUndo& taken, const std::vector<PresentFile>& files) {
  UndoSteps steps;
  steps.session.entries.reserve(taken.entries.size());
  for (std::size_t index = 0; index < files.size(); ++index) {
    const MultiRenameUndoEntry& entry = taken.entries[index];
    const PresentFile& file = files[index];
    switch (file.presence) {
      case Presence::kByName:
        steps.session.entries.push_back(entry);
        break;
      case Presence::kThere:
        steps.session.entries.push_back({entry.folder, file.name, entry.oldName});
        break;
      case Presence::kBack:
        ++steps.back;
        // Adds a rename to the same name, so that the report lists each file.
        if (NameToMake(entry.oldName) == entry.oldName && IsPossibleName(entry.oldName))
          steps.session.entries.push_back({entry.folder, entry.oldName, entry.oldName});
        break;
      case Presence::kTaken:
      case Presence::kHeld:
        steps.left.push_back({entry.folder, entry.newName, entry.oldName, file.presence});
        break;
    }
  }
  return steps;
}

bool NoteFound(const std::vector<PresentFile>& files, NotedFiles& noted) {
  bool isAny = false;
  for (std::size_t index = 0; index < files.size(); ++index) {
    if (files[index].found == kNoFile) continue;
    noted.resize(files.size(), kNoFile);
    noted[index] = files[index].found;
    isAny = true;
  }
  return isAny;
}

}  // namespace QxHost
