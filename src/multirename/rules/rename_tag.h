// The template language: parses a template into tokens.
#pragma once

#include <vector>

#include "frame/host/host_types.h"

namespace Velmora::SDK {

// The numbers 4, 6 and 10 are unused.
enum TagKind : u32 {
  TagText = 1,
  TagName = 2,
  TagExtension = 3,
  TagCounter = 5,
  TagYear = 7,
  TagMonth = 8,
  TagDay = 9,
  TagHour = 11,
  TagMinute = 12,
  TagSecond = 13,
  TagProperty = 14,
  TagFolder = 15
};

// One token. In a counter tag `start`, `end` and `length` are the next value, the step and the number of
// digits. In all other tags they are the first and the last position (counted from 1; negative positions
// count from the end) and the number of characters.
struct RenameTag {
  u32 kind = TagText;
  WString text;    // the literal text, or the name of the property
  WString format;  // of a property: the text between braces
  s32 start = 0;
  s32 end = 0;
  s32 length = 0;
};

// In template order. A counter tag with parameters advances with each evaluation, so a compiled template
// serves only one pass over the rows.
using RenameTags = std::vector<RenameTag>;

// Never fails: text that is not a valid tag becomes literal text.
RenameTags ParseTemplate(WStringView text);

// Returns the number at the beginning of the text, as _wtoi reads it: white space, a sign, digits. Returns 0
// if there are no digits, and the nearest 32-bit number if the number does not fit.
s32 ParseDecimal(WStringView text);

// Returns the part of the value that the tag's range selects. The arithmetic wraps at 32 bits.
WStringView SubstringOf(WStringView value, const RenameTag& range);

}  // namespace Velmora::SDK
