#include "host/rename/move_item.h"

#include <sys/stat.h>

#include "host/system/native_path.h"
#include "host/system/paths.h"

namespace QxHost {

DWORD MoveItem(const WString& from, const WString& to) {
  const bool isShort = IsSystemPath(from) && IsSystemPath(to);
  const BOOL isMoved = isShort ? MoveFileW(from.c_str(), to.c_str())
                               : MoveFileW(SystemPath(from).c_str(), SystemPath(to).c_str());
  if (isMoved) return ERROR_SUCCESS;
  const DWORD error = GetLastError();
  return error != ERROR_SUCCESS ? error : ERROR_GEN_FAILURE;
}

// Names are case-sensitive here, so a path finds a file only in its exact spelling.
WString NameOnDisk(const WString&) { return {}; }

WString PathKey(const WString& fullPath) { return fullPath; }

bool AreOneFile(const WString& left, const WString& right) {
  struct stat first {};
  struct stat second {};
  if (lstat(NativePath(left).c_str(), &first) != 0 || lstat(NativePath(right).c_str(), &second) != 0)
    return false;
  if (first.st_dev != second.st_dev || first.st_ino != second.st_ino) return false;
  return S_ISDIR(first.st_mode) || first.st_nlink == 1;  // a folder has no second hard link
}

}  // namespace QxHost
