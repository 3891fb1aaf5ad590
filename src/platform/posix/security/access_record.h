// The owner and the access list of a file, from and to what the file system keeps of them.
#pragma once

#include <sys/stat.h>

#include <string>
#include <vector>

#include "platform/posix/security/security_types.h"

// All of these may be called from any thread.
namespace Platform {

struct AccessRecord {
  struct stat status;
  bool isProtected = false;
  bool hasList = true;     // false: the list is missing, and everyone may do everything
  std::vector<BYTE> list;  // an ACL with its entries
  bool isKept = false;     // it is as it was set, not made of the file's mode and POSIX access list
};

// Reads the record of the file or folder at `path`, whose links are followed, without its list if that is not
// wanted; 0 or an error. A list that is kept counts if the user may read it, and as long as owner, mode and
// POSIX access list are what setting it makes of them; otherwise the list is made of these. Nothing about the
// file is changed.
DWORD ReadAccessRecord(const std::string& path, AccessRecord& record, bool wantsList = true);

// Sets the list, which is null for a missing one, and keeps it; 0 or an error. With ERROR_DISK_FULL there is
// no room to keep it: mode and POSIX access list say what they can of it, and no list is kept. Several
// processes may set lists of one file: its mode and POSIX access list are in the end those of one of them.
DWORD SetAccessList(const std::string& path, const ACL* list, bool isProtected);

// Sets the owner, and lets mode and POSIX access list follow a list that is kept; 0 or an error.
DWORD SetOwner(const std::string& path, uid_t owner);

}  // namespace Platform
