#include "host/output/json_text.h"

#include <algorithm>
#include <nlohmann/json.hpp>

namespace QxHost {
namespace {

constexpr const char* kBlockName = "block";
constexpr const char* kUtf16Name = "utf16";
constexpr std::string_view kHexDigits = "0123456789ABCDEF";

std::string HexOf(const Block& block) {
  std::string hex;
  hex.reserve(block.size() * 2);
  for (const unsigned char byte : block) {
    hex += kHexDigits[byte >> 4];
    hex += kHexDigits[byte & 15];
  }
  return hex;
}

std::optional<Block> BytesOfHex(const nlohmann::json& value, const char* name) {
  if (!value.is_object() || value.size() != 1) return std::nullopt;
  const auto member = value.find(name);
  if (member == value.end() || !member->is_string()) return std::nullopt;
  const std::string& hex = member->get_ref<const std::string&>();
  if (hex.size() % 2 != 0) return std::nullopt;
  Block block;
  block.reserve(hex.size() / 2);
  for (std::size_t at = 0; at < hex.size(); at += 2) {
    const std::size_t high = kHexDigits.find(hex[at]);
    const std::size_t low = kHexDigits.find(hex[at + 1]);
    if (high == std::string_view::npos || low == std::string_view::npos) return std::nullopt;
    block.push_back(static_cast<unsigned char>(high * 16 + low));
  }
  return block;
}

}  // namespace

nlohmann::json JsonOfText(WStringView text) {
  std::string utf8 = ToUtf8(text);
  if (FromUtf8(utf8) == text) return utf8;
  Block bytes;
  for (const WCHAR character : text) {
    bytes.push_back(static_cast<unsigned char>(character >> 8));
    bytes.push_back(static_cast<unsigned char>(character & 0xFF));
  }
  return {{kUtf16Name, HexOf(bytes)}};
}

std::optional<WString> TextOfJson(const nlohmann::json& value) {
  if (value.is_string()) return FromUtf8(value.get_ref<const std::string&>());
  const std::optional<Block> bytes = BytesOfHex(value, kUtf16Name);
  if (!bytes || bytes->size() % 2 != 0) return std::nullopt;
  WString text;
  for (std::size_t at = 0; at < bytes->size(); at += 2) {
    text += static_cast<WCHAR>((*bytes)[at] * 256 + (*bytes)[at + 1]);
  }
  return text;
}

void AppendJsonString(std::string& json, WStringView text) {
  const bool isPlain = std::ranges::all_of(
      text, [](WCHAR unit) { return unit >= W(' ') && unit != W('"') && unit != W('\\') && unit != 0x7F; });
  if (!isPlain) {
    json += nlohmann::json(ToUtf8(text)).dump(-1, ' ', false, nlohmann::json::error_handler_t::replace);
    return;
  }
  json += '"';
  AppendAsUtf8(json, text);
  json += '"';
}

nlohmann::json JsonOfBlock(const Block& block) { return {{kBlockName, HexOf(block)}}; }
std::optional<Block> BlockOfJson(const nlohmann::json& value) { return BytesOfHex(value, kBlockName); }

}  // namespace QxHost
