// Formats the texts of IHostApp::LogMessage. Formats are untrusted input, so they are not passed to printf.
#pragma once

#include <cstdarg>

#include "platform/text.h"

namespace QxHost {

// Returns `format` with its conversions replaced by the arguments. Supports %s (wide text), %S (narrow text),
// %c, %d, %i, %u, %x, %X and %%, with the flags - + 0 # and blank, a width, a precision and the lengths l, ll
// and I64. `l` means 32 bits, as on Windows. A null text is written as "(null)". From any other conversion
// on, the rest of the format is copied unchanged, because the types of its arguments are unknown.
WString FormatWide(const WCHAR* format, va_list arguments);

}  // namespace QxHost
