// The fake host's items, lists of items, rename batches and file operation.
#pragma once

#include <iosfwd>
#include <memory>
#include <optional>

#include "frame/host/host_files.h"
#include "support/host_recorder.h"

// A file or folder without contents: only its path and attributes. The base name of a file ends at the last
// dot; a name without a dot and the name of a folder have no extension.
class FakeFileItem final : public Velmora::SDK::IHostFileItem {
 public:
  FakeFileItem(HostRecorder& recorder, WString folder, WString name, Velmora::SDK::u32 attributes);

  Velmora::SDK::s32 remoteLevel = 0;
  // The value that GetStoredProperty returns for every property; empty for none.
  std::vector<unsigned char> stored;
  bool fillsPathsWhole = false;  // GetFullPath fills the buffer with a cut path and no terminator

  const WString& Name() const { return name_; }
  WString FullPath() const { return folder_ + name_; }

  std::optional<bool> isFolder;  // what IsFolder returns; if not set, the directory attribute decides

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
  // Adds an item, as the host does.
  void Append(FakeFileItem* item) { items_.push_back(item); }
  // Returns the full paths of the items, read like the host reads them.
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

// A rename that the module has queued.
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

  // Ends the batch, as ReleaseRenameBatch does.
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

// The name of the service in the count of objects in use.
inline constexpr char kFileOperationService[] = "service 3000";

// Renames nothing; stores the batches that are run.
class FakeFileOperation final : public Velmora::SDK::IHostFileOperation {
 public:
  explicit FakeFileOperation(HostRecorder& recorder) : recorder_(recorder) {}

  // Returns the renames of all batches that were run, in order.
  const std::vector<QueuedRename>& RunRenames() const { return runRenames_; }
  int Runs() const { return runs_; }
  // The items that GetFileItem searches.
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
  std::vector<std::unique_ptr<FakeRenameBatch>> batches_;  // kept after their release, to detect a later use
  std::vector<QueuedRename> runRenames_;
  int runs_ = 0;
};
