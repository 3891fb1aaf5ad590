// Checks names from the header of an encoded file. The header is untrusted input; its name must name an
// ordinary file in the target folder.
#pragma once

#include "platform/text.h"

// Returns false for a name that is empty, contains a character that is not allowed in file names (a
// separator, a colon, a control character, one of `*?<>|"`), consists only of dots and blanks, which the
// system removes from the end of a name, or is the name of a device with or without an extension, such as NUL
// or COM1.txt.
bool IsFileNameToDecode(WStringView name);
