#include "filetools/shortcut.h"

#include "platform/shell_link.h"

namespace {

constexpr DWORD kPathChars = 32768;

// The path as it stands where the system knows no full one.
WString FullPath(const WString& path) {
  WString full(kPathChars, WCHAR());
  const DWORD length = GetFullPathNameW(path.c_str(), kPathChars, full.data(), nullptr);
  if (length == 0 || length >= kPathChars) return path;
  full.resize(length);
  return full;
}

bool IsSamePath(const WString& one, const WString& other) {
  const WString left = FullPath(one);
  const WString right = FullPath(other);
  return CompareStringOrdinal(left.c_str(), static_cast<int>(left.size()), right.c_str(),
                              static_cast<int>(right.size()), TRUE) == CSTR_EQUAL;
}

}  // namespace

bool CreateShortcut(const WString& link, const WString& target, bool isFolder) {
  if (target.empty()) return false;  // some shells make one that leads nowhere
  // The name of a file without an extension stays bare, so that the shortcut would take the file's place.
  if (IsSamePath(link, target)) return false;
  ShellLink shortcut;
  shortcut.target = target;
  // Up to and with the last backslash; nothing of a bare name.
  if (!isFolder) shortcut.workingFolder = target.substr(0, target.rfind(W('\\')) + 1);
  shortcut.description = W("Link created by Velmora");
  return SaveShellLink(shortcut, link);
}
