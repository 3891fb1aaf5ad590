// A batch of renames as the module fills it.
#pragma once

#include <deque>
#include <optional>

#include "frame/host/host_files.h"
#include "host/services/file_item.h"
#include "host/system/owned_by_module.h"

namespace QxHost {

// One rename of a batch, and its result after the run.
class QueuedRename final : public Velmora::SDK::IHostRenameResult {
 public:
  QueuedRename(Velmora::SDK::IHostFileItem* renamedItem, const WCHAR* path, const WCHAR* name, void* data)
      : item(static_cast<FileItem*>(renamedItem)),
        fullPath(ViewOf(path)),
        newName(ViewOf(name)),
        userData_(data) {}

  void* UserData() override { return userData_; }
  u32 ResultCode() override { return result; }

  FileItem* item;    // null if the rename is by path
  WString fullPath;  // empty if the rename is by item
  WString newName;
  u32 result = 0;

 private:
  void* userData_;
};

class RenameBatch final : public OwnedByModule<RenameBatch, Velmora::SDK::IHostRenameBatch> {
 public:
  void AddByPath(const WCHAR* fullPath, const WCHAR* newName, void* userData) override {
    renames.emplace_back(nullptr, fullPath, newName, userData);
  }
  void AddByItem(Velmora::SDK::IHostFileItem* item, const WCHAR* newName, void* userData) override {
    renames.emplace_back(item, nullptr, newName, userData);
  }
  // Returns 0 before the run.
  u32 Count() override { return wasRun ? static_cast<u32>(renames.size()) : 0; }
  Velmora::SDK::IHostRenameResult* At(u32 index) override {
    return index < Count() ? &renames[index] : nullptr;
  }

  std::deque<QueuedRename> renames;
  bool wasRun = false;
};

// Returns the new name as it will be created. Dots and blanks at the end of an item's new name are removed,
// as the system removes them. A rename by path restores an earlier name, so its name is used unchanged.
WStringView NameToMakeOf(const QueuedRename& rename);

// Returns the new name for messages: the name as given if the name to create is empty.
WString NameOfRename(const QueuedRename& rename);

// Returns the reason for which the rename of a file failed.
std::string RenameErrorText(const WString& fullPath, u32 result);

// Returns the full path of a rename by path; std::nullopt if the path is relative, as a rename must not
// depend on the current folder.
std::optional<WString> PathOfRename(const QueuedRename& rename);

// Returns the error of a rename to `newName`, which was derived from `given`, as far as it does not depend on
// other files: no full path (161), a name that is not possible (123) or too long (206), a drive (5), the
// present name (10, which is not a failure). Returns 0 if there is no error.
u32 RefusalOf(WStringView newName, WStringView given, bool hasPath, bool isDrive, WStringView presentName);

// Returns whether the folder is `current` or one above it.
bool IsSameOrAbove(const WString& fullPath, const WString& current);

}  // namespace QxHost
