#include "host/services/file_item.h"

#include <algorithm>
#include <functional>
#include <mutex>
#include <utility>

#include "host/controls/shell_images.h"
#include "host/rename/move_item.h"
#include "host/system/paths.h"
#include "host/system/remote_level.h"
#include "platform/handles.h"

namespace QxHost {
namespace {

// Protects the names and the tree of all items. Held only while a name is copied or the tree is searched or
// changed.
std::mutex itemNamesMutex;

// Copies a path to the buffer, or the empty text if it does not fit. Returns the buffer; the empty text if
// there is no buffer.
const WCHAR* GivePath(WCHAR* buffer, u32 size, const WString& path) {
  if (!buffer || size == 0) return W("");
  CopyTerminated<WCHAR>(buffer, size, path.size() < size ? WStringView(path) : WStringView());
  return buffer;
}

void GiveText(WCHAR* buffer, u32 size, WStringView text) {
  if (buffer) CopyTerminated<WCHAR>(buffer, size, text);
}

}  // namespace

std::size_t FileItem::FolderPathSize() const {
  std::size_t size = 0;
  for (const FileItem* folder = parent_; folder; folder = folder->parent_) size += folder->name_.size() + 1;
  return size;
}

void FileItem::WriteFolderPath(WCHAR* end) const {
  for (const FileItem* folder = parent_; folder; folder = folder->parent_) {
    *--end = W('\\');
    end -= folder->name_.size();
    folder->name_.copy(end, folder->name_.size());
  }
}

WString FileItem::FolderPath() const {
  const std::lock_guard lock(itemNamesMutex);
  const std::size_t size = FolderPathSize();
  WString path(size, WCHAR());
  WriteFolderPath(path.data() + size);
  return path;
}

void FileItem::WriteFullPath(WString& path) const {
  const std::lock_guard lock(itemNamesMutex);
  const std::size_t size = FolderPathSize();
  path.resize(size + name_.size());
  WriteFolderPath(path.data() + size);
  name_.copy(path.data() + size, name_.size());
}

WString FileItem::FullPath() const {
  WString path;
  WriteFullPath(path);
  return path;
}

WStringView FileItem::ExtensionLocked(u32 flag) const {
  const WStringView extension = SplitName(name_, IsDirectory()).extension;
  return extension.substr(flag == 1 && !extension.empty() ? 1 : 0);
}

const WCHAR* FileItem::GetName(WCHAR* buffer, u32 size) {
  const std::lock_guard lock(itemNamesMutex);
  GiveText(buffer, size, name_);
  return name_.data();
}

void FileItem::GetBaseName(WCHAR* buffer, u32 size) {
  const std::lock_guard lock(itemNamesMutex);
  GiveText(buffer, size, SplitName(name_, IsDirectory()).base);
}

const WCHAR* FileItem::GetFolderPath(WCHAR* buffer, u32 size) {
  if (!buffer || size == 0) return W("");
  buffer[0] = WCHAR();
  const std::lock_guard lock(itemNamesMutex);
  const bool isInRoot = !parent_ || !parent_->parent_;
  const std::size_t pathSize = FolderPathSize();
  const std::size_t given = pathSize - (isInRoot ? 0 : 1);
  if (given >= size) return buffer;
  if (pathSize <= size) {
    WriteFolderPath(buffer + pathSize);
  } else {
    WString path(pathSize, WCHAR());
    WriteFolderPath(path.data() + pathSize);
    path.copy(buffer, given);
  }
  buffer[given] = WCHAR();
  return buffer;
}

void FileItem::GetParentPath(WCHAR* buffer, u32 size) { GivePath(buffer, size, FolderPath()); }
const WCHAR* FileItem::GetFullPath(WCHAR* buffer, u32 size) { return GivePath(buffer, size, FullPath()); }

u32 FileItem::GetAttributes() {
  if (attributes_ != INVALID_FILE_ATTRIBUTES || kind_ == Kind::kUnknown) return attributes_;
  attributes_ = GetFileAttributesW(SystemPath(FullPath()).c_str());
  if (attributes_ == INVALID_FILE_ATTRIBUTES) {
    attributes_ = kind_ == Kind::kFolder ? FILE_ATTRIBUTE_DIRECTORY : FILE_ATTRIBUTE_ARCHIVE;
  }
  return attributes_;
}

void FileItem::GetTagText(WCHAR* buffer, u32 size) {
  const std::lock_guard lock(itemNamesMutex);
  const bool isAtRoot = !parent_ || !parent_->parent_;
  GiveText(buffer, size, isAtRoot ? WStringView() : WStringView(parent_->name_));
}

// The extension ends where the name ends, so the returned pointer is terminated.
const WCHAR* FileItem::GetExtensionText(u32 flag) {
  const std::lock_guard lock(itemNamesMutex);
  const WStringView extension = ExtensionLocked(flag);
  return name_.data() + (name_.size() - extension.size());
}

void FileItem::GetExtension(WCHAR* buffer, u32 size, u32 flag) {
  const std::lock_guard lock(itemNamesMutex);
  GiveText(buffer, size, ExtensionLocked(flag));
}

s64 FileItem::GetRowImage(u32 imageSet) {
  return imageSet == kShellImages ? ShellImageOf(FullPath(), GetAttributes()) : kNoImage;
}
s32 FileItem::GetRemoteLevel() {
  const FileItem* root = this;
  while (root->parent_) root = root->parent_;
  return RemoteLevelOfRoot(WString(root->name_));
}
int FileItem::GetStoredProperty(u32 moduleNumber, u32 propertyNumber, void* record) {
  return properties.Get(moduleNumber, propertyNumber, record);
}
void FileItem::ClearStoredProperty(u32 propertyNumber) { properties.Clear(propertyNumber); }

std::uint32_t FileItemTree::HashOf(const FileItem* parent, WStringView name) {
  const std::uint64_t place = parent ? std::uint64_t{parent->number_} + 1 : 0;
  const std::uint64_t hash = (std::hash<WStringView>()(name) ^ place) * 0x9E3779B97F4A7C15u;
  return static_cast<std::uint32_t>(hash >> 32);
}

FileItemTree::Slot& FileItemTree::SlotOf(const FileItem* parent, WStringView name, std::uint32_t hash) {
  const std::size_t mask = slots_.size() - 1;
  for (std::size_t at = hash & mask;; at = (at + 1) & mask) {
    Slot& slot = slots_[at];
    if (slot.item == kFree) return slot;
    if (slot.hash != hash || slot.item == kRemoved) continue;
    const FileItem& item = items_[slot.item];
    if (item.parent_ == parent && item.name_ == name) return slot;
  }
}

FileItemTree::Slot* FileItemTree::PlaceOf(const FileItem& item, std::uint32_t hash) {
  const std::size_t mask = slots_.size() - 1;
  for (std::size_t at = hash & mask; slots_[at].item != kFree; at = (at + 1) & mask) {
    if (slots_[at].item == item.number_) return &slots_[at];
  }
  return nullptr;
}

void FileItemTree::MakeRoom() {
  constexpr std::size_t kMinSlots = 256;
  if (slots_.size() >= (usedSlots_ + 1) * 2) return;
  const std::vector<Slot> before = std::exchange(slots_, {});
  slots_.resize(std::max(before.size() * 2, kMinSlots));
  usedSlots_ = 0;
  const std::size_t mask = slots_.size() - 1;
  for (const Slot& slot : before) {
    if (slot.item == kFree || slot.item == kRemoved) continue;
    std::size_t at = slot.hash & mask;
    while (slots_[at].item != kFree) at = (at + 1) & mask;
    slots_[at] = slot;
    ++usedSlots_;
  }
}

FileItem& FileItemTree::Child(FileItem* parent, WStringView name) {
  if (!renamed_.empty()) PlaceRenamed();
  MakeRoom();
  const std::uint32_t hash = HashOf(parent, name);
  Slot& slot = SlotOf(parent, name, hash);
  if (slot.item != kFree) return items_[slot.item];
  ++usedSlots_;
  const auto number = static_cast<std::uint32_t>(items_.size());
  slot = {hash, number};
  return items_.emplace_back(parent, names_.Keep(name), number);
}

FileItem& FileItemTree::Node(WStringView fullPath) {
  const std::size_t nameAt = fullPath.rfind(W('\\')) + 1;
  if (lastFolder_ && fullPath.substr(0, nameAt) == lastFolderPath_ && nameAt < fullPath.size()) {
    return Child(lastFolder_, fullPath.substr(nameAt));
  }
  const auto [root, rest] = SplitRoot(fullPath);
  FileItem* item = &Child(nullptr, root);
  for (WStringView left = rest; !left.empty();) {
    const std::size_t end = left.find(W('\\'));
    if (end == WStringView::npos) {
      lastFolder_ = item;
      lastFolderPath_ = fullPath.substr(0, nameAt);
    }
    item = &Child(item, left.substr(0, end));
    left = end == WStringView::npos ? WStringView() : left.substr(end + 1);
  }
  return *item;
}

FileItem& FileItemTree::Listed(FileItem& folder, WStringView name, bool isFolder) {
  const std::lock_guard lock(itemNamesMutex);
  FileItem& item = Child(&folder, name);
  if (item.attributes_ == INVALID_FILE_ATTRIBUTES) {
    item.kind_ = isFolder ? FileItem::Kind::kFolder : FileItem::Kind::kFile;
  }
  return item;
}

FileItem& FileItemTree::Follow(const WString& fullPath) {
  const std::lock_guard lock(itemNamesMutex);
  return Node(fullPath);
}

FileItem* FileItemTree::Find(const WString& fullPath) {
  const DWORD attributes = GetFileAttributesW(SystemPath(fullPath).c_str());
  if (attributes == INVALID_FILE_ATTRIBUTES) return nullptr;
  const WString onDisk = NameOnDisk(fullPath);
  const std::lock_guard lock(itemNamesMutex);
  FileItem& item =
      onDisk.empty() ? Node(fullPath) : Node(fullPath.substr(0, fullPath.rfind(W('\\')) + 1) + onDisk);
  if (!item.parent_) {
    SetLastError(ERROR_INVALID_NAME);
    return nullptr;
  }
  item.attributes_ = attributes;
  item.kind_ = FileItem::Kind::kUnknown;
  return &item;
}

bool FileItemTree::AddFolderItems(const WString& folderPath, std::vector<FileItem*>& items) {
  WString mask = folderPath;
  if (!mask.ends_with(W('\\'))) mask += W('\\');
  WIN32_FIND_DATAW found{};
  const FindHandle search(FindFirstFileExW(SystemPath(mask + W('*')).c_str(), FindExInfoBasic, &found,
                                           FindExSearchNameMatch, nullptr, FIND_FIRST_EX_LARGE_FETCH));
  if (!search.IsOpen()) return false;
  FileItem& folder = Follow(folderPath);
  do {
    const WStringView name(found.cFileName);
    if (name == W(".") || name == W("..")) continue;
    const std::lock_guard lock(itemNamesMutex);
    FileItem& item = Child(&folder, name);
    item.attributes_ = found.dwFileAttributes;
    item.kind_ = FileItem::Kind::kUnknown;
    items.push_back(&item);
  } while (FindNextFileW(search.Get(), &found));
  return GetLastError() == ERROR_NO_MORE_FILES;
}

void FileItemTree::Rename(FileItem& item, WStringView newName) {
  const std::lock_guard lock(itemNamesMutex);
  if (!item.parent_ || item.name_ == newName) return;
  lastFolder_ = nullptr;
  renamed_.emplace_back(&item, HashOf(item.parent_, item.name_));
  item.name_ = names_.Keep(newName);
}

void FileItemTree::PlaceRenamed() {
  for (const auto& [item, oldHash] : std::exchange(renamed_, {})) {
    Slot* const place = PlaceOf(*item, oldHash);
    if (!place) continue;  // another item has taken over its old name
    place->item = kRemoved;
    MakeRoom();
    const std::uint32_t hash = HashOf(item->parent_, item->name_);
    Slot& newPlace = SlotOf(item->parent_, item->name_, hash);
    if (newPlace.item == kFree) ++usedSlots_;
    newPlace = {hash, item->number_};
  }
}

}  // namespace QxHost
