// Letter case of names, by the invariant rules of the system (LCMapStringW).
#pragma once

#include "platform/text.h"

WString ToUpperCase(WStringView text);
WString ToLowerCase(WStringView text);

// In place: the first letter, and each one behind a blank, dot, underscore or hyphen, in upper case, all
// others in lower case. A separator takes the place of that letter if it stands first or behind another
// separator, so "a--b" becomes "A--b": this is meant.
void TitleCase(WString& text);
