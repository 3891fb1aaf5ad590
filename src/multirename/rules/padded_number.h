// Numbers of counters, dates and properties as text.
#pragma once

#include "frame/host/host_types.h"

namespace Velmora::SDK {

// Appends the number in decimal as printf does with the format "%0", the width, "d": zeros up to the width, a
// minus sign counted in. A negative width puts blanks behind the number instead. 0 pads nothing, and a width
// of more than 1023 is one of 1023.
void AppendPadded(WString& text, s32 number, s64 width);

}  // namespace Velmora::SDK
