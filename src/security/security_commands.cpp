#include "security/security_commands.h"

#include <array>
#include <functional>
#include <optional>
#include <vector>

#include "frame/host/host_objects.h"
#include "frame/services/format_text.h"
#include "frame/services/helper_requests.h"
#include "frame/services/language_text.h"
#include "frame/services/selected_items.h"
#include "security/current_user.h"
#include "security/item_path.h"
#include "security/ntfs_prop.h"
#include "security/ntfs_tools.h"

using namespace Velmora::SDK;

namespace {

// An item with a complete path.
struct SecurityTarget {
  IHostFileItem* item;
  WString path;
};

std::vector<SecurityTarget> SelectTargets(IHostApp& host) {
  std::vector<SecurityTarget> targets;
  ForEachSelectedItem(host, kModeWithFolders, [&targets](IHostFileItem& item) {
    std::optional<WString> path = SecurityPathOf(item);
    if (path && !path->empty()) targets.push_back({&item, *std::move(path)});
  });
  return targets;
}

// Shows an error: for denied access a text without a number, for all other errors the text of the command
// with the error's number (C-511).
void ShowSecurityError(IHostApp& host, u32 error, MessageText text) {
  if (error == ERROR_SUCCESS) return;
  const bool isDenied = error == ERROR_ACCESS_DENIED;
  const WString caption = LanguageText(host, isDenied ? kTextAccessDenied : kTextAccessFailed);
  const WString message =
      isDenied ? LanguageText(host, kTextAccessDeniedAbout) : FormatCount(LanguageText(host, text), error);
  MessageBoxW(nullptr, message.c_str(), caption.c_str(), MB_OK | MB_ICONERROR);
}

bool UseElevatedHelper(IHostApp& host) { return host.IsVistaOrNewer() && !host.IsProcessElevated(); }

// Sends the command to the helper and returns its reply; std::nullopt if the helper shall not be used or
// cannot be reached.
std::optional<u32> AskHelper(IHostApp& host, HelperMessageCode code,
                             const std::vector<SecurityTarget>& targets,
                             const std::function<void(IHostPacketWriter&)>& writeFirst) {
  if (!UseElevatedHelper(host)) return std::nullopt;
  return SendToHelper(host, code, [&](IHostPacketWriter& writer) {
    writeFirst(writer);
    writer.WriteU32(static_cast<u32>(targets.size()));
    for (const SecurityTarget& target : targets) writer.WriteString(target.path.c_str());
  });
}

// Changes the items in order until the first error. Returns that error, or 0.
u32 ChangeEach(const std::vector<SecurityTarget>& targets,
               const std::function<u32(const SecurityTarget&)>& change) {
  for (const SecurityTarget& target : targets) {
    if (const u32 error = change(target)) return error;
  }
  return ERROR_SUCCESS;
}

void RefreshView(IHostApp& host, IHostFileItem& item) {
  constexpr u32 kFolderChars = 4096;
  const HostService<IHostViewRefresh> refresh(host, kServiceViewRefresh);
  if (!refresh) return;
  std::array<WCHAR, kFolderChars + 1> folder = {};  // terminated even if the host fills all of its buffer
  item.GetFolderPath(folder.data(), kFolderChars);
  refresh->AddFolder(folder.data());
}

}  // namespace

void TakeOwnershipCommand(IHostApp& host) {
  const WString user = CurrentUserName();
  const std::vector<SecurityTarget> targets = SelectTargets(host);
  if (targets.empty()) return;
  const auto nothingFirst = [](IHostPacketWriter&) {};
  std::optional<u32> error = AskHelper(host, kHelperTakeOwnership, targets, nothingFirst);
  if (error == ERROR_SUCCESS) {
    for (const SecurityTarget& target : targets) target.item->ClearStoredProperty(kPropertyOwner);
  } else if (!error) {
    NTFSTools tools;
    PrivilegeList privileges(true);
    tools.EnableTakeOwnership(privileges);
    error = ChangeEach(targets, [&](const SecurityTarget& target) {
      const u32 result = tools.TakeOwnership(target.path, user);
      if (result == ERROR_SUCCESS) target.item->ClearStoredProperty(kPropertyOwner);
      return result;
    });
  }
  if (*error == ERROR_SUCCESS) return RefreshView(host, *targets.front().item);
  ShowSecurityError(host, *error, kTextTakeOwnershipFailed);
}

void ResetAccessCommand(IHostApp& host) {
  const std::vector<SecurityTarget> targets = SelectTargets(host);
  if (targets.empty()) return;
  const WString caption = LanguageText(host, kTextResetAccessCaption);
  const WString question = LanguageText(host, kTextResetAccessQuestion);
  if (MessageBoxW(host.GetMainWindow(), question.c_str(), caption.c_str(), MB_YESNO | MB_ICONINFORMATION) !=
      IDYES)
    return;
  std::optional<u32> error = AskHelper(host, kHelperResetAccess, targets, [](IHostPacketWriter&) {});
  if (!error) {
    error = ChangeEach(targets,
                       [](const SecurityTarget& target) { return NTFSTools().ResetAccess(target.path); });
  }
  ShowSecurityError(host, *error, kTextResetAccessFailed);
}

void AddAccessCommand(IHostApp& host, const ChangeAccessDialog& show) {
  ChangeAccessForm form;
  form.userName = CurrentAccountName();
  const std::vector<SecurityTarget> targets = SelectTargets(host);
  if (targets.empty() || show(host, form) != IDOK) return;
  const u32 mask = static_cast<u32>(form.accessMask);
  std::optional<u32> error = AskHelper(host, kHelperAddAccess, targets, [&](IHostPacketWriter& writer) {
    writer.WriteU32(mask);
    writer.WriteString(form.userName.c_str());
  });
  if (!error) {
    error = ChangeEach(targets, [&](const SecurityTarget& target) {
      return NTFSTools().AddAccess(target.path, form.userName, mask);
    });
  }
  ShowSecurityError(host, *error, kTextAddAccessFailed);
}

void AddAccessCommand(IHostApp& host) {
  AddAccessCommand(host,
                   [](IHostApp& asker, ChangeAccessForm& form) { return ShowChangeAccessDlg(asker, form); });
}
