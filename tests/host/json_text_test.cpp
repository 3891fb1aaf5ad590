// Strings in JSON lines that are written without the JSON library.
#include "host/output/json_text.h"

#include <gtest/gtest.h>

#include <cstdio>
#include <random>

namespace QxHost {
namespace {

std::string Written(const WString& text) {
  std::string json = ":";
  AppendJsonString(json, text);
  return json.substr(1);
}

// Escapes the text as JSON requires, byte by byte.
std::string Escaped(const std::string& utf8) {
  std::string json = "\"";
  for (const char byte : utf8) {
    const std::string_view named = "\"\\\b\f\n\r\t";
    const std::size_t at = named.find(byte);
    char code[8];
    if (at != std::string_view::npos) {
      json += {'\\', "\"\\bfnrt"[at]};
    } else if (static_cast<unsigned char>(byte) < 0x20) {
      std::snprintf(code, sizeof code, "\\u%04x", static_cast<unsigned>(byte));
      json += code;
    } else {
      json += byte;
    }
  }
  return json + "\"";
}

TEST(JsonTextTest, StringsAreEscapedAsJsonAsksFor) {
  EXPECT_EQ(Written(W("")), "\"\"");
  EXPECT_EQ(Written(W("a b\u00E9")), "\"a b\xC3\xA9\"");
  EXPECT_EQ(Written(W("Z:\\a \"b\"")), R"("Z:\\a \"b\"")");
  EXPECT_EQ(Written(W("\n\t\x01\x7F")), "\"\\n\\t\\u0001\x7F\"");
  std::mt19937 random(7);
  for (int number = 0; number < 2000; ++number) {
    WString text;
    for (std::size_t size = random() % 12; size > 0; --size) {
      const std::uint32_t unit = random() % 3 == 0 ? random() % 0x10000 : random() % 0x90;
      text += static_cast<WCHAR>(unit);
    }
    EXPECT_EQ(Written(text), Escaped(ToUtf8(text)));
  }
}

}  // namespace
}  // namespace QxHost
