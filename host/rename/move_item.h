// Renames a file or folder.
#pragma once

#include "platform/text.h"

namespace QxHost {

// Moves by MoveFileW with full paths. Never replaces an existing file, but can change the letter case of a
// name. Returns 0 or the error number.
DWORD MoveItem(const WString& from, const WString& to);

// Returns the name of a file or folder in its spelling on the disk, if the system ignores letter case. Empty
// if the system does not provide the spelling, or if names are case-sensitive.
WString NameOnDisk(const WString& fullPath);

// Returns a key for comparing paths: where the system's folders usually ignore letter case, it is equal for
// paths that differ only in letter case.
WString PathKey(const WString& fullPath);

// Returns whether two paths that differ only in letter case lead to one file: the same file of the same
// volume, and not two hard links to it.
bool AreOneFile(const WString& left, const WString& right);

}  // namespace QxHost
