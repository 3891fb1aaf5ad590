#include "filetools/create_links_command.h"

#include <array>
#include <vector>

#include "frame/host/host_objects.h"
#include "frame/services/language_text.h"
#include "frame/services/message_texts.h"

using namespace Velmora::SDK;

namespace {

constexpr u32 kPathChars = 4096;
using PathBuffer = std::array<WCHAR, kPathChars + 1>;  // terminated even if the host fills all of its buffer

constexpr const WCHAR* kSection = W("CreateLink");
constexpr const WCHAR* kLastKindKey = W("LastLinkValue");

// The target of a link.
struct Item {
  WString name;
  WString path;
  bool isFolder;
};

Item ReadItem(IHostFileItem& item) {
  PathBuffer name = {};
  PathBuffer path = {};
  const WString nameText(ViewOf(item.GetName(name.data(), kPathChars)));
  item.GetFullPath(path.data(), kPathChars);
  return {nameText, path.data(), (item.GetAttributes() & FILE_ATTRIBUTE_DIRECTORY) != 0};
}

WString FolderOf(IHostFileItem& item) {
  PathBuffer folder = {};
  item.GetFolderPath(folder.data(), kPathChars);
  return folder.data();
}

s32 LoadLastKind(IHostApp& host) {
  u32 kind = 0;
  IHostConfig* const config = host.GetConfig();
  if (config) config->GetInt(1, kSection, kLastKindKey, &kind);
  return static_cast<s32>(kind);
}

void StoreLastKind(IHostApp& host, s32 kind) {
  if (IHostConfig* const config = host.GetConfig())
    config->SetInt(1, kSection, kLastKindKey, static_cast<u32>(kind));
}

void ShowNoSymbolicLinks(IHostApp& host) {
  const WString caption = LanguageTitle(host, kTextLinkNoSymbolic);
  const WString text = LanguageText(host, kTextLinkNoSymbolic);
  host.MessageBox(caption.c_str(), text.c_str(), MB_OK | MB_ICONERROR);
}

// Returns the items of a host's list.
std::vector<IHostFileItem*> ItemsOf(IHostFileList& list) {
  std::vector<IHostFileItem*> items;
  const u32 count = list.GetCount();
  for (u32 index = 0; index < count; ++index) {
    if (IHostFileItem* const item = list.GetItem(index)) items.push_back(item);
  }
  return items;
}

void FillForOne(CreateLinksForm& form, IHostFileItem& item, const WString& folder) {
  const Item source = ReadItem(item);
  form.linkName = folder + source.name;
  form.targetName = source.path;
  form.targetIsFolder = source.isFolder;
}

// Fills the form for several items. The names are only displayed, with two backslashes after the root of a
// drive (C-413).
void FillForSeveral(CreateLinksForm& form, const std::vector<IHostFileItem*>& items, const WString& folder) {
  form.multiple = true;
  form.linkName = folder + W("*");
  form.targetName = FolderOf(*items.front()) + W("\\*");
  for (IHostFileItem* const item : items) {
    ((item->GetAttributes() & FILE_ATTRIBUTE_DIRECTORY) != 0 ? form.anyFolder : form.anyFile) = true;
  }
}

// Creates one link for each item. The name of a shortcut keeps the item's extension before its own (C-405).
void LinkSeveral(IHostApp& host, LinkKind kind, const std::vector<IHostFileItem*>& items,
                 const WString& folder) {
  for (IHostFileItem* const item : items) {
    const Item source = ReadItem(*item);
    const WString link = folder + source.name + (kind == kShortcut ? W(".lnk") : W(""));
    if (CreateLinkWithRetry(host, kind, link, source.path, source.isFolder) != ERROR_SUCCESS) return;
  }
}

}  // namespace

void CreateLinkCommand(IHostApp& host, const CreateLinksDialog& show) {
  const HostObject<IHostFileList> list(host.CreateFileList());
  if (!list || host.FileListRequest(kListSelectedItems, list.Get(), kModeWithFolders, 0) == 0) return;
  const std::vector<IHostFileItem*> items = ItemsOf(*list.Get());
  if (items.empty()) return;
  PathBuffer panel = {};
  if (!host.GetTargetPanelPath(panel.data(), kPathChars)) return;
  const WString folder = panel.data();

  CreateLinksForm form;
  form.linkKind = LoadLastKind(host);
  if (items.size() == 1) {
    FillForOne(form, *items.front(), folder);
  } else {
    FillForSeveral(form, items, folder);
  }
  form.symlinksSupported = host.IsVistaOrNewer();
  StartForm(form);
  if (show(host, form) != IDOK || form.linkKind < 0) return;

  StoreLastKind(host, form.linkKind);
  const auto kind = static_cast<LinkKind>(form.linkKind);
  if (kind == kSymbolicLink && !host.IsVistaOrNewer()) return ShowNoSymbolicLinks(host);
  if (form.multiple) return LinkSeveral(host, kind, items, folder);
  CreateLinkWithRetry(host, kind, form.linkName, form.targetName, form.targetIsFolder);
}
