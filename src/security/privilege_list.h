// Privileges of the process.
#pragma once

#include <vector>

#include "platform/text.h"

// Enables a privilege until the process ends (AdjustTokenPrivileges). `tokenAccess` is the access with which
// to open the token. Returns 0 or an error, ERROR_NOT_ALL_ASSIGNED (1300) if the user does not have the
// privilege.
DWORD EnablePrivilege(const WCHAR* name, DWORD tokenAccess);

// The privileges that a command has enabled. The destructor looks up each one but disables none: they stay
// enabled until the process ends (C-508).
class PrivilegeList {
 public:
  explicit PrivilegeList(bool remembers) : remember(remembers) {}
  PrivilegeList(const PrivilegeList&) = delete;
  PrivilegeList& operator=(const PrivilegeList&) = delete;
  ~PrivilegeList();

  std::vector<WString> names;
  bool remember;  // whether names are added
};
