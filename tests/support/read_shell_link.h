// Reading shortcut files back, by other means than those that made them where there are any.
#pragma once

#include "platform/shell_link.h"

// The use of the shell's objects on this thread, for as long as it lives: what the host does for the module.
// Nothing in the native build.
class ShellObjects {
 public:
  ShellObjects();
  ShellObjects(const ShellObjects&) = delete;
  ShellObjects& operator=(const ShellObjects&) = delete;
  ~ShellObjects();
};

// Fails the test where the file is no shortcut. Needs the shell's objects.
ShellLink ReadShellLink(const WString& path);
