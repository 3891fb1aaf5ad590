// Names on disk, which are bytes, and as Windows texts.
//
// Bytes that are well-formed UTF-8 are those characters. Any other byte is the low surrogate U+DC00 + byte,
// alone, and a backslash is U+DC5C: a name on disk may hold one, but in a path it parts two names. So every
// name on disk has one text, and that text leads back to it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace Platform {

std::u16string WideName(std::string_view name);

// Appends the bytes of a name. False if the text holds a surrogate that stands for no character and no byte.
bool AppendNativeName(std::u16string_view name, std::string& bytes);

// Nothing if the text holds a surrogate that stands for no character and no byte.
std::optional<std::string> NativeName(std::u16string_view name);

}  // namespace Platform
