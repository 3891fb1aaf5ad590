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
  // 0 before the run.
  u32 Count() override { return wasRun ? static_cast<u32>(renames.size()) : 0; }
  Velmora::SDK::IHostRenameResult* At(u32 index) override {
    return index < Count() ? &renames[index] : nullptr;
  }

  std::deque<QueuedRename> renames;
  bool wasRun = false;
};

// The new name as it is made. That of an item has no dots and blanks at its end, which the system cuts. A
// rename by path brings back a name that was there, so it is made as it was given.
WStringView NameToMakeOf(const QueuedRename& rename);

// The same for a message: as it was given where nothing of it is made.
WString NameOfRename(const QueuedRename& rename);

// Why the rename of a file failed.
std::string RenameErrorText(const WString& fullPath, u32 result);

// The full path of a rename by path. Nothing if it is not renamed: it must not depend on the current folder.
std::optional<WString> PathOfRename(const QueuedRename& rename);

// What is wrong with a rename to `newName`, which was made of `given`, whatever files there are: a file
// without a path (161), a name that cannot be one (123) or is too long (206), a drive (5), the present name
// (10, which is no failure). 0 if nothing is.
u32 RefusalOf(WStringView newName, WStringView given, bool hasPath, bool isDrive, WStringView presentName);

// True for the folder `current` and for those above it.
bool HoldsFolder(const WString& fullPath, const WString& current);

}  // namespace QxHost
