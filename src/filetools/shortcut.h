// Shortcut files.
#pragma once

#include "platform/text.h"

// Makes the shortcut file `link` to `target`; one to a file starts in the file's folder. Replaces an older
// shortcut. Returns false if it cannot be made or saved, if both are one file, and if `link` is a file or
// folder that is not a shortcut, which would be lost. The host has initialised COM on this thread.
bool CreateShortcut(const WString& link, const WString& target, bool isFolder);
