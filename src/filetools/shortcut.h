// Shortcut files.
#pragma once

#include "platform/text.h"

// The shortcut file `link` to `target`; one to a file starts in the file's folder. False if it cannot be made
// or saved, and if both are one file, which would be lost. The host has initialised COM on this thread.
bool CreateShortcut(const WString& link, const WString& target, bool isFolder);
