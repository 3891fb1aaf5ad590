// Converts names on disk, which are bytes, to UTF-16 and back.
//
// Well-formed UTF-8 becomes the characters that it encodes. Every other byte becomes the unpaired low
// surrogate U+DC00 + byte, and a backslash U+DC5C, because a name on disk may contain a backslash while in a
// Windows path it is a separator. So the conversion loses nothing: each name on disk has one text, which
// converts back to the same bytes.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace Platform {

// Returns the text of a name on disk.
std::u16string WideName(std::string_view name);

// Appends the bytes of a name to `bytes`. Returns false if the text contains an unpaired surrogate that
// encodes no byte.
bool AppendNativeName(std::u16string_view name, std::string& bytes);

// Returns the bytes of a name; std::nullopt if the text contains an unpaired surrogate that encodes no byte.
std::optional<std::string> NativeName(std::u16string_view name);

}  // namespace Platform
