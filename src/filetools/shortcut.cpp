#include "filetools/shortcut.h"

#include "filetools/same_file.h"
#include "frame/services/path_exists.h"
#include "platform/shell_link.h"

bool CreateShortcut(const WString& link, const WString& target, bool isFolder) {
  if (target.empty()) return false;  // some shells accept an empty target
  // The shortcut to a file without an extension has the file's name, so `link` may be the target itself or
  // another existing file.
  if (IsSameFile(link, LinkEnd::kFollowed, target, LinkEnd::kFollowed)) return false;
  if (PathExists(link) && !IsShellLink(link)) return false;
  ShellLink shortcut;
  shortcut.target = target;
  // The target up to and including its last backslash; empty for a name without a folder.
  if (!isFolder) shortcut.workingFolder = target.substr(0, target.rfind(W('\\')) + 1);
  shortcut.description = W("Link created by Velmora");
  return SaveShellLink(shortcut, link);
}
