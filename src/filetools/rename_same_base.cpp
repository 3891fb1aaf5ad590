#include "filetools/rename_same_base.h"

#include <algorithm>
#include <array>

#include "frame/host/host_objects.h"
#include "frame/services/file_item_entry.h"
#include "frame/services/message_texts.h"

using namespace Velmora::SDK;

namespace {

constexpr u32 kMaxNewBase = 1024;

WString NameOfItem(IHostFileItem& item) {
  std::array<WCHAR, kMaxNewBase> buffer = {};
  return WString(ViewOf(item.GetName(buffer.data(), kMaxNewBase)));
}

WString BaseOf(const WString& name) { return name.substr(0, name.rfind(W('.'))); }

// Returns the files of the view that have the base name of the focused item; no files without a focused item,
// std::nullopt if the host refuses the view. In `list` the focused item is first and occurs again among the
// items of the view, which follow it.
std::optional<FileItemEntries> FilesOfFocusedBase(IHostApp& host, IHostFileList& list) {
  if (host.FileListRequest(kListFocusedItem, &list, kModePlain, 0) == 0) return FileItemEntries();
  if (host.FileListRequest(kListAllItems, &list, kModePlain, 0) == 0) return std::nullopt;

  FileItemEntries entries;
  IHostFileItem* const focused = list.GetCount() > 0 ? list.GetItem(0) : nullptr;
  if (!focused) return entries;
  const WString focusedBase = BaseOf(NameOfItem(*focused));
  AppendEntries(entries, list, 1);
  std::erase_if(entries, [&focusedBase](const FileItemEntry& entry) {
    return (entry.item->GetAttributes() & FILE_ATTRIBUTE_DIRECTORY) != 0 ||
           BaseOf(NameOfItem(*entry.item)) != focusedBase;
  });
  return entries;
}

}  // namespace

void RenameSameBaseCommand(IHostApp& host) {
  HostObject<IHostFileList> list(host.CreateFileList());
  if (!list) return;
  std::optional<FileItemEntries> entries = FilesOfFocusedBase(host, *list.Get());
  list.Release();
  if (!entries) return;

  // Asks even if no file was found; the batch is then empty (C-306).
  std::array<WCHAR, kMaxNewBase> buffer = {};
  const WString title(ViewOf(host.GetLanguageString(kTextSameBaseTitle)));
  const WString prompt(ViewOf(host.GetLanguageString(kTextSameBasePrompt)));
  if (host.AskTextSimple(title.c_str(), prompt.c_str(), 0, 0, buffer.data(), kMaxNewBase) == 0) return;

  const WString newBase = buffer.data();
  for (FileItemEntry& entry : *entries) {
    const WString name = NameOfItem(*entry.item);
    const std::size_t dot = name.rfind(W('.'));
    // For a name without a dot the new name stays empty, and the host refuses that rename (C-306).
    if (dot != WString::npos) entry.newName = newBase + name.substr(dot);
  }
  RunRenameBatch(host, *entries);
}
