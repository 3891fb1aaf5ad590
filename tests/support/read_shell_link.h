// Reads shortcut files back; on Windows with the shell's own functions.
#pragma once

#include "platform/shell_link.h"

// Initializes COM on this thread during its lifetime, as the host does for the module. Does nothing in the
// native build.
class ShellObjects {
 public:
  ShellObjects();
  ShellObjects(const ShellObjects&) = delete;
  ShellObjects& operator=(const ShellObjects&) = delete;
  ~ShellObjects();
};

// Reads a shortcut file. Fails the test if the file is not one. Requires a ShellObjects on this thread.
ShellLink ReadShellLink(const WString& path);
