// Privileges of the process.
#pragma once

#include <vector>

#include "platform/text.h"

// Enables a privilege for the life of the process. `tokenAccess` is how the token is opened for it. 0 or the
// error; ERROR_NOT_ALL_ASSIGNED (1300) for a user who has not got it.
DWORD EnablePrivilege(const WCHAR* name, DWORD tokenAccess);

// The privileges that a command has enabled. Its destructor looks each one up and disables none: they stay
// enabled for the life of the process (C-508).
class PrivilegeList {
 public:
  explicit PrivilegeList(bool remembers) : remember(remembers) {}
  PrivilegeList(const PrivilegeList&) = delete;
  PrivilegeList& operator=(const PrivilegeList&) = delete;
  ~PrivilegeList();

  std::vector<WString> names;
  bool remember;  // whether names are to be listed
};
