// A file or folder as the host hands it to the module, and the tree that owns all of them.
//
// Items live to the end of the run, longer than any list. They form a tree, so that an item below a renamed
// folder knows its new path at once, however many there are. The attributes are asked from the system once.
//
// A window of the module asks items for their paths while its worker renames them: the names and the tree are
// guarded by one lock. The pointer of GetName and GetExtensionText is good until the item is renamed.
#pragma once

#include <atomic>
#include <memory>
#include <unordered_map>
#include <vector>

#include "frame/services/host_files.h"
#include "host/stored_properties.h"

namespace QxHost {

using Velmora::SDK::s32;
using Velmora::SDK::s64;
using Velmora::SDK::u32;

class FileItem final : public Velmora::SDK::IHostFileItem {
 public:
  FileItem(FileItem* parent, WString name) : parent_(parent), name_(std::move(name)) {}
  FileItem(const FileItem&) = delete;
  FileItem& operator=(const FileItem&) = delete;

  // The name with its extension. The pointer is the item's own and whole, even where the buffer is short.
  const WCHAR* GetName(WCHAR* buffer, u32 size) override;
  void GetBaseName(WCHAR* buffer, u32 size) override;
  // A path that does not fit gives the empty text: a cut path would be another file's. The folder's path ends
  // without a backslash, but for a root; the parent's ends in one always.
  const WCHAR* GetFolderPath(WCHAR* buffer, u32 size) override;
  void GetParentPath(WCHAR* buffer, u32 size) override;
  const WCHAR* GetFullPath(WCHAR* buffer, u32 size) override;
  // The name of the folder that the item is in; empty at a root.
  void GetTagText(WCHAR* buffer, u32 size) override;
  const WCHAR* GetExtensionText(u32 flag) override;
  void GetExtension(WCHAR* buffer, u32 size, u32 flag) override;
  u32 GetAttributes() override { return attributes_; }
  s64 GetRowImage(u32 imageSet) override;
  bool IsFolder() override { return (attributes_ & FILE_ATTRIBUTE_DIRECTORY) != 0; }
  s32 GetRemoteLevel() override;
  int GetStoredProperty(u32 moduleNumber, u32 propertyNumber, void* record) override;
  void ClearStoredProperty(u32 propertyNumber) override;

  StoredProperties properties;

  // Not while the item is renamed.
  const WString& Name() const { return name_; }
  const FileItem* Parent() const { return parent_; }  // null for a root
  WString FolderPath() const;                         // ends in a backslash
  WString FullPath() const;

 private:
  friend class FileItemTree;

  // With the lock held.
  WString FolderPathLocked() const;
  WString FullPathLocked() const;
  WStringView ExtensionLocked(u32 flag) const;

  FileItem* parent_;  // null for a root
  WString name_;
  std::atomic<DWORD> attributes_ = INVALID_FILE_ATTRIBUTES;  // until the item is asked for
  std::unordered_map<WString, std::unique_ptr<FileItem>> children_;
};

class FileItemTree {
 public:
  FileItemTree() = default;
  FileItemTree(const FileItemTree&) = delete;
  FileItemTree& operator=(const FileItemTree&) = delete;
  ~FileItemTree();

  // The item of a full path. Null, and GetLastError, if there is no such file or folder, and for a root,
  // which has no name. Its last name is taken as it stands on the disk.
  FileItem* Find(const WString& fullPath);

  // The item of a full path, whether or not there is such a file; its attributes are not asked for. It is for
  // following a path through renames, not for the module.
  FileItem& Follow(const WString& fullPath);

  // All files and folders in a folder, as the system gives them. False, and GetLastError, if it cannot be
  // searched.
  bool AddFolderItems(const WString& folderPath, std::vector<FileItem*>& items);

  // Gives an item another name after the system has done so.
  void Rename(FileItem& item, const WString& newName);

 private:
  // With the lock held.
  FileItem& Child(FileItem& parent, WStringView name);
  FileItem& Node(WStringView fullPath);

  std::unordered_map<WString, std::unique_ptr<FileItem>> roots_;
  std::vector<std::unique_ptr<FileItem>> displaced_;  // their name has been taken by another item
};

}  // namespace QxHost
