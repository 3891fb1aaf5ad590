// Shortcut files.
//
// On Windows the shell's link object (CLSID_ShellLink) writes them; the calling thread must have initialised
// COM. The native build has no shell: there a shortcut is a small text file, whose format
// platform/posix/files/shell_link.cpp describes.
#pragma once

#include <string_view>

#include "platform/text.h"

// The contents of a shortcut file.
struct ShellLink {
  WString target;
  WString workingFolder;  // empty for none
  WString description;
};

// Writes the shortcut to `path`, replacing an existing file. Returns false if the shell does not accept the
// target or the file cannot be saved.
QX_PLATFORM_API bool SaveShellLink(const ShellLink& link, const WString& path);

// Returns whether the file at `path` begins as a shortcut does. Returns false if the file cannot be read.
QX_PLATFORM_API bool IsShellLink(const WString& path);

// Returns the bytes that every shortcut begins with. IsShellLink compares with them.
std::string_view ShellLinkSignature();
