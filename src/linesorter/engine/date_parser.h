// Dates by a format, as strptime reads them, in English and without regard to the locale.
#pragma once

#include <ctime>

#include "linesorter/engine/number_parser.h"
#include "platform/text.h"

namespace WQLineSorter {

// Reads `text` by `format` and answers the first character not consumed, or null at the first mismatch; the
// fields written so far stay. Only the fields that the format names are written, unchecked. The text has no
// length: it must end in a zero character with another one behind it, which the grammar never passes.
// Throws QXLineSorterException (87, "Unsupported date format") at %c and %Z. CharT is char or WCHAR.
template <typename CharT>
const CharT* ParseDate(const CharT* text, const char* format, std::tm* result);

// The same, for many dates of one text.
template <typename CharT>
const CharT* ParseDate(const CharT* text, const char* format, std::tm* result, NumberReader<CharT>& reader);

}  // namespace WQLineSorter
