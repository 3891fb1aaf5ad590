// The extended attribute in which a file's access list is kept.
//
// The system lets it be read and written by who may read and write the file, be it the file's owner or not.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "platform/posix/security/security_types.h"

namespace Platform {

// The extended attribute that keeps a list that was set; it is no stream.
inline constexpr char kAccessAttribute[] = "user.qxutils.access";

// The attribute; no bytes for a file that has none, or one that the user may not read.
std::vector<BYTE> ReadKeptAttribute(const std::string& path);

// Writes the attribute, or removes it if there are no bytes. A file system without a place for any keeps
// none, which is no error. If it cannot be written, the file is left without it, so that an older one does
// not speak for it. 0 or an errno: EACCES for a file that the user may not write, which keeps the one it has,
// and those for no more room, which ErrorOfErrno makes ERROR_DISK_FULL.
int WriteKeptAttribute(const std::string& path, std::span<const BYTE> bytes);

}  // namespace Platform
