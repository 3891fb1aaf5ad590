// Which names out of a file's header may be given to a file. The header comes from anybody, and such a name
// must make a plain file of the folder and nothing else.
#pragma once

#include "platform/text.h"

// Returns false for a name that is empty, holds a character that no file name has (a separator, a colon, a
// control character, one of `*?<>|"`), consists of dots and blanks, which the system cuts off the end of a
// name, or is that of a device, with or without an extension: NUL, COM1.txt.
bool IsFileNameToDecode(WStringView name);
