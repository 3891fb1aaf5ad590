// Mode and POSIX access list of a file, and the lists of access entries that say the same.
//
// The system grants by the first class that one belongs to: the owner, a user who is named, any of the groups
// that are the file's or are named, all others. Entries of a list add up instead, so where a later class
// grants more, an entry that denies goes before it.
//
// One thing a list cannot say: of several groups that one is a member of, a single open gets the rights of
// one alone. If one group may read and another write, the list shows both rights, each of which can be used,
// but an open for both at once is refused.
#pragma once

#include <sys/stat.h>

#include <string>
#include <vector>

#include "platform/posix/security/security_types.h"

namespace Platform {

// The POSIX access list as text; empty for a file that has its mode alone.
std::string PosixAccess(const std::string& path);

// The list that says what mode and POSIX access list of the file say.
std::vector<BYTE> ListOfPosixAccess(const std::string& path, const struct stat& status);

// Whether mode and POSIX access list of the file are what SetPosixAccess makes of the list.
bool IsPosixAccessOf(const std::string& path, const struct stat& status, const ACL* list);

// Makes mode and POSIX access list say what the list says, as far as they can: for the owner, the group,
// everyone and each user and group that the list names, the rights that it grants to them. A null list grants
// everything. 0 or an errno.
int SetPosixAccess(const std::string& path, const struct stat& status, const ACL* list);

}  // namespace Platform
