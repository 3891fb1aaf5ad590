// The extended attribute in which a file's access list is kept.
//
// Anyone who may read the file may read the attribute, and anyone who may write the file may write it, not
// only the owner.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "platform/posix/security/security_types.h"

namespace Platform {

// The name of the attribute. It is not listed as a stream.
inline constexpr char kAccessAttribute[] = "user.qxutils.access";

// Returns the value of the attribute; no bytes if the file has none or the user may not read it.
std::vector<BYTE> ReadKeptAttribute(const std::string& path);

// Writes the attribute, or removes it if `bytes` is empty. Returns 0 or an errno value: EACCES if the user
// may not write the file, which leaves the attribute unchanged, or ENOSPC, EDQUOT or E2BIG if there is no
// room, which ErrorOfErrno maps to ERROR_DISK_FULL. After any failure but EACCES the attribute is removed, so
// that an out-of-date list does not remain. A file system without extended attributes is not an error.
int WriteKeptAttribute(const std::string& path, std::span<const BYTE> bytes);

}  // namespace Platform
