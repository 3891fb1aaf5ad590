#include "host/services/file_view.h"

#include "host/rename/move_item.h"
#include "host/system/paths.h"

namespace QxHost {
namespace {

// Returns the path with one letter of its last name in the opposite case; empty if the name has no letters.
WString InOtherCase(const WString& fullPath) {
  for (std::size_t at = fullPath.size(); at > 0 && fullPath[at - 1] != W('\\'); --at) {
    for (const DWORD mapping : {LCMAP_UPPERCASE, LCMAP_LOWERCASE}) {
      WCHAR letter = fullPath[at - 1];
      LCMapStringW(LOCALE_INVARIANT, mapping, &letter, 1, &letter, 1);
      if (letter == fullPath[at - 1]) continue;
      WString other = fullPath;
      other[at - 1] = letter;
      return other;
    }
  }
  return {};
}

}  // namespace

DWORD DiskView::Look(const WString& fullPath) {
  if (GetFileAttributesW(SystemPath(fullPath).c_str()) != INVALID_FILE_ATTRIBUTES) return ERROR_SUCCESS;
  const DWORD error = GetLastError();
  return error != ERROR_SUCCESS ? error : ERROR_FILE_NOT_FOUND;
}

bool DiskView::AreOneFile(const WString& left, const WString& right) {
  return QxHost::AreOneFile(left, right);
}

bool DiskView::IgnoresCaseInFolderOf(const WString& fullPath) {
  const WString other = InOtherCase(fullPath);
  if (other.empty()) return PathKey(W("a")) == PathKey(W("A"));  // the default of this system
  return Look(other) == ERROR_SUCCESS && AreOneFile(fullPath, other);
}

}  // namespace QxHost
