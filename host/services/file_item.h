// The files and folders that the host passes to the module, and the tree that owns them.
//
// Items live until the end of the run, longer than any list. They form a tree, so that renaming a folder
// changes the paths of all items below it at once. The attributes are read from the system once, at the
// latest when they are first needed.
//
// A window of the module may read the paths of items while its worker renames them: one lock protects the
// names and the tree. The pointers that GetName and GetExtensionText return are valid until the item is
// renamed.
#pragma once

#include <atomic>
#include <cstdint>
#include <deque>
#include <utility>
#include <vector>

#include "frame/host/host_files.h"
#include "host/services/stored_properties.h"
#include "host/services/text_arena.h"

namespace QxHost {

using Velmora::SDK::s32;
using Velmora::SDK::s64;
using Velmora::SDK::u32;

class FileItem final : public Velmora::SDK::IHostFileItem {
 public:
  // The name is terminated and lives as long as the item.
  FileItem(FileItem* parent, WStringView name, std::uint32_t number)
      : parent_(parent), name_(name), number_(number) {}
  FileItem(const FileItem&) = delete;
  FileItem& operator=(const FileItem&) = delete;

  // Returns the complete name with its extension, even if the buffer is too short. The item owns the text.
  const WCHAR* GetName(WCHAR* buffer, u32 size) override;
  void GetBaseName(WCHAR* buffer, u32 size) override;
  // If a path does not fit into the buffer, they store the empty text, because a truncated path would name
  // another file. GetFolderPath returns no backslash at the end, except for a root; GetParentPath always
  // returns one.
  const WCHAR* GetFolderPath(WCHAR* buffer, u32 size) override;
  void GetParentPath(WCHAR* buffer, u32 size) override;
  const WCHAR* GetFullPath(WCHAR* buffer, u32 size) override;
  // Stores the name of the folder that the item is in; the empty text in a root.
  void GetTagText(WCHAR* buffer, u32 size) override;
  const WCHAR* GetExtensionText(u32 flag) override;
  void GetExtension(WCHAR* buffer, u32 size, u32 flag) override;
  u32 GetAttributes() override;
  s64 GetRowImage(u32 imageSet) override;
  bool IsFolder() override { return IsDirectory(); }
  s32 GetRemoteLevel() override;
  int GetStoredProperty(u32 moduleNumber, u32 propertyNumber, void* record) override;
  void ClearStoredProperty(u32 propertyNumber) override;

  StoredProperties properties;

  // Must not be called while another thread renames the item.
  WStringView Name() const { return name_; }
  const FileItem* Parent() const { return parent_; }  // null for a root
  WString FolderPath() const;                         // ends in a backslash
  WString FullPath() const;
  void WriteFullPath(WString& path) const;  // the same, reusing the memory of `path`
  // Returns the item's number; all items of the tree are numbered from 0.
  std::size_t Number() const { return number_; }

 private:
  friend class FileItemTree;

  // The kind of an item whose attributes have not been read.
  enum class Kind : unsigned char { kUnknown, kFile, kFolder };

  bool IsDirectory() const {
    return kind_ == Kind::kUnknown ? (attributes_ & FILE_ATTRIBUTE_DIRECTORY) != 0 : kind_ == Kind::kFolder;
  }

  // Call these with the lock held.
  std::size_t FolderPathSize() const;
  // Writes the path of the folder, with a backslash at its end, to the characters before `end`.
  void WriteFolderPath(WCHAR* end) const;
  WStringView ExtensionLocked(u32 flag) const;

  FileItem* parent_;  // null for a root
  WStringView name_;
  std::uint32_t number_;
  std::atomic<DWORD> attributes_ = INVALID_FILE_ATTRIBUTES;  // until they have been read
  std::atomic<Kind> kind_ = Kind::kUnknown;
};

class FileItemTree {
 public:
  FileItemTree() = default;
  FileItemTree(const FileItemTree&) = delete;
  FileItemTree& operator=(const FileItemTree&) = delete;

  // Returns the item of a full path, with its last name in the spelling on the disk. Returns null and sets
  // the last error if the file or folder does not exist, and for a root, which has no name.
  FileItem* Find(const WString& fullPath);

  // Returns the item of a name in a listing of the folder. `folder` was returned by Follow.
  FileItem& Listed(FileItem& folder, WStringView name, bool isFolder);

  // Returns the item of a full path, whether or not such a file exists, and without reading its attributes.
  // Used to follow a path through renames; such items are not passed to the module.
  FileItem& Follow(const WString& fullPath);

  // Appends all files and folders of a folder, in the order of the system. Returns false and sets the last
  // error if the folder cannot be searched.
  bool AddFolderItems(const WString& folderPath, std::vector<FileItem*>& items);

  // Changes the name of an item after the file has been renamed. If another item has this name, its file no
  // longer exists; that item remains valid.
  void Rename(FileItem& item, WStringView newName);

  std::size_t Count() const { return items_.size(); }

 private:
  struct Slot {
    std::uint32_t hash = 0;
    std::uint32_t item = kFree;
  };
  // Special values of Slot::item; all others are numbers of items.
  static constexpr std::uint32_t kFree = 0xFFFFFFFF;
  static constexpr std::uint32_t kRemoved = 0xFFFFFFFE;

  static std::uint32_t HashOf(const FileItem* parent, WStringView name);
  // Call these with the lock held.
  // Returns the slot of the item, or the free one to use for it.
  Slot& SlotOf(const FileItem* parent, WStringView name, std::uint32_t hash);
  // Returns the slot of this item; null if another item has taken over its name.
  Slot* PlaceOf(const FileItem& item, std::uint32_t hash);
  void MakeRoom();
  void PlaceRenamed();
  FileItem& Child(FileItem* parent, WStringView name);
  FileItem& Node(WStringView fullPath);

  TextArena names_;
  std::deque<FileItem> items_;  // by number
  std::vector<Slot> slots_;     // hash table by name and parent; the size is a power of 2
  std::size_t usedSlots_ = 0;   // slots of present and of removed items
  // Renamed items that are still in the slots of their old names, with the hashes of these names. A run
  // renames many items without searching for any, so their slots are changed later.
  std::vector<std::pair<FileItem*, std::uint32_t>> renamed_;
  // The folder of the last path, cached because the next path is often in it as well.
  WString lastFolderPath_;
  FileItem* lastFolder_ = nullptr;
};

}  // namespace QxHost
