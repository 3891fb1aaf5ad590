// Items of the host's views, lists of items, and the host's operations on files.
#pragma once

#include "frame/host/host_types.h"

namespace Velmora::SDK {

// One file or folder. An item is owned by the host and remains valid after the list that it came from is
// released.
class IHostFileItem {
 public:
  virtual const WCHAR* GetName(WCHAR* buffer, u32 size) = 0;  // with extension; returns a pointer to the name
  virtual void GetBaseName(WCHAR* buffer, u32 size) = 0;      // without extension
  virtual const WCHAR* GetFolderPath(WCHAR* buffer, u32 size) = 0;
  virtual void GetParentPath(WCHAR* buffer, u32 size) = 0;  // the folder as used for target paths
  virtual const WCHAR* GetFullPath(WCHAR* buffer, u32 size) = 0;
  virtual void GetTagText(WCHAR* buffer, u32 size) = 0;  // the text of MultiRename's folder tag
  virtual const WCHAR* GetExtensionText(u32 flag) = 0;   // flag 1 without its dot, 0 with it
  virtual void GetExtension(WCHAR* buffer, u32 size, u32 flag) = 0;
  virtual u32 GetAttributes() = 0;  // the Windows file attributes
  virtual s64 GetRowImage(u32 imageSet) = 0;
  virtual bool IsFolder() = 0;
  virtual s32 GetRemoteLevel() = 0;  // above 0 on a network volume
  // Fills `record` (1056 bytes, StoredProperty) and returns non-zero if the host has stored a value of this
  // property.
  virtual int GetStoredProperty(u32 moduleNumber, u32 propertyNumber, void* record) = 0;
  virtual void ClearStoredProperty(u32 propertyNumber) = 0;

 protected:
  ~IHostFileItem() = default;
};

// A list of items. The caller releases the list; the items are owned by the host.
class IHostFileList {
 public:
  virtual void AddItem(IHostFileItem* item) = 0;
  virtual u32 GetCount() = 0;
  virtual IHostFileItem* GetItem(u32 index) = 0;
  virtual void Release() = 0;

 protected:
  ~IHostFileList() = default;
};

// The result of one rename of a batch.
enum RenameResultCode : u32 { kRenameDone = 0, kRenameIgnored = 10 };  // all other values mean failure

// The result of one rename, owned by its batch.
class IHostRenameResult {
 public:
  virtual void* UserData() = 0;  // the argument of AddByPath or AddByItem
  virtual u32 ResultCode() = 0;

 protected:
  ~IHostRenameResult() = default;
};

// Renames that the host performs in one run. The caller frees it with Release or
// IHostFileOperation::ReleaseRenameBatch.
class IHostRenameBatch {
 public:
  virtual void AddByPath(const WCHAR* fullPath, const WCHAR* newName, void* userData) = 0;
  virtual void AddByItem(IHostFileItem* item, const WCHAR* newName, void* userData) = 0;
  virtual u32 Count() = 0;  // the number of results, after the run
  virtual IHostRenameResult* At(u32 index) = 0;
  virtual void Release() = 0;

 protected:
  ~IHostRenameBatch() = default;
};

// Implemented by the module. The host calls it once for each rename of a run, on the thread that called
// RunBatch.
class IRenameResultCallback {
 public:
  virtual void OnRenameResult(void* item, u32 resultCode) = 0;

 protected:
  ~IRenameResultCallback() = default;
};

// Service 3000: operations on files.
class IHostFileOperation {
 public:
  virtual int FileExists(const WCHAR* path) = 0;  // non-zero if it exists
  virtual IHostFileItem* GetFileItem(const WCHAR* path, u32 one) = 0;
  virtual void ReleaseFileList(IHostFileList* list) = 0;  // ends the use of a script command's one-item list
  virtual IHostRenameBatch* CreateRenameBatch() = 0;
  virtual void ReleaseRenameBatch(IHostRenameBatch* batch) = 0;
  // Tries every rename before it returns. The host shows the errors. `callback` may be null.
  virtual void RunBatch(IHostRenameBatch* batch, IRenameResultCallback* callback) = 0;
  virtual void RunPathBatch(IHostRenameBatch* batch, IRenameResultCallback* callback) = 0;

 protected:
  ~IHostFileOperation() = default;
};

// Service 3010: collects folders. IHostApp::ReleaseService then refreshes the views of these folders.
class IHostViewRefresh {
 public:
  virtual void AddFolder(const WCHAR* path) = 0;

 protected:
  ~IHostViewRefresh() = default;
};

}  // namespace Velmora::SDK
