#include "filetools/replace_xy.h"

#include <array>

#include "filetools/name_transforms.h"
#include "frame/host/host_objects.h"
#include "frame/services/file_item_entry.h"

using namespace Velmora::SDK;

namespace {

constexpr const WCHAR* kFindHistory = W("ReplaceXY_Replace");
constexpr const WCHAR* kReplaceHistory = W("ReplaceXY_With");
constexpr u32 kHistoryTextChars = 256;
constexpr u32 kMaxHistoryTexts = 20;

std::vector<WString> LoadHistory(IHostConfig& config, IHostStringList& list, const WCHAR* key) {
  std::vector<WString> texts;
  list.Clear();
  config.LoadStringList(key, &list);
  const u32 count = list.GetCount();
  std::array<WCHAR, kHistoryTextChars> buffer = {};
  for (u32 index = 0; index < count; ++index) {
    if (list.GetString(index, buffer.data(), kHistoryTextChars)) texts.emplace_back(buffer.data());
  }
  return texts;
}

// Saves the history with the entered text as its first. The settings store keeps only the first strings.
void SaveHistory(IHostConfig& config, IHostStringList& list, const WCHAR* key, const WString& entered,
                 const std::vector<WString>& history) {
  list.Clear();
  list.Add(entered.c_str());
  for (const WString& text : history) list.Add(text.c_str());
  list.Finish(1);
  config.SaveStringList(key, &list, kMaxHistoryTexts);
}

}  // namespace

void ReplaceXYCommand(IHostApp& host, const ReplaceDialog& showDialog) {
  std::optional<FileItemEntries> entries = SelectEntries(host, kListSelectedItems, kModeRename);
  if (!entries || entries->empty()) return;
  IHostConfig* const config = host.GetConfig();
  if (!config) return;
  const HostObject<IHostStringList> list(host.CreateStringList());
  if (!list) return;

  ReplaceForm form;
  form.findHistory = LoadHistory(*config, *list.Get(), kFindHistory);
  form.replaceHistory = LoadHistory(*config, *list.Get(), kReplaceHistory);
  if (showDialog(host, form) != IDOK) return;
  SaveHistory(*config, *list.Get(), kFindHistory, form.find, form.findHistory);
  SaveHistory(*config, *list.Get(), kReplaceHistory, form.replace, form.replaceHistory);

  RenameChanged(host, std::move(*entries), [&form](FileItemEntry& entry) {
    return ReplaceInName(entry, form.find, form.replace, form.part);
  });
}
