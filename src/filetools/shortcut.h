// Shortcut files.
#pragma once

#include "platform/text.h"

// Creates the shortcut file `link` to `target`. The working folder of a shortcut to a file is the file's
// folder. Replaces an existing shortcut. Returns false if the shortcut cannot be created or saved, if both
// paths are the same file, and if `link` is an existing file or folder that is not a shortcut. The calling
// thread must have initialised COM.
bool CreateShortcut(const WString& link, const WString& target, bool isFolder);
