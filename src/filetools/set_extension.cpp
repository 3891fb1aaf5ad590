#include "filetools/set_extension.h"

#include <array>

#include "frame/host/host_objects.h"
#include "frame/services/file_item_entry.h"
#include "frame/services/message_texts.h"

using namespace Velmora::SDK;

namespace {

constexpr u32 kAnswerChars = 1024;
constexpr u32 kMaxBaseName = 4096;

using Answer = std::array<WCHAR, kAnswerChars>;

// Stores the extension of the focused item, without its dot, as the default text.
void GetDefaultExtension(IHostApp& host, Answer& answer) {
  const std::optional<FileItemEntries> focused = SelectEntries(host, kListFocusedItem, kModeWithFolders);
  if (focused && !focused->empty()) focused->front().item->GetExtension(answer.data(), kAnswerChars, 1);
}

bool SetExtension(FileItemEntry& entry, const WString& extension) {
  if (entry.item->IsFolder()) return false;
  std::array<WCHAR, kMaxBaseName> buffer = {};
  entry.item->GetBaseName(buffer.data(), kMaxBaseName);
  entry.newName = buffer.data() + (W('.') + extension);
  return entry.newName != ViewOf(entry.item->GetName(buffer.data(), kMaxBaseName));
}

}  // namespace

void SetExtensionCommand(IHostApp& host) {
  Answer answer = {};
  GetDefaultExtension(host, answer);
  std::optional<FileItemEntries> entries = SelectEntries(host, kListSelectedItems, kModeContent);
  if (!entries) return;
  if (entries->empty()) {
    host.LogText(0, kLogInformation, W("Command failed - No files selected"));
    return;
  }

  const WString title(ViewOf(host.GetLanguageString(kTextRenameCaption)));
  const WString prompt(ViewOf(host.GetLanguageString(kTextSetExtensionPrompt)));
  if (!host.AskText(title.c_str(), prompt.c_str(), answer.data(), nullptr, answer.data(), kAnswerChars,
                    nullptr, 0)) {
    return;
  }
  WString extension = answer.data();
  if (extension.starts_with(W('.'))) extension.erase(0, 1);
  if (extension.empty()) return;

  std::erase_if(*entries, [&extension](FileItemEntry& entry) { return !SetExtension(entry, extension); });
  if (!entries->empty()) RunRenameBatch(host, *entries);
}
