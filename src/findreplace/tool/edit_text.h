// Text as a multi-line edit control shows it. The control knows one line end, CR LF: lines that end in
// another one run together in it.
#pragma once

#include "platform/text.h"

namespace QXFindAndReplace {

// The text with CR LF in place of each LF without a CR before it, and of each CR without an LF after it.
WString EditText(WStringView text);

// Returns the offset in EditText(text) of the character at `offset` of `text`; for an offset at its end or
// beyond it, the end. An offset between CR and LF stays between them.
std::size_t EditOffset(WStringView text, std::size_t offset);

}  // namespace QXFindAndReplace
