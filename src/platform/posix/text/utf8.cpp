#include "platform/posix/text/utf8.h"

namespace Platform {

namespace {

// A range of lead bytes, the number of continuation bytes after them, the mask of the lead byte's payload,
// and the range that the first continuation byte must be in.
struct Lead {
  unsigned char first;
  unsigned char last;
  std::size_t following;
  unsigned char mask;
  unsigned char least;  // bounds of the first continuation byte
  unsigned char most;
};

constexpr Lead kLeads[] = {
    {0xC2, 0xDF, 1, 0x1F, 0x80, 0xBF}, {0xE0, 0xE0, 2, 0x0F, 0xA0, 0xBF}, {0xE1, 0xEC, 2, 0x0F, 0x80, 0xBF},
    {0xED, 0xED, 2, 0x0F, 0x80, 0x9F}, {0xEE, 0xEF, 2, 0x0F, 0x80, 0xBF}, {0xF0, 0xF0, 3, 0x07, 0x90, 0xBF},
    {0xF1, 0xF3, 3, 0x07, 0x80, 0xBF}, {0xF4, 0xF4, 3, 0x07, 0x80, 0x8F},
};

bool Continues(unsigned char byte) { return (byte & 0xC0) == 0x80; }

}  // namespace

Utf8Step DecodeUtf8(std::string_view text) {
  const unsigned char first = static_cast<unsigned char>(text[0]);
  if (first < 0x80) return {first, 1, true};
  for (const Lead& lead : kLeads) {
    if (first < lead.first || first > lead.last) continue;
    char32_t codePoint = first & lead.mask;
    for (std::size_t i = 1; i <= lead.following; ++i) {
      if (i == text.size()) return {0, i, false};
      const unsigned char byte = static_cast<unsigned char>(text[i]);
      if (!Continues(byte)) return {0, i, false};
      if (i == 1 && (byte < lead.least || byte > lead.most)) return {0, 2, false};
      codePoint = codePoint << 6 | (byte & 0x3Fu);
    }
    return {codePoint, lead.following + 1, true};
  }
  return {0, 1, false};
}

Utf16Step DecodeUtf16(std::u16string_view text) {
  const char16_t first = text[0];
  if (first < 0xD800 || first > 0xDFFF) return {first, 1, true};
  if (first < 0xDC00 && text.size() > 1 && text[1] >= 0xDC00 && text[1] <= 0xDFFF) {
    const char32_t high = first & 0x3FFu;
    const char32_t low = text[1] & 0x3FFu;
    return {0x10000 + (high << 10 | low), 2, true};
  }
  return {first, 1, false};
}

void AppendUtf8(char32_t codePoint, std::string& text) {
  const auto continuation = [codePoint](int shift) {
    return static_cast<char>(0x80 | (codePoint >> shift & 0x3F));
  };
  if (codePoint < 0x80) {
    text += static_cast<char>(codePoint);
  } else if (codePoint < 0x800) {
    text += static_cast<char>(0xC0 | codePoint >> 6);
    text += continuation(0);
  } else if (codePoint < 0x10000) {
    text += static_cast<char>(0xE0 | codePoint >> 12);
    text += continuation(6);
    text += continuation(0);
  } else {
    text += static_cast<char>(0xF0 | codePoint >> 18);
    text += continuation(12);
    text += continuation(6);
    text += continuation(0);
  }
}

void AppendUtf16(char32_t codePoint, std::u16string& text) {
  if (codePoint < 0x10000) {
    text += static_cast<char16_t>(codePoint);
  } else {
    text += static_cast<char16_t>(0xD7C0 + (codePoint >> 10));
    text += static_cast<char16_t>(0xDC00 | (codePoint & 0x3FF));
  }
}

}  // namespace Platform
