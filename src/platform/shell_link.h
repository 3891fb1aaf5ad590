// Shortcut files.
//
// On Windows they are what the shell makes (the shell link object, over COM, which the thread must have
// initialised). The native build has no shell: there a shortcut is a small text file, described in
// platform/posix/shell_link.cpp.
#pragma once

#include "platform/text.h"

struct ShellLink {
  WString target;
  WString workingFolder;  // empty for none
  WString description;
};

// Writes the shortcut to `path`, over a file that is there. False if the shortcut cannot be made - the shell
// does not take its target - or cannot be saved.
QX_PLATFORM_API bool SaveShellLink(const ShellLink& link, const WString& path);
