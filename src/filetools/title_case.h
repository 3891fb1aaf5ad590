// Changes the letter case of names by the system's invariant rules (LCMapStringW).
#pragma once

#include "platform/text.h"

WString ToUpperCase(WStringView text);
WString ToLowerCase(WStringView text);

// In place: the first letter, and each one after a blank, dot, underscore or hyphen, in upper case, all
// others in lower case. A separator that comes first, or after another separator, takes the place of that
// letter, so "a--b" becomes "A--b" (C-301).
void TitleCase(WString& text);
