// Dates by a format, as strptime reads them, in English and without regard to the locale.
#pragma once

#include <ctime>

#include "linesorter/engine/number_parser.h"
#include "platform/text.h"

namespace WQLineSorter {

// Reads `text` by `format` and returns the first character not consumed, or null at the first mismatch; the
// fields written so far stay. Only the fields that the format names are written, unchecked. Numbers have no
// width and may have a sign (C-119), names need not end at the end of a word (C-120), and `%p` changes the
// hour that was read before it (C-118). The text has no length: it must end in two zero characters, which the
// grammar never passes. Throws QXLineSorterException (87, "Unsupported date format") at `%c` and `%Z`
// (C-122). CharT is char or WCHAR.
template <typename CharT>
const CharT* ParseDate(const CharT* text, const char* format, std::tm* result);

// The same, for many dates of one text.
template <typename CharT>
const CharT* ParseDate(const CharT* text, const char* format, std::tm* result, NumberReader<CharT>& reader);

}  // namespace WQLineSorter
