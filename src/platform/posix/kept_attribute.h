// The extended attribute in which a file's access list is kept.
//
// The system lets it be read and written by who may read and write the file. The owner of a file who may not
// gives himself the right for the moment: whoever looks at the file's mode meanwhile sees it with that right,
// and a second change of that kind would keep it. So a call that changes the mode excludes all others.
#pragma once

#include <span>
#include <string>
#include <vector>

#include "platform/posix/security_types.h"

namespace Platform {

// The extended attribute that keeps a list that was set; it is no stream.
inline constexpr char kAccessAttribute[] = "user.qxutils.access";

// Whether a call may change the mode of the file for the moment.
enum class ModeChange { kForbidden, kAllowed };

// Reads the attribute; no bytes for a file that has none. 0, or ERROR_ACCESS_DENIED for one that is there and
// may not be read, or may only be read with a change of the mode that is forbidden.
DWORD ReadKeptAttribute(const std::string& path, ModeChange change, std::vector<BYTE>& bytes);

// Writes the attribute. A file system without a place for any keeps none, which is no error. If there is no
// more room for this one (ERROR_DISK_FULL), or it cannot be written for another reason, the file is left
// without the attribute, so that an older one does not speak for it.
DWORD WriteKeptAttribute(const std::string& path, std::span<const BYTE> bytes);

}  // namespace Platform
