#include "frame/services/file_item_entry.h"

#include <memory>

#include "frame/host/host_objects.h"
#include "frame/services/format_text.h"
#include "frame/services/message_texts.h"

using namespace Velmora::SDK;

std::optional<FileItemEntries> SelectEntries(IHostApp& host, FileListCode code, FileListMode mode) {
  const HostObject<IHostFileList> list(host.CreateFileList());
  if (!list || host.FileListRequest(code, list.Get(), mode, 0) == 0) return std::nullopt;
  FileItemEntries entries;
  AppendEntries(entries, *list.Get());
  return entries;
}

void AppendEntries(FileItemEntries& entries, IHostFileList& list, u32 first) {
  const u32 count = list.GetCount();
  for (u32 index = first; index < count; ++index) {
    if (IHostFileItem* item = list.GetItem(index)) entries.push_back({item, {}});
  }
}

bool ConfirmRename(IHostApp& host, std::size_t count) {
  const WString question =
      FormatCount(ViewOf(host.GetLanguageString(kTextRenameQuestion)), static_cast<u32>(count));
  // The host may use one buffer for all texts that it returns, so copy the caption after the question is
  // complete.
  const WString caption(ViewOf(host.GetLanguageString(kTextRenameCaption)));
  return MessageBoxW(host.GetMainWindow(), question.c_str(), caption.c_str(),
                     MB_OKCANCEL | MB_ICONQUESTION) == IDOK;
}

void RunRenameBatch(IHostApp& host, const FileItemEntries& entries) {
  const HostService<IHostFileOperation> operation(host, kServiceFileOperation);
  if (!operation) return;
  IHostRenameBatch* const batch = operation->CreateRenameBatch();
  if (!batch) return;
  const auto release = [&operation](IHostRenameBatch* used) { operation->ReleaseRenameBatch(used); };
  const std::unique_ptr<IHostRenameBatch, decltype(release)> owned(batch, release);
  for (const FileItemEntry& entry : entries) batch->AddByItem(entry.item, entry.newName.c_str(), nullptr);
  operation->RunBatch(batch, nullptr);
}

void RenameChanged(IHostApp& host, FileItemEntries entries, const EntryTransform& transform) {
  std::erase_if(entries, [&transform](FileItemEntry& entry) { return !transform(entry); });
  if (entries.empty() || !ConfirmRename(host, entries.size())) return;
  RunRenameBatch(host, entries);
}
