// The undo files of renames: which there are, what one of them keeps, and taking a run back.
#pragma once

#include <string>
#include <vector>

#include "host/rename_session.h"
#include "host/shared.h"
#include "host/undo_lock.h"

namespace QxHost {

// What an undo file is, for the reporter.
UndoEvent UndoEventOf(const Velmora::SDK::MultiRenameUndoStore& store,
                      Velmora::SDK::MultiRenameUndo& session);

// Tells all files of the store, the newest first. `configOption` is part of the call that it proposes.
void ListUndoFiles(Shared& shared, Velmora::SDK::MultiRenameUndoStore& store,
                   const std::string& configOption);

// Takes back the newest run (`last`), or that of a file: a bare name is one of the store's. A file of the
// store then counts as restored, unless nothing was restored, or not all of it was read or tried. The line
// at which the reading of a long file ends is left out. Throws BadCall if there is no such file, or it is no
// undo file.
void TakeBack(Shared& shared, RenameSession& session, const std::string& text, bool isDryRun);

// How many of the rows, all of them renamed, would not be in what is read of the undo file.
std::size_t RenamesBeyondUndo(const std::vector<Velmora::SDK::MultiRenameItem*>& rows);

// Before a run: makes sure that its undo file can be written and has a name of its own, which the lock keeps
// until the file is there. Waits for other runs. False, after a message, if there can be no undo file.
bool ClaimUndoFile(Output& output, const Velmora::SDK::MultiRenameUndoStore& store, UndoLock& lock);

// Deletes one file of the store, by its name or path, the newest (`last`) or `all`. False if a file could not
// be deleted.
bool DeleteUndoFiles(Shared& shared, Velmora::SDK::MultiRenameUndoStore& store, const std::string& text);

// Warns of what the written file cannot take back: a file that is not whole, entries that are lost beyond its
// readable size, and names with characters that part its fields and lines. False if it is not whole.
bool CheckUndoFile(Output& output, const Velmora::SDK::MultiRenameUndoStore& store,
                   Velmora::SDK::MultiRenameUndo& session);

}  // namespace QxHost
