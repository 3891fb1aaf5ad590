#include "security/privilege_list.h"

#include "platform/handles.h"
#include "platform/security_api.h"

DWORD EnablePrivilege(const WCHAR* name, DWORD tokenAccess) {
  HANDLE opened = nullptr;
  if (!OpenProcessToken(GetCurrentProcess(), tokenAccess, &opened)) return GetLastError();
  const OwnedHandle<KernelHandleTraits> token(opened);
  TOKEN_PRIVILEGES privileges = {};
  privileges.PrivilegeCount = 1;
  privileges.Privileges[0].Attributes = SE_PRIVILEGE_ENABLED;
  if (!LookupPrivilegeValueW(nullptr, name, &privileges.Privileges[0].Luid)) return GetLastError();
  // The call succeeds even if the user does not have the privilege; only the last error shows it.
  AdjustTokenPrivileges(token.Get(), FALSE, &privileges, 0, nullptr, nullptr);
  return GetLastError();
}

PrivilegeList::~PrivilegeList() {
  for (const WString& name : names) {
    LUID value;
    LookupPrivilegeValueW(nullptr, name.c_str(), &value);
  }
  names.clear();
}
