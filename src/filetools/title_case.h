// Changes the letter case of names by the system's invariant rules (LCMapStringW).
#pragma once

#include "platform/text.h"

// Return the text with all characters in upper or lower case.
WString ToUpperCase(WStringView text);
WString ToLowerCase(WStringView text);

// Converts the text in place: the first letter, and each letter after a blank, dot, underscore or hyphen, to
// upper case, all others to lower case. A separator at the beginning, or after another separator, counts as
// that letter, so "a--b" becomes "A--b" (C-301).
void TitleCase(WString& text);
