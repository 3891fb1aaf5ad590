// Formats the numbers of counters, dates and properties.
#pragma once

#include "frame/host/host_types.h"

namespace Velmora::SDK {

// Appends the number in decimal as printf does with the format "%0", the width, "d": with zeros up to the
// width, which includes a minus sign. A negative width appends blanks after the number instead. The width 0
// adds nothing, and a width above 1023 counts as 1023.
void AppendPadded(WString& text, s32 number, s64 width);

}  // namespace Velmora::SDK
