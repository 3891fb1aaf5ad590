// The token of the process, its privileges, and its heap.

#include <unistd.h>

#include <algorithm>
#include <cstdlib>
#include <string_view>

#include "platform/posix/files/fault_gate.h"
#include "platform/posix/last_error.h"
#include "platform/posix/security/process_token.h"
#include "platform/posix/security/security_functions.h"

namespace {

using Platform::FailWith;

struct PrivilegeRow {
  std::u16string_view name;
  DWORD value;
};

constexpr PrivilegeRow kPrivileges[] = {
    {u"SeSecurityPrivilege", 8},
    {u"SeTakeOwnershipPrivilege", 9},
    {u"SeBackupPrivilege", 17},
};

bool IsKnown(const LUID& value) {
  return value.HighPart == 0 &&
         std::ranges::find(kPrivileges, value.LowPart, &PrivilegeRow::value) != std::end(kPrivileges);
}

}  // namespace

HANDLE GetCurrentProcess() { return INVALID_HANDLE_VALUE; }

BOOL OpenProcessToken(HANDLE process, DWORD access, HANDLE* token) {
  if (Platform::FaultFires("OpenProcessToken", access)) return FALSE;
  if (process != GetCurrentProcess()) return FailWith(ERROR_INVALID_HANDLE);
  if (!token) return FailWith(ERROR_INVALID_PARAMETER);
  *token = Platform::ProcessTokens::Instance().Add(std::make_shared<Platform::ProcessToken>(access));
  return TRUE;
}

BOOL LookupPrivilegeValueW(const WCHAR* system, const WCHAR* name, LUID* value) {
  if (Platform::FaultFires("LookupPrivilegeValueW", {.path = name})) return FALSE;
  if (!name || !value) return FailWith(ERROR_INVALID_PARAMETER);
  if (system && *system) return FailWith(RPC_S_SERVER_UNAVAILABLE);
  const auto* const row = std::ranges::find(kPrivileges, std::u16string_view(name), &PrivilegeRow::name);
  if (row == std::end(kPrivileges)) return FailWith(ERROR_NO_SUCH_PRIVILEGE);
  *value = {.LowPart = row->value, .HighPart = 0};
  return TRUE;
}

BOOL AdjustTokenPrivileges(HANDLE token, BOOL, TOKEN_PRIVILEGES* wanted, DWORD, TOKEN_PRIVILEGES*, DWORD*) {
  if (Platform::FaultFires("AdjustTokenPrivileges")) return FALSE;
  const auto found = Platform::ProcessTokens::Instance().Find(token);
  if (!found) return FailWith(ERROR_INVALID_HANDLE);
  if (!found->canAdjust) return FailWith(ERROR_ACCESS_DENIED);
  if (!wanted || wanted->PrivilegeCount != 1) return FailWith(ERROR_INVALID_PARAMETER);
  const bool isHeld = geteuid() == 0 && IsKnown(wanted->Privileges[0].Luid);
  SetLastError(isHeld ? ERROR_SUCCESS : ERROR_NOT_ALL_ASSIGNED);
  return TRUE;
}

HANDLE GetProcessHeap() { return INVALID_HANDLE_VALUE; }

void* HeapAlloc(HANDLE, DWORD, std::size_t size) {
  if (Platform::FaultFires("HeapAlloc")) return nullptr;
  return std::malloc(std::max<std::size_t>(size, 1));
}

BOOL HeapFree(HANDLE, DWORD, void* memory) {
  std::free(memory);
  return TRUE;
}
