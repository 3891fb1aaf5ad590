// The formats of IHostApp::LogMessage, filled without a printf: a format may come from outside.
#pragma once

#include <cstdarg>

#include "platform/text.h"

namespace QxHost {

// Fills `format` with what follows it: %s (wide text), %S (narrow text), %c, %d, %i, %u, %x, %X and %%, with
// the flags - + 0 # and blank, a width, a precision and the lengths l, ll and I64. An `l` is 32 bits, as on
// Windows. A missing text is written "(null)". From anything else on, the rest of the format is copied, since
// nobody knows which arguments it would take.
WString FormatWide(const WCHAR* format, va_list arguments);

}  // namespace QxHost
