#include "support/fake_files.h"

#include <algorithm>
#include <ostream>

using namespace Velmora::SDK;

FakeFileItem::FakeFileItem(HostRecorder& recorder, WString folder, WString name, u32 attributes)
    : recorder_(recorder), folder_(std::move(folder)), name_(std::move(name)), attributes_(attributes) {}

void FakeFileItem::Record(const std::string& call) {
  // Only the first 40 characters: names of thousands of characters would make the record unreadable.
  recorder_.Record("item " + ToUtf8(WStringView(name_).substr(0, 40)) + "." + call);
}

bool FakeFileItem::HasFolderAttribute() const { return (attributes_ & FILE_ATTRIBUTE_DIRECTORY) != 0; }

WString FakeFileItem::Extension(bool withDot) const {
  const std::size_t dot = name_.find_last_of(W('.'));
  if (HasFolderAttribute() || dot == WString::npos) return {};
  return name_.substr(withDot ? dot : dot + 1);
}

void FakeFileItem::Fill(WCHAR* buffer, u32 size, WStringView text) {
  if (!buffer || size == 0) {
    recorder_.Problem("an item was given no buffer");
    return;
  }
  CopyTerminated(buffer, size, text);
}

const WCHAR* FakeFileItem::GetName(WCHAR* buffer, u32 size) {
  Record("GetName(" + std::to_string(size) + ")");
  Fill(buffer, size, name_);
  return buffer;
}

void FakeFileItem::GetBaseName(WCHAR* buffer, u32 size) {
  Record("GetBaseName(" + std::to_string(size) + ")");
  Fill(buffer, size, WStringView(name_).substr(0, name_.size() - Extension(true).size()));
}

const WCHAR* FakeFileItem::GetFolderPath(WCHAR* buffer, u32 size) {
  Record("GetFolderPath(" + std::to_string(size) + ")");
  constexpr std::size_t kRootSize = 3;  // of "Z:\\", which keeps its backslash
  const WStringView folder = folder_;
  const bool isCut = folder.size() > kRootSize && folder.ends_with(W('\\'));
  Fill(buffer, size, isCut ? folder.substr(0, folder.size() - 1) : folder);
  return buffer;
}

void FakeFileItem::GetParentPath(WCHAR* buffer, u32 size) {
  Record("GetParentPath(" + std::to_string(size) + ")");
  Fill(buffer, size, folder_);
}

const WCHAR* FakeFileItem::GetFullPath(WCHAR* buffer, u32 size) {
  Record("GetFullPath(" + std::to_string(size) + ")");
  if (fillsPathsWhole && FullPath().size() >= size) {
    FullPath().copy(buffer, size);
    return buffer;
  }
  Fill(buffer, size, FullPath());
  return buffer;
}

void FakeFileItem::GetTagText(WCHAR* buffer, u32 size) {
  Record("GetTagText(" + std::to_string(size) + ")");
  Fill(buffer, size, folder_);
}

const WCHAR* FakeFileItem::GetExtensionText(u32 flag) {
  Record("GetExtensionText(" + std::to_string(flag) + ")");
  return recorder_.Lend(Extension(flag == 0));
}

void FakeFileItem::GetExtension(WCHAR* buffer, u32 size, u32 flag) {
  Record("GetExtension(" + std::to_string(size) + ", " + std::to_string(flag) + ")");
  Fill(buffer, size, Extension(flag == 0));
}

u32 FakeFileItem::GetAttributes() {
  Record("GetAttributes()");
  return attributes_;
}

s64 FakeFileItem::GetRowImage(u32 imageSet) {
  Record("GetRowImage(" + std::to_string(imageSet) + ")");
  return 0;
}

bool FakeFileItem::IsFolder() {
  Record("IsFolder()");
  return isFolder.value_or(HasFolderAttribute());
}

s32 FakeFileItem::GetRemoteLevel() {
  Record("GetRemoteLevel()");
  return remoteLevel;
}

int FakeFileItem::GetStoredProperty(u32 moduleNumber, u32 propertyNumber, void* record) {
  Record("GetStoredProperty(" + std::to_string(moduleNumber) + ", " + std::to_string(propertyNumber) + ")");
  if (stored.empty()) return 0;
  std::copy(stored.begin(), stored.end(), static_cast<unsigned char*>(record));
  return 1;
}

void FakeFileItem::ClearStoredProperty(u32 propertyNumber) {
  Record("ClearStoredProperty(" + std::to_string(propertyNumber) + ")");
}

void FakeFileList::CheckUse(const char* operation) {
  if (released_) recorder_.Problem(name_ + "." + operation + " after its release");
}

std::vector<WString> FakeFileList::Paths() {
  CheckUse("a read by the host");
  std::vector<WString> paths;
  // All items of the fake host are of this class.
  for (IHostFileItem* item : items_) paths.push_back(static_cast<FakeFileItem*>(item)->FullPath());
  return paths;
}

void FakeFileList::AddItem(IHostFileItem* item) {
  recorder_.Record(name_ + ".AddItem()");
  CheckUse("AddItem");
  items_.push_back(item);
}

u32 FakeFileList::GetCount() {
  recorder_.Record(name_ + ".GetCount()");
  CheckUse("GetCount");
  return static_cast<u32>(items_.size());
}

