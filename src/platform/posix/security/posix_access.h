// Converts between mode and POSIX access list of a file and the equivalent Windows access list.
//
// POSIX grants the rights of the first class that a user belongs to: the owner, a named user, the file's
// group or any named group, all others. The entries of a Windows list add up instead, so where a later class
// grants more, a deny entry precedes it.
//
// One rule cannot be expressed: a single POSIX open gets the rights of only one of the user's groups. If one
// group may read and another may write, the list contains both rights, and each can be used, but an open for
// both at once is refused.
#pragma once

#include <sys/stat.h>

#include <string>
#include <vector>

#include "platform/posix/security/security_types.h"

namespace Platform {

// Returns the POSIX access list as text; empty if the file has only its mode.
std::string PosixAccess(const std::string& path);

// Returns the Windows access list that is equivalent to mode and POSIX access list of the file.
std::vector<BYTE> ListOfPosixAccess(const std::string& path, const struct stat& status);

// Returns whether mode and POSIX access list of the file are those that SetPosixAccess would set for `list`.
bool IsPosixAccessOf(const std::string& path, const struct stat& status, const ACL* list);

// Sets mode and POSIX access list to the closest equivalent of `list`: for the owner, the group, everyone and
// each user and group that the list names, the rights that it grants to them. A null list grants everything.
// Returns 0 or an errno value.
int SetPosixAccess(const std::string& path, const struct stat& status, const ACL* list);

}  // namespace Platform
