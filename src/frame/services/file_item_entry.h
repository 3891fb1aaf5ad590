// The road that all rename commands share: the selection becomes a list of entries, a transform gives each a
// new name, the user confirms, and the host renames.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <vector>

#include "frame/host/host_app.h"

// A host item and the name to rename it to; empty until a transform sets it. The item is the host's and
// outlives the list it came from.
struct FileItemEntry {
  Velmora::SDK::IHostFileItem* item = nullptr;
  WString newName;
};

using FileItemEntries = std::vector<FileItemEntry>;

// One entry for each item of a list request; the list is given back. Nothing where the host refuses, which
// ends a command without a word.
std::optional<FileItemEntries> SelectEntries(Velmora::SDK::IHostApp& host, Velmora::SDK::FileListCode code,
                                             Velmora::SDK::FileListMode mode);

// Appends one entry for each item of the list from `first` on. The list may be given back afterwards.
void AppendEntries(FileItemEntries& entries, Velmora::SDK::IHostFileList& list, Velmora::SDK::u32 first = 0);

// Asks whether so many items shall be renamed (MessageBoxW over the host's main window). True on OK.
bool ConfirmRename(Velmora::SDK::IHostApp& host, std::size_t count);

// Hands all entries, in their order, to one rename batch of the host. The host renames and shows the errors.
void RunRenameBatch(Velmora::SDK::IHostApp& host, const FileItemEntries& entries);

// Sets an entry's new name and answers true if it differs from the present one; otherwise empties it and
// answers false.
using EntryTransform = std::function<bool(FileItemEntry&)>;

// Transforms the entries one by one, drops those whose name would not change, asks about the others, and on
// OK hands them to the host. Nothing is shown when none is left.
void RenameChanged(Velmora::SDK::IHostApp& host, FileItemEntries entries, const EntryTransform& transform);
