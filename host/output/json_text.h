// Converts texts and binary blocks to JSON and back, for the settings files.
#pragma once

#include <nlohmann/json_fwd.hpp>
#include <optional>
#include <string>
#include <vector>

#include "platform/text.h"

namespace QxHost {

using Block = std::vector<unsigned char>;

// A text is stored as a string. A text that is not well-formed UTF-16 would not survive that, so it is stored
// as {"utf16": "D800..."}.
nlohmann::json JsonOfText(WStringView text);
std::optional<WString> TextOfJson(const nlohmann::json& value);

// Appends a text as a JSON string with quotes, in the form that the JSON library writes. Invalid UTF-16
// becomes U+FFFD.
void AppendJsonString(std::string& json, WStringView text);

// A block is stored as {"block": "0A0B..."}.
nlohmann::json JsonOfBlock(const Block& block);
std::optional<Block> BlockOfJson(const nlohmann::json& value);

}  // namespace QxHost
