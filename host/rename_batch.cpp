#include "host/rename_batch.h"

#include "host/error_text.h"
#include "host/move_item.h"
#include "host/paths.h"

namespace QxHost {
namespace {

using Velmora::SDK::IHostFileItem;
using Velmora::SDK::IHostRenameBatch;
using Velmora::SDK::IRenameResultCallback;
using Velmora::SDK::kRenameDone;
using Velmora::SDK::kRenameIgnored;

// The folder with its separator, and the name.
std::pair<WString, WString> SplitFullPath(const WString& fullPath) {
  const std::size_t separator = fullPath.rfind(W('\\'));
  const std::size_t nameAt = separator == WString::npos ? 0 : separator + 1;
  return {fullPath.substr(0, nameAt), fullPath.substr(nameAt)};
}

// True for the folder that this program works in and for those above it.
bool HoldsCurrentFolder(const WString& fullPath) {
  const std::optional<WString> current = FullPathOf(W("."));
  return current && (*current == fullPath || current->starts_with(fullPath + W('\\')));
}

}  // namespace

int FileOperation::FileExists(const WCHAR* path) {
  const std::optional<WString> fullPath = FullPathOf(WString(ViewOf(path)));
  return fullPath && GetFileAttributesW(SystemPath(*fullPath).c_str()) != INVALID_FILE_ATTRIBUTES ? 1 : 0;
}

IHostFileItem* FileOperation::GetFileItem(const WCHAR* path, u32) {
  const std::optional<WString> fullPath = FullPathOf(WString(ViewOf(path)));
  return fullPath ? items_.Find(*fullPath) : nullptr;
}

void FileOperation::RunBatch(IHostRenameBatch* batch, IRenameResultCallback* callback) {
  if (batch) Run(*static_cast<RenameBatch*>(batch), callback);
}

void FileOperation::RunPathBatch(IHostRenameBatch* batch, IRenameResultCallback* callback) {
  if (batch) Run(*static_cast<RenameBatch*>(batch), callback);
}

void FileOperation::Run(RenameBatch& batch, IRenameResultCallback* callback) {
  batch.wasRun = true;
  // Paths become items before the first rename, so that they too follow a folder above them.
  std::vector<FileItem*> items;
  for (const QueuedRename& rename : batch.renames) {
    const std::optional<WString> fullPath =
        IsFullPath(rename.fullPath) ? FullPathOf(rename.fullPath) : std::nullopt;
    items.push_back(rename.item ? static_cast<FileItem*>(rename.item)
                                : (fullPath ? &items_.Follow(*fullPath) : nullptr));
  }
  std::size_t index = 0;
  for (QueuedRename& rename : batch.renames) {
    rename.result = Rename(items[index++], rename);
    if (callback) callback->OnRenameResult(rename.UserData(), rename.result);
  }
}

u32 FileOperation::Rename(FileItem* item, const QueuedRename& rename) {
  const WString from = item ? item->FullPath() : rename.fullPath;
  const WString made(NameToMake(rename.newName));
  const WString& newName = made.empty() ? rename.newName : made;
  const u32 result = item ? RenameOne(*item, from, newName) : u32{ERROR_BAD_PATHNAME};
  reporter_.Rename({from, newName, result, dryRun_});
  if (result != kRenameDone && result != kRenameIgnored) {
    hasFailed_ = true;
    output_.Problem("cannot rename " + ToUtf8(from) + " to " + ToUtf8(newName) + ": " + ErrorText(result));
  }
  if (result == kRenameDone && !dryRun_) items_.Rename(*item, newName);
  return result;
}

u32 FileOperation::RenameOne(const FileItem& item, const WString& from, const WString& newName) {
  const auto [folder, name] = SplitFullPath(from);
  if (NameToMake(newName).empty() || !IsPossibleName(newName)) return ERROR_INVALID_NAME;
  if (folder.empty()) return ERROR_ACCESS_DENIED;  // a drive
  if (newName == name && !dryRun_) return kRenameIgnored;
  // Windows holds the current folder open; elsewhere a slip such as an ITEM "." would take it away as well.
  if (newName != name && HoldsCurrentFolder(from)) return ERROR_SHARING_VIOLATION;
  if (dryRun_) return TryOne(item, from, folder + newName);
  const DWORD error = MoveItem(from, folder + newName);
  return error == kRenameIgnored ? ERROR_GEN_FAILURE : error;  // that number means something else here
}

u32 FileOperation::TryOne(const FileItem& item, const WString& from, const WString& to) {
  const auto renamed = dryPaths_.find(&item);
  const WString& present = renamed == dryPaths_.end() ? from : renamed->second;
  if (to == present) return kRenameIgnored;
  WString key = PathKey(to);
  const WString presentKey = PathKey(present);
  if (key != presentKey) {
    if (taken_.contains(key)) return ERROR_ALREADY_EXISTS;
    const bool stands = GetFileAttributesW(SystemPath(to).c_str()) != INVALID_FILE_ATTRIBUTES;
    if (stands && !left_.contains(key)) return ERROR_ALREADY_EXISTS;
  }
  taken_.erase(presentKey);
  left_.insert(presentKey);
  taken_.insert(std::move(key));
  dryPaths_[&item] = to;
  return kRenameDone;
}

}  // namespace QxHost
