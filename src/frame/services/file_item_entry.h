// The steps that all rename commands share: read the selection into a list of entries, compute each new name
// with a transform, ask the user for confirmation, and let the host rename.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

#include "frame/host/host_app.h"

// A host item and its new name, which is empty until a transform sets it. The host owns the item; it outlives
// the list that it came from.
struct FileItemEntry {
  Velmora::SDK::IHostFileItem* item = nullptr;
  WString newName;
};

using FileItemEntries = std::vector<FileItemEntry>;

// Returns one entry for each item of a list request, after releasing the list. Returns std::nullopt if the
// host refuses; the command then ends without a message.
std::optional<FileItemEntries> SelectEntries(Velmora::SDK::IHostApp& host, Velmora::SDK::FileListCode code,
                                             Velmora::SDK::FileListMode mode);

// Appends one entry for each item of the list from index `first` on. The list may be released afterwards.
void AppendEntries(FileItemEntries& entries, Velmora::SDK::IHostFileList& list, Velmora::SDK::u32 first = 0);

// Asks the user whether to rename `count` items (MessageBoxW, owned by the host's main window). Returns true
// on OK.
bool ConfirmRename(Velmora::SDK::IHostApp& host, std::size_t count);

// Renames all entries, in order, with one rename batch of the host, which shows the errors.
void RunRenameBatch(Velmora::SDK::IHostApp& host, const FileItemEntries& entries);

// Sets the new name of an entry and returns true if it differs from the present name; otherwise clears it and
// returns false.
using EntryTransform = std::function<bool(FileItemEntry&)>;

// Transforms the entries one by one, removes those whose name does not change, asks the user about the others
// and, on OK, renames them. Does nothing if no entry is left.
void RenameChanged(Velmora::SDK::IHostApp& host, FileItemEntries entries, const EntryTransform& transform);
