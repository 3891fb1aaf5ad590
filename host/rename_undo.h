// The undo files of renames: which there are, what one of them keeps, and taking a run back.
#pragma once

#include <string>
#include <vector>

#include "host/rename_session.h"
#include "host/shared.h"

namespace QxHost {

// What an undo file is, for the reporter.
UndoEvent UndoEventOf(const Velmora::SDK::MultiRenameUndoStore& store,
                      Velmora::SDK::MultiRenameUndo& session);

// Tells all files of the store, the newest first.
void ListUndoFiles(Shared& shared, Velmora::SDK::MultiRenameUndoStore& store);

// Takes back the newest run (`last`), or that of a file: a bare name is one of the store's. A file of the
// store then counts as restored. Throws BadCall if there is no such file, or it is no undo file.
void TakeBack(Shared& shared, RenameSession& session, const std::string& text, bool isDryRun);

// Deletes one file of the store, by its name or path, or `all`. False if a file could not be deleted.
bool DeleteUndoFiles(Shared& shared, Velmora::SDK::MultiRenameUndoStore& store, const std::string& text);

// Warns of what the written file cannot take back: a file that is not whole, entries that are lost beyond its
// readable size, and names with characters that part its fields and lines.
void CheckUndoFile(Output& output, const Velmora::SDK::MultiRenameUndoStore& store,
                   Velmora::SDK::MultiRenameUndo& session);

}  // namespace QxHost
