// The rename run and the restore run. The module neither reorders the renames nor uses temporary names; the
// rows show the host's results (C-671).

#include "frame/host/host_objects.h"
#include "multirename/engine/multi_rename_engine.h"

namespace Velmora::SDK {

namespace {

u32 StateOfResult(u32 resultCode) {
  if (resultCode == kRenameDone) return StateRenamed;
  return resultCode == kRenameIgnored ? StateIgnored : StateFailed;
}

// Returns false for a text that no run can have given a file as its name: a path that ends in it refers to
// the folder itself or to a file in another folder.
bool NamesAFile(WStringView name) {
  return name.find_first_not_of(W(". ")) != WStringView::npos &&
         name.find_first_of(W("\\/:")) == WStringView::npos;
}

void RunBatchOfItems(MultiRenameEngine& engine) {
  const HostService<IHostFileOperation> operation(*engine.host, kServiceFileOperation);
  if (!operation) return;
  const HostObject<IHostRenameBatch> batch(operation->CreateRenameBatch());
  if (!batch) return;
  for (MultiRenameItem* const item : engine.items) {
    if (item->hostItem) batch->AddByItem(item->hostItem, item->newName.c_str(), item);
  }
  CRenameResultCallback callback(engine.status);
  operation->RunBatch(batch.Get(), &callback);
  for (u32 index = 0, count = batch->Count(); index < count; ++index) {
    IHostRenameResult* const result = batch->At(index);
    if (!result || !result->UserData()) continue;
    static_cast<MultiRenameItem*>(result->UserData())->state = StateOfResult(result->ResultCode());
  }
}

}  // namespace

void RunRenames(MultiRenameEngine& engine, bool writeUndoFile) {
  engine.status.BeginRun(kRenameRun);
  if (!engine.host) return;
  RunBatchOfItems(engine);
  auto session = std::make_unique<MultiRenameUndo>();
  session->FromRows(engine.items, true);
  GetLocalTime(&session->date);
  if (session->entries.empty()) return;
  if (writeUndoFile) engine.undoStore.Save(*session);
  if (engine.undoStore.loaded) engine.undoStore.sessions.push_back(std::move(session));
}

void RunRestore(MultiRenameEngine& engine, const MultiRenameUndo& session) {
  engine.status.BeginRun(kRestoreRun);
  if (!engine.host) return;
  const HostService<IHostFileOperation> operation(*engine.host, kServiceFileOperation);
  if (!operation) return;
  const HostObject<IHostRenameBatch> batch(operation->CreateRenameBatch());
  if (!batch) return;
  for (const MultiRenameUndoEntry& entry : session.entries) {
    if (!NamesAFile(entry.newName)) {
      engine.status.CountResult(ERROR_INVALID_NAME);
      continue;
    }
    WString path = entry.folder;
    if (!path.ends_with(W('\\'))) path += W('\\');
    path += entry.newName;
    // The host passes the pointer to the callback and does not modify the entry.
    batch->AddByPath(path.c_str(), entry.oldName.c_str(), const_cast<MultiRenameUndoEntry*>(&entry));
  }
  CRenameResultCallback callback(engine.status);
  operation->RunPathBatch(batch.Get(), &callback);
}

}  // namespace Velmora::SDK
