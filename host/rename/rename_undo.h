// The undo files of renames: which there are, what one of them keeps, and taking a run back.
#pragma once

#include <string>
#include <vector>

#include "host/rename/rename_session.h"
#include "host/rename/undo_notes.h"
#include "host/services/shared.h"

namespace QxHost {

// What an undo file is, for the reporter.
UndoEvent UndoEventOf(const Velmora::SDK::MultiRenameUndoStore& store,
                      const Velmora::SDK::MultiRenameUndo& session);

// Tells all files of the store, the newest first. `configOption` is part of the call that it proposes.
void ListUndoFiles(Shared& shared, Velmora::SDK::MultiRenameUndoStore& store,
                   const std::string& configOption);

// Takes back the newest run (`last`), or that of a file: a bare name is one of the store's. Waits for runs
// and other undos. Each file comes back from the name that it has now (present_files.h), so that an undo may
// be cut off, fail in part or be repeated; one that has its old name keeps it. A file of the store counts as
// restored as soon as something was restored, or nothing is left to be, unless not all of it was read or
// tried. A last line that may be cut is left out. Throws BadCall if there is no such file, or it is no undo
// file.
void TakeBack(Shared& shared, RenameSession& session, const std::string& text, bool isDryRun);

// How many of the rows, all of them renamed, would not be in what is read of the undo file.
std::size_t RenamesBeyondUndo(const std::vector<Velmora::SDK::MultiRenameItem*>& rows);

// Deletes one file of the store, by its name or path, the newest (`last`) or `all`. False if a file could not
// be deleted.
bool DeleteUndoFiles(Shared& shared, Velmora::SDK::MultiRenameUndoStore& store, const std::string& text);

enum class UndoCheck {
  kKeeps,      // all renames, or some
  kKeepsNone,  // the file takes nothing back
  kNotWhole,   // the file is not what was written
};

// Warns of what the written file cannot take back: a file that is not whole, entries that are lost beyond its
// readable size, names with characters that part its fields and lines, and names that no file is given again.
UndoCheck CheckUndoFile(Output& output, const Velmora::SDK::MultiRenameUndoStore& store,
                        Velmora::SDK::MultiRenameUndo& session, const NotedFiles& notedFiles = {});

}  // namespace QxHost
