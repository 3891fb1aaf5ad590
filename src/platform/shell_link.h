// Shortcut files.
//
// On Windows they are what the shell makes (the shell link object, over COM, which the thread must have
// initialised). The native build has no shell: there a shortcut is a small text file, described in
// platform/posix/files/shell_link.cpp.
#pragma once

#include <string_view>

#include "platform/text.h"

struct ShellLink {
  WString target;
  WString workingFolder;  // empty for none
  WString description;
};

// Writes the shortcut to `path`, over a file that is there. False if the shortcut cannot be made - the shell
// does not take its target - or cannot be saved.
QX_PLATFORM_API bool SaveShellLink(const ShellLink& link, const WString& path);

// Returns whether the file at `path` is a shortcut, which its first bytes say. False for a file that cannot
// be read.
QX_PLATFORM_API bool IsShellLink(const WString& path);

// The bytes that every shortcut begins with, for IsShellLink.
std::string_view ShellLinkBeginning();
