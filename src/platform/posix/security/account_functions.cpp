// LookupAccountSidW, LookupAccountNameW, GetUserNameW, GetUserNameExW, WNetGetUniversalNameW.

#include <unistd.h>

#include <algorithm>
#include <cstring>

#include "platform/posix/files/fault_gate.h"
#include "platform/posix/last_error.h"
#include "platform/posix/security/account.h"
#include "platform/posix/security/security_functions.h"

namespace {

using Platform::Account;
using Platform::FailWith;

SID_NAME_USE UseOf(const Account& account) {
  switch (account.kind) {
    case Account::kUser:
      return SidTypeUser;
    case Account::kGroup:
      return SidTypeAlias;
    default:
      return SidTypeWellKnownGroup;
  }
}

// Returns whether the text and its terminator fit into a buffer of `size` characters.
bool HasRoom(const WCHAR* buffer, DWORD size, std::u16string_view text) {
  return buffer && size > text.size();
}

void Fill(WCHAR* buffer, std::u16string_view text) { buffer[text.copy(buffer, text.size())] = u'\0'; }

// Copies the text to the buffer and stores its size, without the terminator, in `*size`. If the buffer is too
// small, stores the size needed, with the terminator, and fails with `tooSmall`.
BOOL GiveName(std::u16string_view text, WCHAR* buffer, DWORD* size, DWORD tooSmall) {
  if (!size) return FailWith(ERROR_INVALID_PARAMETER);
  if (!HasRoom(buffer, *size, text)) {
    *size = static_cast<DWORD>(text.size() + 1);
    return FailWith(tooSmall);
  }
  Fill(buffer, text);
  *size = static_cast<DWORD>(text.size());
  return TRUE;
}

std::u16string CurrentUserName() { return Platform::NameOf(Platform::UserAccount(geteuid())); }

}  // namespace

BOOL LookupAccountSidW(const WCHAR* system, PSID sid, WCHAR* name, DWORD* nameSize, WCHAR* domain,
                       DWORD* domainSize, SID_NAME_USE* use) {
  if (Platform::FaultFires("LookupAccountSidW", {.path = system})) return FALSE;
  if (!nameSize || !domainSize || !use) return FailWith(ERROR_INVALID_PARAMETER);
  const std::size_t sidSize = Platform::SidSize(sid);
  if (sidSize == 0) return FailWith(ERROR_INVALID_PARAMETER);
  if (system && *system) return FailWith(RPC_S_SERVER_UNAVAILABLE);
  const auto account = Platform::AccountOfSid({static_cast<const BYTE*>(sid), sidSize});
  if (!account) return FailWith(ERROR_NONE_MAPPED);
  const std::u16string text = Platform::NameOf(*account);
  if (!HasRoom(name, *nameSize, text) || !HasRoom(domain, *domainSize, u"")) {
    *nameSize = static_cast<DWORD>(text.size() + 1);
    *domainSize = 1;
    return FailWith(ERROR_INSUFFICIENT_BUFFER);
  }
  Fill(name, text);
  Fill(domain, u"");
  *nameSize = static_cast<DWORD>(text.size());
  *domainSize = 0;
  *use = UseOf(*account);
  return TRUE;
}

BOOL LookupAccountNameW(const WCHAR* system, const WCHAR* name, PSID sid, DWORD* sidSize, WCHAR* domain,
                        DWORD* domainSize, SID_NAME_USE* use) {
  if (Platform::FaultFires("LookupAccountNameW", {.path = name})) return FALSE;
  if (!sidSize || !domainSize || !use) return FailWith(ERROR_INVALID_PARAMETER);
  if (system && *system) return FailWith(RPC_S_SERVER_UNAVAILABLE);
  const auto account = Platform::AccountOfName(name ? std::u16string_view(name) : std::u16string_view());
  if (!account) return FailWith(ERROR_NONE_MAPPED);
  const std::vector<BYTE> bytes = Platform::SidOf(*account);
  if (!sid || *sidSize < bytes.size() || !HasRoom(domain, *domainSize, u"")) {
    *sidSize = static_cast<DWORD>(bytes.size());
    *domainSize = 1;
    return FailWith(ERROR_INSUFFICIENT_BUFFER);
  }
  std::memcpy(sid, bytes.data(), bytes.size());
  Fill(domain, u"");
  *sidSize = static_cast<DWORD>(bytes.size());
  *domainSize = 0;
  *use = UseOf(*account);
  return TRUE;
}

BOOL GetUserNameW(WCHAR* buffer, DWORD* size) {
  if (Platform::FaultFires("GetUserNameW")) return FALSE;
  const std::u16string name = CurrentUserName();
  if (!GiveName(name, buffer, size, ERROR_INSUFFICIENT_BUFFER)) return FALSE;
  ++*size;  // GetUserNameW includes the terminator
  return TRUE;
}

BOOLEAN GetUserNameExW(EXTENDED_NAME_FORMAT format, WCHAR* buffer, ULONG* size) {
  if (Platform::FaultFires("GetUserNameExW", static_cast<std::uint32_t>(format))) return FALSE;
  if (format != NameSamCompatible) return static_cast<BOOLEAN>(FailWith(ERROR_NONE_MAPPED));
  return static_cast<BOOLEAN>(GiveName(CurrentUserName(), buffer, size, ERROR_MORE_DATA));
}

DWORD WNetGetUniversalNameW(const WCHAR* path, DWORD level, void* buffer, DWORD* size) {
  if (Platform::FaultFires("WNetGetUniversalNameW", {.path = path})) return GetLastError();
  if (const auto given = Platform::InjectedResult("WNetGetUniversalNameW"); given && buffer && size) {
    std::copy_n(given->bytes.begin(), std::min<std::size_t>(given->bytes.size(), *size),
                static_cast<BYTE*>(buffer));
    return given->result;
  }
  const std::u16string name = Platform::Faults::UniversalName();
  if (!path || !size || level != UNIVERSAL_NAME_INFO_LEVEL) return ERROR_INVALID_PARAMETER;
  if (name.empty()) return ERROR_NOT_CONNECTED;
  const std::size_t needed = sizeof(UNIVERSAL_NAME_INFOW) + (name.size() + 1) * sizeof(WCHAR);
  if (!buffer || *size < needed) {
    *size = static_cast<DWORD>(needed);
    return ERROR_MORE_DATA;
  }
  auto* const info = static_cast<UNIVERSAL_NAME_INFOW*>(buffer);
  info->lpUniversalName = reinterpret_cast<WCHAR*>(info + 1);
  Fill(info->lpUniversalName, name);
  return ERROR_SUCCESS;
}
