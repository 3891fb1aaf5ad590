#include <algorithm>
#include <iterator>
#include <optional>

#include "frame/services/leading_number.h"
#include "multirename/rules/rename_tag.h"
#include "multirename/rules/wrapping.h"

namespace Velmora::SDK {

namespace {

constexpr std::size_t kMaxParameterChars = 80;  // characters of a number, a property's name or its format

bool IsParameterDigit(WCHAR c) { return c >= W('0') && c <= W('9'); }
bool IsParameterSeparator(WCHAR c) { return c == W(',') || c == W('-'); }

// Returns the parameter that begins at `at`. It ends before the first separator from `searchFrom` on, or at
// the end of the text. Moves `at` past that separator.
WStringView TakeParameter(WStringView parameters, std::size_t& at, std::size_t searchFrom) {
  const auto end = std::find_if(parameters.begin() + static_cast<std::ptrdiff_t>(searchFrom),
                                parameters.end(), IsParameterSeparator);
  const std::size_t begin = at;
  const auto stop = static_cast<std::size_t>(end - parameters.begin());
  at = std::min(stop + 1, parameters.size());
  return parameters.substr(begin, std::min(stop - begin, kMaxParameterChars));
}

void ParseRange(WStringView parameters, RenameTag& tag) {
  if (parameters.empty()) return;
  std::optional<s32> first;
  std::optional<s32> second;
  bool isSpan = false;  // from one position to another
  // A third number replaces the second, and other characters are ignored (C-603).
  for (std::size_t at = 0; at < parameters.size();) {
    if (!IsParameterDigit(parameters[at]) && parameters[at] != W('-')) {
      ++at;
      continue;
    }
    if (first && parameters[at - 1] == W('-')) isSpan = true;
    const s32 number = ParseDecimal(TakeParameter(parameters, at, at + 1));
    (first ? second : first) = number;
  }
  const s32 a = first.value_or(0);
  if (second && isSpan) {
    tag.start = a;
    tag.end = std::max(*second, a);
  } else if (second) {
    tag.start = *second < 0 ? WrappingNegative(a) : a;
    tag.length = *second < 0 ? WrappingNegative(*second) : *second;
  } else if (parameters.front() == W(',')) {
    tag.start = a;
  } else {
    tag.start = a < 0 ? -1 : 1;
    tag.length = a < 0 ? WrappingNegative(a) : a;
  }
}

void ParseCounter(WStringView parameters, RenameTag& tag) {
  s32* const numbers[] = {&tag.start, &tag.end, &tag.length};
  std::size_t found = 0;
  for (std::size_t at = 0; at < parameters.size() && found < std::size(numbers);) {
    if (IsParameterDigit(parameters[at]))
      *numbers[found++] = ParseDecimal(TakeParameter(parameters, at, at));
    else
      ++at;
  }
}

void ParseProperty(WStringView parameters, RenameTag& tag) {
  std::size_t at = 0;
  tag.text = TakeParameter(parameters, at, at);
  parameters.remove_prefix(at);
  if (parameters.starts_with(W('{'))) {
    parameters.remove_prefix(1);
    const std::size_t end = parameters.find(W('}'));
    if (end != WStringView::npos) {
      tag.format = parameters.substr(0, std::min(end, kMaxParameterChars));
      parameters.remove_prefix(end + 1);
    }
  }
  ParseRange(parameters, tag);
}

struct TagRow {
  WCHAR letter;
  TagKind kind;
  void (*parse)(WStringView parameters, RenameTag& tag);
};

// Matches the letters of names and counters in either case. Those of dates are case-sensitive: M is the
// month, m the minute (C-602).
constexpr TagRow kTagRows[] = {
    {W('N'), TagName, ParseRange},        {W('n'), TagName, ParseRange},
    {W('E'), TagExtension, ParseRange},   {W('e'), TagExtension, ParseRange},
    {W('F'), TagFolder, ParseRange},      {W('f'), TagFolder, ParseRange},
    {W('C'), TagCounter, ParseCounter},   {W('c'), TagCounter, ParseCounter},
    {W('Y'), TagYear, ParseRange},        {W('M'), TagMonth, ParseRange},
    {W('D'), TagDay, ParseRange},         {W('h'), TagHour, ParseRange},
    {W('m'), TagMinute, ParseRange},      {W('s'), TagSecond, ParseRange},
    {W('?'), TagProperty, ParseProperty},
};

RenameTag LiteralTag(WStringView text) {
  RenameTag tag;
  tag.text = text;
  return tag;
}

// Drops the first and the last character, whatever they are: "Photo]" has the tag letter "h" and results in
// the hour (C-601).
RenameTag ClassifyTag(WStringView token) {
  const WStringView body = token.substr(1, token.size() - 2);
  if (body.empty()) return LiteralTag(token);
  const TagRow* const row = std::ranges::find(kTagRows, body.front(), &TagRow::letter);
  if (row == std::end(kTagRows)) return LiteralTag(token);
  RenameTag tag;
  tag.kind = row->kind;
  row->parse(body.substr(1), tag);
  return tag;
}

}  // namespace

RenameTags ParseTemplate(WStringView text) {
  RenameTags tags;
  WString current;
  for (std::size_t at = 0; at < text.size(); ++at) {
    const WCHAR c = text[at];
    const bool isDoubled = at + 1 < text.size() && text[at + 1] == c;
    if (c == W('[') && !isDoubled) {
      if (!current.empty()) tags.push_back(LiteralTag(current));
      current = c;
    } else if (c == W(']') && !isDoubled && !current.empty()) {
      current += c;
      tags.push_back(ClassifyTag(current));
      current.clear();
    } else {
      current += c;
      if (isDoubled && (c == W('[') || c == W(']'))) ++at;
    }
  }
  if (!current.empty()) tags.push_back(LiteralTag(current));
  return tags;
}

s32 ParseDecimal(WStringView text) { return LeadingNumber(text); }

WStringView SubstringOf(WStringView value, const RenameTag& range) {
  const auto size = static_cast<s32>(value.size());
  if (range.start == 0) return value;
  if (range.start < 0) {
    const s32 stop = WrappingSum(WrappingSum(size, range.start), 1);
    const s32 position = std::max(std::min(WrappingDifference(stop, range.length), stop), 0);
    const s32 count = WrappingDifference(stop, position);
    // A stop before the beginning selects the whole value (C-604).
    return value.substr(static_cast<std::size_t>(position),
                        count < 0 ? WStringView::npos : static_cast<std::size_t>(count));
  }
  if (range.start > size) return {};
  const WStringView rest = value.substr(static_cast<std::size_t>(range.start) - 1);
  if (range.end > 0) {
    const s32 count = std::max(WrappingSum(WrappingDifference(range.end, range.start), 1), 0);
    return rest.substr(0, static_cast<std::size_t>(count));
  }
  return range.length > 0 ? rest.substr(0, static_cast<std::size_t>(range.length)) : rest;
}

}  // namespace Velmora::SDK
