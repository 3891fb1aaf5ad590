#include "host/file_item.h"

#include <mutex>

#include "host/controls/shell_images.h"
#include "host/move_item.h"
#include "host/paths.h"
#include "host/remote_level.h"
#include "platform/handles.h"

namespace QxHost {
namespace {

// Guards the names and the tree of all items. Held for the length of a copy, or of a step in the tree.
std::mutex itemNamesMutex;

// Returns the buffer, or the empty text if there is no buffer.
const WCHAR* GivePath(WCHAR* buffer, u32 size, const WString& path) {
  if (!buffer || size == 0) return W("");
  CopyTerminated<WCHAR>(buffer, size, path.size() < size ? WStringView(path) : WStringView());
  return buffer;
}

void GiveText(WCHAR* buffer, u32 size, WStringView text) {
  if (buffer) CopyTerminated<WCHAR>(buffer, size, text);
}

}  // namespace

WString FileItem::FolderPathLocked() const {
  std::vector<const FileItem*> folders;
  std::size_t size = 0;
  for (const FileItem* folder = parent_; folder; folder = folder->parent_) {
    folders.push_back(folder);
    size += folder->name_.size() + 1;
  }
  WString path;
  path.reserve(size + name_.size());
  for (std::size_t index = folders.size(); index-- > 0;) {
    path += folders[index]->name_;
    path += W('\\');
  }
  return path;
}

WString FileItem::FullPathLocked() const {
  WString path = FolderPathLocked();
  path += name_;
  return path;
}

WStringView FileItem::ExtensionLocked(u32 flag) const {
  const WStringView extension = SplitName(name_, (attributes_ & FILE_ATTRIBUTE_DIRECTORY) != 0).extension;
  return extension.substr(flag == 1 && !extension.empty() ? 1 : 0);
}

WString FileItem::FolderPath() const {
  const std::lock_guard lock(itemNamesMutex);
  return FolderPathLocked();
}

WString FileItem::FullPath() const {
  const std::lock_guard lock(itemNamesMutex);
  return FullPathLocked();
}

const WCHAR* FileItem::GetName(WCHAR* buffer, u32 size) {
  const std::lock_guard lock(itemNamesMutex);
  GiveText(buffer, size, name_);
  return name_.c_str();
}

void FileItem::GetBaseName(WCHAR* buffer, u32 size) {
  const std::lock_guard lock(itemNamesMutex);
  GiveText(buffer, size, SplitName(name_, IsFolder()).base);
}

const WCHAR* FileItem::GetFolderPath(WCHAR* buffer, u32 size) {
  const std::lock_guard lock(itemNamesMutex);
  const bool isInRoot = !parent_ || !parent_->parent_;
  return GivePath(buffer, size, isInRoot ? FolderPathLocked() : parent_->FullPathLocked());
}

void FileItem::GetParentPath(WCHAR* buffer, u32 size) { GivePath(buffer, size, FolderPath()); }
const WCHAR* FileItem::GetFullPath(WCHAR* buffer, u32 size) { return GivePath(buffer, size, FullPath()); }

void FileItem::GetTagText(WCHAR* buffer, u32 size) {
  const std::lock_guard lock(itemNamesMutex);
  const bool isAtRoot = !parent_ || !parent_->parent_;
  GiveText(buffer, size, isAtRoot ? WStringView() : WStringView(parent_->name_));
}

// The extension runs to the end of the name, so it is terminated.
const WCHAR* FileItem::GetExtensionText(u32 flag) {
  const std::lock_guard lock(itemNamesMutex);
  const WStringView extension = ExtensionLocked(flag);
  return name_.c_str() + (name_.size() - extension.size());
}

void FileItem::GetExtension(WCHAR* buffer, u32 size, u32 flag) {
  const std::lock_guard lock(itemNamesMutex);
  GiveText(buffer, size, ExtensionLocked(flag));
}

s64 FileItem::GetRowImage(u32 imageSet) {
  return imageSet == kShellImages ? ShellImageOf(FullPath(), attributes_) : kNoImage;
}
s32 FileItem::GetRemoteLevel() {
  const FileItem* root = this;
  while (root->parent_) root = root->parent_;
  return RemoteLevelOfRoot(root->name_);
}
int FileItem::GetStoredProperty(u32 moduleNumber, u32 propertyNumber, void* record) {
  return properties.Get(moduleNumber, propertyNumber, record);
}
void FileItem::ClearStoredProperty(u32 propertyNumber) { properties.Clear(propertyNumber); }

FileItemTree::~FileItemTree() {
  // Level by level, so that no depth of folders runs the stack out.
  std::vector<std::unique_ptr<FileItem>> level = std::move(displaced_);
  for (auto& [name, root] : roots_) level.push_back(std::move(root));
  while (!level.empty()) {
    std::vector<std::unique_ptr<FileItem>> next;
    for (const std::unique_ptr<FileItem>& item : level) {
      for (auto& [name, child] : item->children_) next.push_back(std::move(child));
    }
    level = std::move(next);
  }
}

FileItem& FileItemTree::Child(FileItem& parent, WStringView name) {
  std::unique_ptr<FileItem>& child = parent.children_[WString(name)];
  if (!child) child = std::make_unique<FileItem>(&parent, WString(name));
  return *child;
}

FileItem& FileItemTree::Node(WStringView fullPath) {
  const auto [root, rest] = SplitRoot(fullPath);
  std::unique_ptr<FileItem>& rootItem = roots_[WString(root)];
  if (!rootItem) rootItem = std::make_unique<FileItem>(nullptr, WString(root));
  FileItem* item = rootItem.get();
  for (WStringView left = rest; !left.empty();) {
    const std::size_t end = left.find(W('\\'));
    item = &Child(*item, left.substr(0, end));
    left = end == WStringView::npos ? WStringView() : left.substr(end + 1);
  }
  return *item;
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
    FileItem& item = Child(folder, name);
    item.attributes_ = found.dwFileAttributes;
    items.push_back(&item);
  } while (FindNextFileW(search.Get(), &found));
  return GetLastError() == ERROR_NO_MORE_FILES;
}

void FileItemTree::Rename(FileItem& item, const WString& newName) {
  const std::lock_guard lock(itemNamesMutex);
  if (!item.parent_ || item.name_ == newName) return;
  auto& siblings = item.parent_->children_;
  const auto place = siblings.find(item.name_);
  if (place == siblings.end() || place->second.get() != &item) {
    item.name_ = newName;  // displaced before: it has no place among its siblings
    return;
  }
  std::unique_ptr<FileItem> owner = std::move(place->second);
  siblings.erase(place);
  item.name_ = newName;
  std::unique_ptr<FileItem>& newPlace = siblings[newName];
  // An item that stood there is of a file that has gone behind our back; whoever holds it may go on asking.
  if (newPlace) displaced_.push_back(std::move(newPlace));
  newPlace = std::move(owner);
}

}  // namespace QxHost
