// The fake host's items, lists of items, rename batches and file operation.
#pragma once

#include <iosfwd>
#include <memory>
#include <optional>

#include "frame/host/host_files.h"
#include "support/host_recorder.h"

// A file or folder that is only a name. The base name ends at the last dot; a name without a dot has no
// extension, and a folder has none.
class FakeFileItem final : public Velmora::SDK::IHostFileItem {
 public:
  FakeFileItem(HostRecorder& recorder, WString folder, WString name, Velmora::SDK::u32 attributes);

  Velmora::SDK::s32 remoteLevel = 0;
  // What GetStoredProperty gives for every property; empty for nothing.
  std::vector<unsigned char> stored;
  bool fillsPathsWhole = false;  // GetFullPath writes a path that is cut without a zero

  const WString& Name() const { return name_; }
  WString FullPath() const { return folder_ + name_; }

  std::optional<bool> isFolder;  // what IsFolder returns; without it what the attributes say

  const WCHAR* GetName(WCHAR* buffer, Velmora::SDK::u32 size) override;
  void GetBaseName(WCHAR* buffer, Velmora::SDK::u32 size) override;
  const WCHAR* GetFolderPath(WCHAR* buffer, Velmora::SDK::u32 size) override;
  void GetParentPath(WCHAR* buffer, Velmora::SDK::u32 size) override;
  const WCHAR* GetFullPath(WCHAR* buffer, Velmora::SDK::u32 size) override;
  void GetTagText(WCHAR* buffer, Velmora::SDK::u32 size) override;
  const WCHAR* GetExtensionText(Velmora::SDK::u32 flag) override;
  void GetExtension(WCHAR* buffer, Velmora::SDK::u32 size, Velmora::SDK::u32 flag) override;
  Velmora::SDK::u32 GetAttributes() override;
  Velmora::SDK::s64 GetRowImage(Velmora::SDK::u32 imageSet) override;
  bool IsFolder() override;
  Velmora::SDK::s32 GetRemoteLevel() override;
  int GetStoredProperty(Velmora::SDK::u32 moduleNumber, Velmora::SDK::u32 propertyNumber,
                        void* record) override;
  void ClearStoredProperty(Velmora::SDK::u32 propertyNumber) override;

 private:
  void Record(const std::string& call);
  WString Extension(bool withDot) const;
  bool HasFolderAttribute() const;
  void Fill(WCHAR* buffer, Velmora::SDK::u32 size, WStringView text);

  HostRecorder& recorder_;
  WString folder_;  // ends in a backslash
  WString name_;
  Velmora::SDK::u32 attributes_;
};

class FakeFileList final : public Velmora::SDK::IHostFileList {
 public:
  FakeFileList(HostRecorder& recorder, std::string name) : recorder_(recorder), name_(std::move(name)) {}

  const std::string& Name() const { return name_; }
  // As the host fills it.
  void Append(FakeFileItem* item) { items_.push_back(item); }
  // Full paths of the items, as the host reads them.
  std::vector<WString> Paths();

  void AddItem(Velmora::SDK::IHostFileItem* item) override;
  Velmora::SDK::u32 GetCount() override;
  Velmora::SDK::IHostFileItem* GetItem(Velmora::SDK::u32 index) override;
  void Release() override;

 private:
  void CheckUse(const char* operation);

  HostRecorder& recorder_;
  std::string name_;
  std::vector<Velmora::SDK::IHostFileItem*> items_;
  bool released_ = false;
};

// One rename as the module queued it.
struct QueuedRename {
  WString from;
  WString to;
  friend bool operator==(const QueuedRename&, const QueuedRename&) = default;
};
void PrintTo(const QueuedRename& rename, std::ostream* out);

class FakeRenameBatch final : public Velmora::SDK::IHostRenameBatch {
 public:
  FakeRenameBatch(HostRecorder& recorder, std::string name) : recorder_(recorder), name_(std::move(name)) {}

  const std::string& Name() const { return name_; }
  const std::vector<QueuedRename>& Renames() const { return renames_; }

  // As ReleaseRenameBatch does.
  void End(const std::string& call);

  void AddByPath(const WCHAR* fullPath, const WCHAR* newName, void* userData) override;
  void AddByItem(Velmora::SDK::IHostFileItem* item, const WCHAR* newName, void* userData) override;
  Velmora::SDK::u32 Count() override;
  Velmora::SDK::IHostRenameResult* At(Velmora::SDK::u32 index) override;
  void Release() override;

 private:
  void Record(const std::string& call);

  HostRecorder& recorder_;
  std::string name_;
  std::vector<QueuedRename> renames_;
  bool released_ = false;
};

// How the service is named where what is taken is counted.
inline constexpr char kFileOperationService[] = "service 3000";

// Renames nothing; the batches that were run are kept.
class FakeFileOperation final : public Velmora::SDK::IHostFileOperation {
 public:
  explicit FakeFileOperation(HostRecorder& recorder) : recorder_(recorder) {}

  // Of all batches that were run, one after the other.
  const std::vector<QueuedRename>& RunRenames() const { return runRenames_; }
  int Runs() const { return runs_; }
  // What GetFileItem finds.
  std::vector<FakeFileItem*> items;

  int FileExists(const WCHAR* path) override;
  Velmora::SDK::IHostFileItem* GetFileItem(const WCHAR* path, Velmora::SDK::u32 one) override;
  void ReleaseFileList(Velmora::SDK::IHostFileList* list) override;
  Velmora::SDK::IHostRenameBatch* CreateRenameBatch() override;
  void ReleaseRenameBatch(Velmora::SDK::IHostRenameBatch* batch) override;
  void RunBatch(Velmora::SDK::IHostRenameBatch* batch,
                Velmora::SDK::IRenameResultCallback* callback) override;
  void RunPathBatch(Velmora::SDK::IHostRenameBatch* batch,
                    Velmora::SDK::IRenameResultCallback* callback) override;

 private:
  bool Allow(const std::string& call);
  FakeFileItem* Find(const WCHAR* path) const;

  HostRecorder& recorder_;
  std::vector<std::unique_ptr<FakeRenameBatch>> batches_;  // kept after their release, to see a late use
  std::vector<QueuedRename> runRenames_;
  int runs_ = 0;
};
