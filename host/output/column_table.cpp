#include "host/output/column_table.h"

#include <algorithm>

namespace QxHost {
namespace {

constexpr const char* kItemHeading = "Item";
constexpr const char* kGap = "  ";

std::string Padded(const std::string& text, std::size_t width, bool atTheRight) {
  const std::string blanks(width - std::min(width, CharactersOf(text)), ' ');
  return atTheRight ? blanks + text : text + blanks;
}

std::vector<std::string> TextsOf(const ColumnRow& row) {
  std::vector<std::string> texts;
  for (const std::optional<WString>& cell : row.cells) texts.push_back(cell ? ToUtf8(*cell) : "");
  return texts;
}

}  // namespace

// Counts the bytes that are not UTF-8 continuation bytes.
std::size_t CharactersOf(std::string_view text) {
  return static_cast<std::size_t>(
      std::count_if(text.begin(), text.end(), [](char byte) { return (byte & 0xC0) != 0x80; }));
}

void ColumnTable::Write(const std::vector<ColumnHead>& heads, const std::vector<ColumnRow>& rows,
                        const Line& line) {
  std::vector<std::pair<std::vector<std::string>, std::string>> lines;
  if (widths_.empty()) {
    widths_.resize(heads.size());
    std::vector<std::string> headings;
    for (const ColumnHead& head : heads)
      headings.push_back(ToUtf8(head.heading.empty() ? head.name : head.heading));
    lines.emplace_back(std::move(headings), kItemHeading);
  }
  for (const ColumnRow& row : rows) lines.emplace_back(TextsOf(row), ToUtf8(row.item));
  for (const auto& [texts, item] : lines) {
    for (std::size_t index = 0; index < widths_.size() && index < texts.size(); ++index) {
      widths_[index] = std::max(widths_[index], CharactersOf(texts[index]));
    }
  }
  for (const auto& [texts, item] : lines) {
    std::string text;
    for (std::size_t index = 0; index < widths_.size() && index < texts.size(); ++index) {
      text += Padded(texts[index], widths_[index], heads[index].isNumber) + kGap;
    }
    line(text + item);
  }
}

}  // namespace QxHost
