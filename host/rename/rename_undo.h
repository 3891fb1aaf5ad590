// The undo files of renames: lists and deletes them, checks what they contain, and undoes a run.
#pragma once

#include <string>
#include <vector>

#include "host/rename/rename_session.h"
#include "host/rename/undo_notes.h"
#include "host/services/shared.h"

namespace QxHost {

// Returns the description of an undo file for the reporter.
UndoEvent UndoEventOf(const Velmora::SDK::MultiRenameUndoStore& store,
                      const Velmora::SDK::MultiRenameUndo& session);

// Lists all files of the store, the newest first. `configOption` is part of the call that the list suggests.
void ListUndoFiles(Shared& shared, Velmora::SDK::MultiRenameUndoStore& store,
                   const std::string& configOption);

// Undoes the newest run (`last`), or that of a file; a name without a path is one in the store. Waits for
// runs and other undos. Each file is restored from its present name (present_files.h), so an undo may be cut
// off, fail in part or be repeated; a file with its old name keeps it. A file of the store counts as restored
// as soon as something was restored or nothing is left to restore, unless a part of it was not read or not
// tried. Skips a last line that may be cut. Throws BadCall if the file does not exist or is not an undo file.
void UndoRenames(Shared& shared, RenameSession& session, const std::string& text, bool isDryRun);

// Returns how many of the rows would be beyond the readable size of the undo file if all of them were
// renamed.
std::size_t RenamesBeyondUndo(const std::vector<Velmora::SDK::MultiRenameItem*>& rows);

// Deletes one file of the store, by its name or path, the newest (`last`) or all of them (`all`). Returns
// false if a file could not be deleted.
bool DeleteUndoFiles(Shared& shared, Velmora::SDK::MultiRenameUndoStore& store, const std::string& text);

enum class UndoCheck {
  kKeeps,      // the file can undo all renames, or some
  kKeepsNone,  // the file can undo nothing
  kNotWhole,   // the file differs from what was written
};

// Warns of what the written file cannot undo: a file that is not complete, entries beyond its readable size,
// names with characters that separate its fields and lines, and names that no file can be given again.
UndoCheck CheckUndoFile(Output& output, const Velmora::SDK::MultiRenameUndoStore& store,
                        Velmora::SDK::MultiRenameUndo& session, const NotedFiles& notedFiles = {});

}  // namespace QxHost
