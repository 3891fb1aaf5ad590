// Reference for lines, items and searches, used by PlainEngine::Engine: a whole text in place of blocks,
// processed line by line and character by character.
#pragma once

#include <algorithm>
#include <cstdint>
#include <string>
#include <vector>

namespace PlainEngine {

// An exception of the product: a number and a text. The number is 14 for exceptions of the standard library.
struct Failure {
  std::uint32_t code = 0;
  std::string text;
  friend bool operator==(const Failure&, const Failure&) = default;
};
inline const Failure kPartNotFound = {87, "Text part not found"};
inline const Failure kTooFew = {87, "To few find items. Atleast one must be set"};
inline const Failure kNoMemory = {14, "no memory"};
inline const Failure kBadSubscript = {14, "invalid vector<T> subscript"};

// A character of the output and its original column in the file's line.
constexpr std::uint32_t kInsertedCell = 0xFFFFFFFF;
template <typename CharT>
struct Cell {
  CharT character;
  std::uint32_t origin;
};
template <typename CharT>
using Row = std::vector<Cell<CharT>>;

enum class End { kNone, kLf, kCrLf };

// A line of the file and the rows that are written for it.
template <typename CharT>
struct Line {
  std::basic_string<CharT> file;
  End end = End::kNone;
  bool removed = false;
  std::vector<Row<CharT>> rows;
};

template <typename CharT>
Row<CharT> InsertedRow(const std::basic_string<CharT>& text) {
  Row<CharT> row;
  for (const CharT character : text) row.push_back({character, kInsertedCell});
  return row;
}

// Returns the lines of a text that is read in blocks. `more` is true if bytes that do not form a character
// follow the text; they are read too.
template <typename CharT>
std::vector<Line<CharT>> Split(const std::basic_string<CharT>& text, std::size_t block, bool more) {
  std::vector<Line<CharT>> lines;
  std::basic_string<CharT> held;
  std::size_t next = 0;
  for (bool last = text.empty() && !more; !last;) {
    const std::size_t room = block - held.size();
    const std::size_t taken = std::min(room, text.size() - next);
    held += text.substr(next, taken);
    next += taken;
    last = next == text.size() && (!more || taken < room);
    std::size_t start = 0;
    for (;;) {
      std::size_t stop = start;
      while (stop < held.size() && held[stop] != '\r' && held[stop] != '\n') ++stop;
      if (stop == held.size() && !(last && start < stop)) break;
      Line<CharT> line;
      line.file = held.substr(start, stop - start);
      start = stop + 1;
      if (stop == held.size()) {
        start = stop;
      } else if (held[stop] == '\n') {
        line.end = End::kLf;
      } else if (start < held.size() && held[start] == '\n') {
        line.end = End::kCrLf;
        ++start;
      }
      line.rows.emplace_back();
      for (std::uint32_t i = 0; i < line.file.size(); ++i) line.rows[0].push_back({line.file[i], i});
      lines.push_back(line);
    }
    held.erase(0, start);
    if (held.size() == block && !last) throw kNoMemory;
  }
  return lines;
}

// An item of a list, and the text from its start to the end of the list.
template <typename CharT>
struct Item {
  std::basic_string<CharT> text;
  std::basic_string<CharT> rest;
};

template <typename CharT>
std::vector<Item<CharT>> Items(const std::basic_string<CharT>& text) {
  std::vector<Item<CharT>> items;
  for (std::size_t start = 0; start < text.size();) {
    std::size_t stop = start;
    while (stop < text.size() && text[stop] != '\r' && text[stop] != '\n') ++stop;
    items.push_back({text.substr(start, stop - start), text.substr(start)});
    const bool crLf = stop + 1 < text.size() && text[stop] == '\r' && text[stop + 1] == '\n';
    start = stop + (crLf ? 2 : 1);
  }
  return items;
}

template <typename CharT>
CharT Fold(CharT character) {
  return character >= 'a' && character <= 'z' ? static_cast<CharT>(character - 32) : character;
}

constexpr std::size_t kNowhere = static_cast<std::size_t>(-1);

template <typename CharT>
std::size_t FindWithCase(const std::basic_string<CharT>& line, std::size_t column,
                         const std::basic_string<CharT>& text) {
  for (std::size_t i = column; i < line.size(); ++i) {
    if (line[i] == CharT() || text.size() > line.size() - i) return kNowhere;
    if (line.compare(i, text.size(), text) == 0) return i;
  }
  return kNowhere;
}

template <typename CharT>
std::size_t FindIgnoringCase(const std::basic_string<CharT>& line, std::size_t column,
                             const std::basic_string<CharT>& text) {
  std::size_t i = column;
  for (;;) {
    std::size_t j = 0;
    while (i < line.size() && j < text.size() && Fold(line[i]) == Fold(text[j])) {
      ++i;
      ++j;
    }
    if (j == text.size()) return i - j;
    if (++i >= line.size()) return kNowhere;
  }
}

template <typename CharT>
struct Match {
  std::size_t start = kNowhere;
  std::size_t end = kNowhere;
};

// An empty item is searched as all text that follows it, but its matches are empty.
template <typename CharT>
Match<CharT> FindItem(const Line<CharT>& line, std::size_t column, const Item<CharT>& item, bool ignoreCase) {
  if (line.removed) return {};
  const auto& text = item.text.empty() ? item.rest : item.text;
  const std::size_t start =
      ignoreCase ? FindIgnoringCase(line.file, column, text) : FindWithCase(line.file, column, text);
  if (start == kNowhere) return {};
  return {start, start + item.text.size()};
}

// Finds the end of the greedy match of a pattern at a place; kNowhere if it does not match.
template <typename CharT>
class PatternAt {
 public:
  PatternAt(const std::basic_string<CharT>& line, const std::basic_string<CharT>& pattern, bool ignoreCase)
      : line_(line),
        pattern_(pattern),
        ignoreCase_(ignoreCase),
        failed_((line.size() + 1) * (pattern.size() + 1)) {}

