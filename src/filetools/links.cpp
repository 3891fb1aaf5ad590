#include "filetools/links.h"

#include <algorithm>
#include <iterator>
#include <optional>

#include "filetools/junction.h"
#include "filetools/shortcut.h"
#include "frame/services/helper_requests.h"
#include "frame/services/language_text.h"
#include "frame/services/message_texts.h"
#include "frame/services/system_error_text.h"
#include "platform/system_library.h"

using namespace Velmora::SDK;

namespace {

struct LinkKindRow {
  LinkKind kind;
  DWORD (*create)(const WString& link, const WString& target, bool isFolder);
  const WCHAR* logWord;
};

DWORD CreateHardLinkTo(const WString& link, const WString& target, bool) {
  return CreateHardLinkW(link.c_str(), target.c_str(), nullptr) ? ERROR_SUCCESS : GetLastError();
}

DWORD CreateJunctionTo(const WString& link, const WString& target, bool) {
  return CreateJunction(link, target);
}

// SYMBOLIC_LINK_FLAG_ALLOW_UNPRIVILEGED_CREATE, which not all headers define.
constexpr DWORD kAllowUnprivilegedCreate = 2;

// Looks the function up at run time, because some versions of Windows lack it.
DWORD CreateSymbolicLinkTo(const WString& link, const WString& target, bool isFolder) {
  const SystemLibrary library(W("kernel32.dll"));
  const auto create = library.Find<decltype(&CreateSymbolicLinkW)>("CreateSymbolicLinkW");
  if (!create) return GetLastError();
  const DWORD flags = isFolder ? SYMBOLIC_LINK_FLAG_DIRECTORY : 0;
  const auto attempt = [&](DWORD allFlags) -> DWORD {
    return create(link.c_str(), target.c_str(), allFlags) ? ERROR_SUCCESS : GetLastError();
  };
  const DWORD error = attempt(flags);
  return error == ERROR_PRIVILEGE_NOT_HELD ? attempt(flags | kAllowUnprivilegedCreate) : error;
}

DWORD CreateShortcutTo(const WString& link, const WString& target, bool isFolder) {
  return CreateShortcut(link, target, isFolder) ? ERROR_SUCCESS : ERROR_PATH_NOT_FOUND;
}

// The word for shortcuts in the log, which is the one for unknown kinds (C-401).
constexpr const WCHAR* kUnknownWord = W("Unknown");

// clang-format off
constexpr LinkKindRow kLinkKinds[] = {
  {kHardLink,     CreateHardLinkTo,     W("Hardlink")},
  {kJunction,     CreateJunctionTo,     W("Junction")},
  {kSymbolicLink, CreateSymbolicLinkTo, W("Symlink")},
  {kShortcut,     CreateShortcutTo,     kUnknownWord},
};
// clang-format on

const LinkKindRow* FindKind(LinkKind kind) {
  const auto* const row = std::ranges::find(kLinkKinds, kind, &LinkKindRow::kind);
  return row == std::end(kLinkKinds) ? nullptr : row;
}

void LogOutcome(IHostApp& host, LinkKind kind, const WString& link, const WString& target, DWORD error) {
  const LinkKindRow* const row = FindKind(kind);
  const WCHAR* const word = row ? row->logWord : kUnknownWord;
  if (error == ERROR_SUCCESS) {
    host.LogMessage(1, kLogInformation, W("Link Created (%s) Link : \"%s\" Link Target : \"%s\""), word,
                    link.c_str(), target.c_str());
  } else {
    host.LogMessage(1, kLogError,
                    W("Failed to create link (%s) (Error : %d) Link : \"%s\" Link Target : \"%s\""), word,
                    static_cast<int>(error), link.c_str(), target.c_str());
  }
}

bool IsRefusal(DWORD error) { return error == ERROR_ACCESS_DENIED || error == ERROR_PRIVILEGE_NOT_HELD; }

}  // namespace

DWORD CreateLinkOfKind(IHostApp* host, LinkKind kind, const WString& link, const WString& target,
                       bool isFolder) {
  const LinkKindRow* const row = FindKind(kind);
  const DWORD error = row ? row->create(link, target, isFolder) : ERROR_INVALID_DATA;
  if (host) LogOutcome(*host, kind, link, target, error);
  return error;
}

DWORD CreateLinkElevated(IHostApp& host, LinkKind kind, const WString& link, const WString& target,
                         bool isFolder) {
  const std::optional<u32> reply = SendToHelper(host, kHelperCreateLink, [&](IHostPacketWriter& writer) {
    writer.WriteU32(static_cast<u32>(kind));
    writer.WriteString(link.c_str());
    writer.WriteString(target.c_str());
    writer.WriteU32(isFolder ? 1 : 0);
  });
  if (!reply) return ERROR_ACCESS_DENIED;
  LogOutcome(host, kind, link, target, *reply);
  return *reply;
}

DWORD CreateLinkWithRetry(IHostApp& host, LinkKind kind, const WString& link, const WString& target,
                          bool isFolder) {
  DWORD error = CreateLinkOfKind(&host, kind, link, target, isFolder);
  if (IsRefusal(error) && host.IsVistaOrNewer() && !host.IsProcessElevated()) {
    error = CreateLinkElevated(host, kind, link, target, isFolder);
  }
  if (error != ERROR_SUCCESS) {
    const WString caption = LanguageText(host, kTextLinkFailed);
    host.MessageBox(caption.c_str(), GetSystemErrorText(error).c_str(), MB_ICONERROR);
  }
  return error;
}
