// Reads and sets the owner and the access list of a file, as far as the native file system can store them.
#pragma once

#include <sys/stat.h>

#include <string>
#include <vector>

#include "platform/posix/security/security_types.h"

// All functions may be called from any thread.
namespace Platform {

// The status of a file and its access list.
struct AccessRecord {
  struct stat status;
  bool isProtected = false;
  bool hasList = true;     // false if there is no list, which grants everything to everyone
  std::vector<BYTE> list;  // an ACL with its entries
  bool isKept = false;     // `list` was read from the attribute, not made from mode and POSIX access list
};

// Reads the record of the file or folder at `path`, following links; leaves out the list unless `wantsList`.
// Returns 0 or an error. Uses the kept list if the user may read it and owner, mode and POSIX access list are
// still as setting it left them; otherwise makes the list from these. Does not change the file.
DWORD ReadAccessRecord(const std::string& path, AccessRecord& record, bool wantsList = true);

// Sets mode and POSIX access list from `list` (null for none) and keeps the list in an extended attribute.
// Returns 0 or an error. After ERROR_DISK_FULL there was no room for the attribute: mode and POSIX access
// list express the list as far as they can, and no list is kept. If several processes set lists of one file
// at once, mode and POSIX access list are in the end those of one of them.
DWORD SetAccessList(const std::string& path, const ACL* list, bool isProtected);

// Sets the owner. If a list is kept, sets mode and POSIX access list again from it. Returns 0 or an error.
DWORD SetOwner(const std::string& path, uid_t owner);

}  // namespace Platform
