#include "filetools/shortcut.h"

#include "filetools/same_file.h"
#include "frame/services/path_exists.h"
#include "platform/shell_link.h"

bool CreateShortcut(const WString& link, const WString& target, bool isFolder) {
  if (target.empty()) return false;  // some shells make one that leads nowhere
  // The link of a file without an extension has the file's bare name, and may meet the file itself or
  // another.
  if (IsSameFile(link, LinkEnd::kFollowed, target, LinkEnd::kFollowed)) return false;
  if (PathExists(link) && !IsShellLink(link)) return false;
  ShellLink shortcut;
  shortcut.target = target;
  // Up to and with the last backslash; nothing of a bare name.
  if (!isFolder) shortcut.workingFolder = target.substr(0, target.rfind(W('\\')) + 1);
  shortcut.description = W("Link created by Velmora");
  return SaveShellLink(shortcut, link);
}