  std::size_t End(std::size_t place, std::size_t sign = 0) {
    if (sign == pattern_.size()) return place;
    if (failed_[place * (pattern_.size() + 1) + sign]) return kNowhere;
    std::size_t end = kNowhere;
    if (pattern_[sign] == '*') {
      std::size_t next = place;
      while (next < line_.size() && IsAny(line_[next])) ++next;
      for (++next; next-- > place && end == kNowhere;) end = End(next, sign + 1);
    } else if (place < line_.size() && Matches(line_[place], pattern_[sign])) {
      end = End(place + 1, sign + 1);
    }
    if (end == kNowhere) failed_[place * (pattern_.size() + 1) + sign] = true;
    return end;
  }

 private:
  // The dot of the library does not match the two line separators of Unicode.
  static bool IsAny(CharT character) {
    return sizeof(CharT) == 1 || (character != CharT(0x2028) && character != CharT(0x2029));
  }
  bool Matches(CharT character, CharT sign) const {
    if (sign == '?') return IsAny(character);
    return ignoreCase_ ? Fold(character) == Fold(sign) : character == sign;
  }

  const std::basic_string<CharT>& line_;
  const std::basic_string<CharT>& pattern_;
  bool ignoreCase_;
  std::vector<bool> failed_;
};

template <typename CharT>
Match<CharT> FindPattern(const Line<CharT>& line, std::size_t column, const Item<CharT>& item,
                         bool ignoreCase) {
  if (line.removed) return {};
  PatternAt<CharT> pattern(line.file, item.rest, ignoreCase);
  for (std::size_t start = column; start <= line.file.size(); ++start) {
    const std::size_t end = pattern.End(start);
    if (end != kNowhere) return {start, end};
  }
  return {};
}

}  // namespace PlainEngine
