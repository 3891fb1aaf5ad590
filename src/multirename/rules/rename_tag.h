// The template language: the tokens of a compiled template and how a text becomes them.
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

// One token. In a counter tag the three numbers are the next value, the step and the digits; in all others
// the first and the last position (from 1, negative from the end) and the number of characters.
struct RenameTag {
  u32 kind = TagText;
  WString text;    // the literal text, or the name of the property
  WString format;  // of a property, between braces
  s32 start = 0;
  s32 end = 0;
  s32 length = 0;
};

// In template order. A counter of its own moves on with each evaluation, so a compiled template serves one
// pass over the rows.
using RenameTags = std::vector<RenameTag>;

// Never fails: whatever is not understood is literal text.
RenameTags ParseTemplate(WStringView text);

// The number that a text begins with, as _wtoi reads it: white space, a sign, digits; 0 if there are none,
// and the nearest 32-bit number for one that does not fit.
s32 ParseDecimal(WStringView text);

// What the range of a tag leaves of a value. The arithmetic is that of 32-bit registers.
WStringView SubstringOf(WStringView value, const RenameTag& range);

}  // namespace Velmora::SDK
