// Parses dates by a format, as strptime does, with English names in every locale.
#pragma once

#include <ctime>

#include "linesorter/engine/number_parser.h"
#include "platform/text.h"

namespace WQLineSorter {

// Parses `text` by `format` and returns a pointer to the first character not consumed, or null at the first
// mismatch; fields that have already been written keep their values. Writes only the fields that the format
// names, without checking their ranges. Numbers have no maximum width and may have a sign (C-119), names may
// end inside a word (C-120), and `%p` changes an hour that was read before it (C-118). The text must end in
// two zero characters; the parser never reads past them. Throws QXLineSorterException (87, "Unsupported date
// format") at `%c` and `%Z` (C-122). CharT is char or WCHAR.
template <typename CharT>
const CharT* ParseDate(const CharT* text, const char* format, std::tm* result);

// Same, with a reader that is shared by many dates of one text.
template <typename CharT>
const CharT* ParseDate(const CharT* text, const char* format, std::tm* result, NumberReader<CharT>& reader);

}  // namespace WQLineSorter
