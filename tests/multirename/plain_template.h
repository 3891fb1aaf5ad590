// Reference for the template language of MultiRename: the tokens of a template, the meaning of a tag's
// numbers, and the part of a value that a range selects. Written for clarity, not for speed, and without the
// product's code.
#pragma once

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

#include "platform/text.h"

namespace PlainRules {

// The maximum length of a name and of any intermediate text.
constexpr std::size_t kMaxPlainNameChars = 32767;

struct Tag {
  WCHAR letter = 0;  // N, E, F, C, Y, M, D, h, m, s or ?; 0 for literal text
  WString text;      // the literal text, or the name of a property
  WString format;
  std::int32_t start = 0;
  std::int32_t end = 0;
  std::int32_t length = 0;
};

inline std::int32_t Wrapped(std::int64_t number) {
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(number));
}

inline bool IsDigit(WCHAR c) { return c >= W('0') && c <= W('9'); }

// Parses white space, a sign and digits, saturated to 32 bits.
inline std::int32_t Decimal(const WString& text) {
  std::size_t at = 0;
  while (at < text.size() && (text[at] == W(' ') || (text[at] >= 9 && text[at] <= 13))) ++at;
  bool negative = false;
  if (at < text.size() && (text[at] == W('+') || text[at] == W('-'))) negative = text[at++] == W('-');
  std::int64_t number = 0;
  for (; at < text.size() && IsDigit(text[at]); ++at) {
    number = std::min<std::int64_t>(number * 10 + (text[at] - W('0')), std::int64_t{1} << 32);
  }
  if (negative) number = -number;
  return static_cast<std::int32_t>(std::clamp<std::int64_t>(number, INT32_MIN, INT32_MAX));
}

// Formats the number like printf with "%0", the width and "d".
inline WString Padded(std::int32_t number, std::int64_t width) {
  width = std::clamp<std::int64_t>(width, -1023, 1023);
  const std::string format = width == 0 ? "%d" : "%0" + std::to_string(width) + "d";
  char digits[1100];
  const int count = std::snprintf(digits, sizeof digits, format.c_str(), number);
  return WString(digits, digits + count);
}

// --- the numbers of a tag

struct Number {
  std::int32_t value;
  bool isAfterDash;
};

// A number begins at a digit, or at a minus if `minusBegins`, and ends before the next comma or minus, which
// is skipped.
inline std::vector<Number> NumbersOf(const WString& text, bool minusBegins) {
  std::vector<Number> numbers;
  std::size_t at = 0;
  while (at < text.size()) {
    if (!IsDigit(text[at]) && !(minusBegins && text[at] == W('-'))) {
      ++at;
      continue;
    }
    const std::size_t end = std::min(text.find_first_of(W(",-"), at + 1), text.size());
    numbers.push_back(
        {Decimal(text.substr(at, std::min<std::size_t>(end - at, 80))), at > 0 && text[at - 1] == W('-')});
    at = end + 1;
  }
  return numbers;
}

inline void ReadRange(const WString& text, Tag& tag) {
  if (text.empty()) return;
  const std::vector<Number> numbers = NumbersOf(text, true);
  const std::int32_t a = numbers.empty() ? 0 : numbers[0].value;
  if (numbers.size() < 2) {
    if (text[0] == W(',')) {
      tag.start = a;
    } else {
      tag.start = a < 0 ? -1 : 1;
      tag.length = a < 0 ? Wrapped(-std::int64_t{a}) : a;
    }
    return;
  }
  const std::int32_t b = numbers.back().value;
  bool dash = false;
  for (std::size_t i = 1; i < numbers.size(); ++i) dash = dash || numbers[i].isAfterDash;
  tag.start = a;
  if (dash) {
    tag.end = std::max(a, b);
  } else if (b < 0) {
    tag.length = Wrapped(-std::int64_t{b});
    tag.start = Wrapped(-std::int64_t{a});
  } else {
    tag.length = b;
  }
}

inline void ReadCounter(const WString& text, Tag& tag) {
  const std::vector<Number> numbers = NumbersOf(text, false);
  if (numbers.size() > 0) tag.start = numbers[0].value;
  if (numbers.size() > 1) tag.end = numbers[1].value;
  if (numbers.size() > 2) tag.length = numbers[2].value;
}

inline void ReadProperty(const WString& text, Tag& tag) {
  const std::size_t end = std::min(text.find_first_of(W(",-")), text.size());
  tag.text = text.substr(0, std::min<std::size_t>(end, 80));
  if (end == text.size()) return;
  WString rest = text.substr(end + 1);
  if (!rest.empty() && rest[0] == W('{')) {
    const std::size_t close = rest.find(W('}'));
    if (close == WString::npos) {
      rest = rest.substr(1);
    } else {
      tag.format = rest.substr(1, std::min<std::size_t>(close - 1, 80));
      rest = rest.substr(close + 1);
    }
  }
  ReadRange(rest, tag);
}

// --- tokens

// `token` includes its brackets, or the characters in their places.
inline Tag TagOfToken(const WString& token) {
  Tag tag;
  const WString body = token.substr(1, token.size() - 2);
  WCHAR letter = body.empty() ? WCHAR{0} : body[0];
  if (letter == W('n') || letter == W('e') || letter == W('f') || letter == W('c')) {
    letter = static_cast<WCHAR>(letter - 32);
  }
  if (letter == 0 || WString(W("NEFCYMDhms?")).find(letter) == WString::npos) {
    tag.text = token;
    return tag;
  }
  tag.letter = letter;
  const WString parameters = body.substr(1);
  if (letter == W('C')) {
    ReadCounter(parameters, tag);
  } else if (letter == W('?')) {
    ReadProperty(parameters, tag);
  } else {
    ReadRange(parameters, tag);
  }
  return tag;
}

inline std::vector<Tag> TagsOf(const WString& text) {
  std::vector<Tag> tags;
  WString current;
  const auto emitLiteral = [&] {
    if (!current.empty()) tags.push_back({.text = current});
    current.clear();
  };
  for (std::size_t i = 0; i < text.size(); ++i) {
    const WCHAR c = text[i];
    const bool isDouble = i + 1 < text.size() && text[i + 1] == c;
    if (c == W('[') && !isDouble) {
      emitLiteral();
      current = W("[");
    } else if (c == W(']') && !isDouble && !current.empty()) {
      tags.push_back(TagOfToken(current + W("]")));
      current.clear();
    } else {
      current += c;
      if ((c == W('[') || c == W(']')) && isDouble) ++i;
    }
  }
  emitLiteral();
  return tags;
}

// --- the part of a value that a range selects

inline WString RangeOf(const WString& value, const Tag& range) {
  const std::int32_t size = static_cast<std::int32_t>(value.size());
  if (range.start == 0) return value;
  if (range.start < 0) {
    const std::int32_t stop = Wrapped(std::int64_t{size} + range.start + 1);
    const std::int32_t first = Wrapped(std::int64_t{stop} - range.length);
    if (stop < 0) return value;
    const std::int32_t from = std::max(std::min(first, stop), 0);
    return value.substr(static_cast<std::size_t>(from), static_cast<std::size_t>(stop - from));
  }
  if (range.start > size) return {};
  const WString tail = value.substr(static_cast<std::size_t>(range.start - 1));
  if (range.end > 0)
    return tail.substr(0, static_cast<std::size_t>(std::max(range.end - range.start + 1, 0)));
  if (range.length > 0) return tail.substr(0, static_cast<std::size_t>(range.length));
  return tail;
}

}  // namespace PlainRules
