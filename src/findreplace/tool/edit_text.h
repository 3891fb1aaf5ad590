// Converts text for multi-line edit controls. These support only CR LF as a line end; at other line ends they
// show the lines joined.
#pragma once

#include "platform/text.h"

namespace QXFindAndReplace {

// Returns the text with CR LF in place of each LF without a CR before it and each CR without an LF after it.
WString EditText(WStringView text);

// Returns the offset in EditText(text) of the character at `offset` in `text`, or the end if `offset` is at
// or beyond the end of `text`. An offset between CR and LF is converted to the offset between them.
std::size_t EditOffset(WStringView text, std::size_t offset);

}  // namespace QXFindAndReplace
