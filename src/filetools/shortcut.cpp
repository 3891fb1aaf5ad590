#include "filetools/shortcut.h"

#include "platform/shell_link.h"

bool CreateShortcut(const WString& link, const WString& target, bool isFolder) {
  if (target.empty()) return false;  // some shells make one that leads nowhere
  ShellLink shortcut;
  shortcut.target = target;
  // Up to and with the last backslash; nothing of a bare name.
  if (!isFolder) shortcut.workingFolder = target.substr(0, target.rfind(W('\\')) + 1);
  shortcut.description = W("Link created by Velmora");
  return SaveShellLink(shortcut, link);
}
