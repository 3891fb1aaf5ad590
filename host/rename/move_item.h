// Renaming one file or folder.
#pragma once

#include "platform/text.h"

namespace QxHost {

// MoveFileW with full paths: never replaces what is there, but may change the letter case of a name. 0, or
// the error number.
DWORD MoveItem(const WString& from, const WString& to);

// The name of a file or folder as it stands on the disk, where the system finds it in another letter case.
// Empty if the system does not tell, or where letter case tells files apart.
WString NameOnDisk(const WString& fullPath);

// Equal for paths that mean the same file whatever their letter case, as the folders of this system usually
// have it.
WString PathKey(const WString& fullPath);

// Whether two paths, which differ in letter case alone, mean one file: the file system finds the same file of
// the same volume by both, and not a second hard link to it.
bool AreOneFile(const WString& left, const WString& right);

}  // namespace QxHost
