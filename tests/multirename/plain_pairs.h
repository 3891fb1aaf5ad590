// Reference for the search pairs in the cells of the panel's list and in the lines of the search dialog.
#pragma once

#include <optional>

#include "multirename/plain_replace.h"

namespace PlainRules {

inline WString CellOf(const WString& value) {
  if (value.empty() || (value.front() != W(' ') && value.back() != W(' '))) return value;
  return W("\"") + value + W("\"");
}

inline std::optional<std::pair<WString, WString>> RowOf(const WString& find, const WString& replace) {
  if (find.empty()) return std::nullopt;
  return std::pair(CellOf(find.substr(0, 255)), CellOf(replace.substr(0, 255)));
}

// Returns the text without the given characters at both ends.
inline WString Stripped(WString text, const WString& characters) {
  while (!text.empty() && characters.find(text.back()) != WString::npos) text.pop_back();
  while (!text.empty() && characters.find(text.front()) != WString::npos) text.erase(0, 1);
  return text;
}

inline Pairs PairsOfCells(const Pairs& rows, bool stripsQuotes) {
  Pairs pairs;
  for (const auto& [find, replace] : rows) {
    const WString characters = stripsQuotes ? W("\"") : W("");
    pairs.emplace_back(Stripped(find.substr(0, 1024), characters),
                       Stripped(replace.substr(0, 1024), characters));
  }
  return pairs;
}

inline WString DialogTextOf(const Pairs& pairs) {
  WString text;
  for (std::size_t i = 0; i < pairs.size(); ++i) {
    if (i > 0) text += W("\r\n");
    text += pairs[i].first + W("|") + pairs[i].second;
  }
  return text;
}

inline Pairs PairsOfDialog(const WString& field) {
  Pairs pairs;
  WString rest = field.substr(0, 4096);
  while (!rest.empty()) {
    const std::size_t end = std::min(rest.find(W('\n')), rest.size());
    const WString line = rest.substr(0, end);
    rest.erase(0, end + 1);
    const std::size_t bar = std::min(line.find(W('|')), line.size());
    const WString find = Stripped(line.substr(0, bar), W("\t\r\n\""));
    const WString replace = bar < line.size() ? Stripped(line.substr(bar + 1), W("\t\r\n\"")) : WString();
    if (!find.empty()) pairs.emplace_back(find, replace);
  }
  return pairs;
}

}  // namespace PlainRules
