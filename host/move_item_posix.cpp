#include "host/move_item.h"
#include "host/paths.h"

namespace QxHost {

DWORD MoveItem(const WString& from, const WString& to) {
  if (MoveFileW(SystemPath(from).c_str(), SystemPath(to).c_str())) return ERROR_SUCCESS;
  const DWORD error = GetLastError();
  return error != ERROR_SUCCESS ? error : ERROR_GEN_FAILURE;
}

// Letter case tells files apart here, so a path is found by its very name alone.
WString NameOnDisk(const WString&) { return {}; }

WString PathKey(const WString& fullPath) { return fullPath; }

}  // namespace QxHost