IHostFileItem* FakeFileList::GetItem(u32 index) {
  const bool allowed = recorder_.Allow(name_ + ".GetItem(" + std::to_string(index) + ")");
  CheckUse("GetItem");
  if (index >= items_.size()) {
    recorder_.Problem(name_ + " has no item " + std::to_string(index));
    return nullptr;
  }
  return allowed ? items_[index] : nullptr;
}

void FakeFileList::Release() {
  recorder_.Record(name_ + ".Release()");
  recorder_.Released(name_);
  released_ = true;
}

void PrintTo(const QueuedRename& rename, std::ostream* out) {
  *out << ToUtf8(rename.from) << " -> " << ToUtf8(rename.to);
}

void FakeRenameBatch::Record(const std::string& call) {
  recorder_.Record(name_ + "." + call);
  if (released_) recorder_.Problem(name_ + "." + call + " after its release");
}

void FakeRenameBatch::AddByPath(const WCHAR* fullPath, const WCHAR* newName, void* userData) {
  Record("AddByPath(" + Quoted(fullPath) + ", " + Quoted(newName) + ", " + (userData ? "data" : "0") + ")");
  renames_.push_back({WString(ViewOf(fullPath)), WString(ViewOf(newName))});
}

void FakeRenameBatch::AddByItem(IHostFileItem* item, const WCHAR* newName, void* userData) {
  // All items of the fake host are of this class.
  const auto* fake = static_cast<FakeFileItem*>(item);
  const WString from = fake ? fake->Name() : WString();
  const WString to(ViewOf(newName));
  if (!fake) recorder_.Problem(name_ + " was given a null item");
  if (!newName) recorder_.Problem(name_ + " was given a null name");
  Record("AddByItem(" + ToUtf8(WStringView(from).substr(0, 40)) + ", " + Quoted(to.substr(0, 80).c_str()) +
         ", " + (userData ? "data" : "0") + ")");
  renames_.push_back({from, to});
}

u32 FakeRenameBatch::Count() {
  Record("Count()");
  return 0;
}

IHostRenameResult* FakeRenameBatch::At(u32 index) {
  Record("At(" + std::to_string(index) + ")");
  return nullptr;
}

void FakeRenameBatch::Release() { End(name_ + ".Release()"); }

void FakeRenameBatch::End(const std::string& call) {
  recorder_.Record(call);
  recorder_.Released(name_);
  released_ = true;
}

bool FakeFileOperation::Allow(const std::string& call) {
  if (!recorder_.IsTaken(kFileOperationService)) recorder_.Problem(call + " without the service");
  return recorder_.Allow("file operation." + call);
}

FakeFileItem* FakeFileOperation::Find(const WCHAR* path) const {
  for (FakeFileItem* item : items) {
    if (item->FullPath() == ViewOf(path)) return item;
  }
  return nullptr;
}

int FakeFileOperation::FileExists(const WCHAR* path) {
  return Allow("FileExists(" + Quoted(path) + ")") && Find(path) != nullptr;
}

IHostFileItem* FakeFileOperation::GetFileItem(const WCHAR* path, u32 one) {
  const bool allowed = Allow("GetFileItem(" + Quoted(path) + ", " + std::to_string(one) + ")");
  return allowed ? Find(path) : nullptr;
}

void FakeFileOperation::ReleaseFileList(IHostFileList* list) {
  recorder_.Record("file operation.ReleaseFileList(" +
                   (list ? static_cast<FakeFileList*>(list)->Name() : std::string("null")) + ")");
}

IHostRenameBatch* FakeFileOperation::CreateRenameBatch() {
  if (!Allow("CreateRenameBatch()")) return nullptr;
  const std::string name = "batch" + std::to_string(batches_.size() + 1);
  recorder_.Taken(name);
  batches_.push_back(std::make_unique<FakeRenameBatch>(recorder_, name));
  return batches_.back().get();
}

void FakeFileOperation::ReleaseRenameBatch(IHostRenameBatch* batch) {
  if (!recorder_.IsTaken(kFileOperationService)) recorder_.Problem("ReleaseRenameBatch without the service");
  if (!batch) {
    recorder_.Problem("a null batch was given back");
    return;
  }
  auto* fake = static_cast<FakeRenameBatch*>(batch);
  fake->End("file operation.ReleaseRenameBatch(" + fake->Name() + ")");
}

void FakeFileOperation::RunBatch(IHostRenameBatch* batch, IRenameResultCallback* callback) {
  const auto* fake = static_cast<FakeRenameBatch*>(batch);
  recorder_.Record("file operation.RunBatch(" + (fake ? fake->Name() : std::string("null")) + ", " +
                   (callback ? "callback" : "0") + ")");
  ++runs_;
  if (!fake) {
    recorder_.Problem("a null batch was run");
    return;
  }
  runRenames_.insert(runRenames_.end(), fake->Renames().begin(), fake->Renames().end());
}

void FakeFileOperation::RunPathBatch(IHostRenameBatch* batch, IRenameResultCallback* callback) {
  const auto* fake = static_cast<FakeRenameBatch*>(batch);
  recorder_.Record("file operation.RunPathBatch(" + (fake ? fake->Name() : std::string("null")) + ", " +
                   (callback ? "callback" : "0") + ")");
  ++runs_;
}
