// Texts and blocks in the JSON files of the settings.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <vector>

#include "platform/text.h"

namespace QxHost {

using Block = std::vector<unsigned char>;

// A text is a string. One that is no well-formed UTF-16 would not come back from it, and is kept as
// {"utf16": "D800..."} instead.
nlohmann::json JsonOfText(WStringView text);
std::optional<WString> TextOfJson(const nlohmann::json& value);

// Appends a text as a JSON string with its quotes, as the library writes it: what is no well-formed UTF-16
// becomes U+FFFD.
void AppendJsonString(std::string& json, WStringView text);

// {"block": "0A0B..."}
nlohmann::json JsonOfBlock(const Block& block);
std::optional<Block> BlockOfJson(const nlohmann::json& value);

}  // namespace QxHost
