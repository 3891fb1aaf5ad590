// Reference for find and replace: whole texts in place of blocks, a cell for each character in place of
// parts, processed line by line and character by character. It shares only the values of flags and answers
// with the product.
//
// Does not support texts with braces, which repeat an element in wildcard patterns.
#pragma once

#include <array>
#include <functional>

#include "findreplace/engine/find_and_replace_callback.h"
#include "findreplace/engine/find_and_replace_options.h"
#include "findreplace/plain_search.h"

namespace PlainEngine {

using QXFindAndReplace::ConfirmResult;

template <typename CharT>
struct Question {
  std::basic_string<CharT> context;
  std::array<std::uint32_t, 4> range;
  std::array<std::uint32_t, 2> highlight;
  std::basic_string<CharT> replacement;
  std::uint32_t replacementLength;
  friend bool operator==(const Question&, const Question&) = default;
};

template <typename CharT>
using Ask = std::function<ConfirmResult(const Question<CharT>&)>;

template <typename CharT>
class Engine {
  using Text = std::basic_string<CharT>;
  struct Range {
    std::size_t startLine, start, endLine, end;
  };

 public:
  // Throws a Failure if the text cannot be loaded.
  Engine(const std::string& bytes, std::size_t blockBytes) {
    Text text(bytes.size() / sizeof(CharT), CharT());
    for (std::size_t i = 0; i < text.size() * sizeof(CharT); ++i) {
      reinterpret_cast<char*>(text.data())[i] = bytes[i];
    }
    oddByte_ = bytes.substr(text.size() * sizeof(CharT));
    lines_ = Split(text, blockBytes / sizeof(CharT), !oddByte_.empty());
  }

  std::uint32_t changes = 0;

  // Throws a Failure.
  void Apply(std::uint32_t flags, const Text& find, const Text& replace, const Ask<CharT>& ask) {
    using namespace QXFindAndReplace;
    ask_ = ask;
    ignoreCase_ = (flags & IgnoreCase) != 0;
    wildcard_ = (flags & Wildcard) != 0;
    const auto finds = Items(find);
    const auto replaces = Items(replace);
    const Text firstReplace = replaces.empty() ? replace : replaces[0].text;
    if ((flags & ModeMultiline) != 0) {
      RunMultiline(finds, replaces);
    } else if ((flags & ModeMany) != 0) {
      if (finds.empty()) throw kTooFew;
      if (finds.size() != replaces.size()) throw Failure{87, "Find and Replace item do not match"};
      for (std::size_t i = 0; i < finds.size(); ++i) Pass(finds[i], replaces[i].text);
    } else if ((flags & ModeManySame) != 0) {
      if (finds.empty()) throw kTooFew;
      for (const auto& item : finds) Pass(item, firstReplace);
    } else if ((flags & ModeOne) != 0) {
      if (finds.empty() && !replaces.empty()) return;
      const Text first = finds.empty() ? find : finds[0].text;
      if (first.empty()) throw Failure{87, "Find match are too short. Atleast one character need"};
      Pass({first, first}, firstReplace);
    }
  }

  // Runs one pass with a find text of any characters.
  void RunPass(const Text& find, const Text& replace, bool ignoreCase, bool wildcard) {
    ignoreCase_ = ignoreCase;
    wildcard_ = wildcard;
    Pass({find, find}, replace);
  }

  std::string Output() const {
    Text text;
    for (const auto& line : lines_) AppendLine(text, line, OutputEnding());
    return std::string(reinterpret_cast<const char*>(text.data()), text.size() * sizeof(CharT)) + oddByte_;
  }

 private:
  Text OutputEnding() const {
    for (const auto& line : lines_) {
      if (line.end == End::kCrLf) return {'\r', '\n'};
      if (line.end == End::kLf) break;
    }
    return {'\n'};
  }

  void AppendLine(Text& text, const Line<CharT>& line, const Text& ending) const {
    if (line.removed) return;
    for (std::size_t row = 0; row < line.rows.size(); ++row) {
      for (const auto& cell : line.rows[row]) text += cell.character;
      const bool isInserted = row > 0;
      const bool rowFollows = row + 1 < line.rows.size();
      if (isInserted || rowFollows || line.end != End::kNone) text += ending;
    }
  }

  struct Place {
    std::size_t row;
    std::size_t cell;
  };

  // Returns the place of the file's text from `start` to `end`; throws if it is not contiguous.
  Place FindCells(const Line<CharT>& line, std::size_t start, std::size_t end) const {
    for (std::size_t row = 0; row < line.rows.size(); ++row) {
      const auto& cells = line.rows[row];
      for (std::size_t i = 0; i < cells.size(); ++i) {
        if (cells[i].origin != start) continue;
        for (std::size_t k = 0; start + k < end; ++k) {
          if (i + k >= cells.size() || cells[i + k].origin != start + k) throw kPartNotFound;
        }
        return {row, i};
      }
    }
    throw kPartNotFound;
  }

  // Returns the place after the new text.
  Place ReplaceInLine(std::size_t number, std::size_t start, std::size_t end, const Text& text) {
    Line<CharT>& line = lines_[number];
    if (start >= line.file.size()) throw kPartNotFound;
    const Place place = FindCells(line, start, end);
    auto& cells = line.rows[place.row];
    const auto from = cells.begin() + static_cast<std::ptrdiff_t>(place.cell);
    const auto behind = cells.erase(from, from + static_cast<std::ptrdiff_t>(end - start));
    const Row<CharT> inserted = InsertedRow(text);
    cells.insert(behind, inserted.begin(), inserted.end());
    return {place.row, place.cell + text.size()};
  }

  void ReplaceRange(const Range& range, const std::vector<Item<CharT>>& replaces) {
    const std::size_t n = replaces.size();
    if (n == 0) throw kBadSubscript;
    auto& rows = lines_[range.startLine].rows;
    if (range.startLine == range.endLine) {
      const Place behind = ReplaceInLine(range.startLine, range.start, range.end, replaces[0].text);
      if (n >= 2) {
        auto& row = rows[behind.row];
        const auto cut = row.begin() + static_cast<std::ptrdiff_t>(behind.cell);
        const Row<CharT> tail(cut, row.end());
        row.erase(cut, row.end());
        if (n == 2) {
          Row<CharT> second = InsertedRow(replaces[1].text);
          second.insert(second.end(), tail.begin(), tail.end());
          rows.insert(rows.begin() + static_cast<std::ptrdiff_t>(behind.row) + 1, second);
        } else {
          rows.resize(behind.row + 1);
          for (std::size_t i = 1; i < n; ++i) rows.push_back(InsertedRow(replaces[i].text));
        }
      }
    } else {
      ReplaceInLine(range.startLine, range.start, lines_[range.startLine].file.size(), replaces[0].text);
      for (std::size_t line = range.startLine + 1; line < range.endLine; ++line) lines_[line].removed = true;
    }
    if (n > 2) {
      for (std::size_t i = 1; i <= n - 2; ++i) rows.push_back(InsertedRow(replaces[i].text));
    }
    if (n > 1 && range.startLine != range.endLine) {
      ReplaceInLine(range.endLine, 0, range.end, replaces[n - 1].text);
    }
    ++changes;
  }

  // Returns the offset of the file's text from `start` to `end` in the context; throws if it is not
  // contiguous.
  std::size_t OffsetOf(const Line<CharT>& line, std::size_t start, std::size_t end,
                       const Text& ending) const {
    if (start == end && start == 0) return 0;
    const Place place = FindCells(line, start, end);
    std::size_t offset = place.cell;
    for (std::size_t row = 0; row < place.row; ++row) offset += line.rows[row].size() + ending.size();
    return offset;
  }

  Question<CharT> MakeQuestion(const Range& range, const Text& replacement, std::uint32_t length,
                               const Text& ending) const {
    Question<CharT> question;
    question.range = {static_cast<std::uint32_t>(range.startLine), static_cast<std::uint32_t>(range.start),
                      static_cast<std::uint32_t>(range.endLine), static_cast<std::uint32_t>(range.end)};
    question.replacement = replacement;
    question.replacementLength = length;
    question.highlight = {0, 0};
    std::array<std::size_t, 2> highlight = {};
    bool isWhole = true;
    const std::size_t last = std::min(range.endLine + 1, lines_.size() - 1);
    for (std::size_t i = range.startLine == 0 ? 0 : range.startLine - 1; i <= last; ++i) {
      const std::size_t before = question.context.size();
      try {
        if (range.startLine == range.endLine && i == range.startLine) {
          highlight[0] = before + OffsetOf(lines_[i], range.start, range.end, ending);
          highlight[1] = highlight[0] + range.end - range.start;
        } else if (i == range.startLine) {
          highlight[0] = before + OffsetOf(lines_[i], range.start, lines_[i].file.size(), ending);
        } else if (i == range.endLine) {
          highlight[1] = before + OffsetOf(lines_[i], 0, range.end, ending) + range.end;
        }
      } catch (const Failure&) {
        isWhole = false;
      }
      AppendLine(question.context, lines_[i], ending);
    }
    if (isWhole) {
      question.highlight = {static_cast<std::uint32_t>(highlight[0]),
                            static_cast<std::uint32_t>(highlight[1])};
    }
    return question;
  }

  // Returns whether to replace. Sets `cancelled` if the user wants to stop.
  bool Confirm(const Question<CharT>& question, bool& cancelled) {
    const ConfirmResult answer = ask_(question);
    cancelled = answer == ConfirmResult::Cancel;
    if (answer == ConfirmResult::ReplaceAll) replaceAll_ = true;
    return answer == ConfirmResult::Replace || answer == ConfirmResult::ReplaceAll ||
           answer == ConfirmResult::ReplaceToo;
  }

  void Pass(const Item<CharT>& item, const Text& replace) {
    for (std::size_t number = 0; number < lines_.size(); ++number) {
      for (std::size_t column = 0;;) {
        const auto match = wildcard_ ? FindPattern(lines_[number], column, item, ignoreCase_)
                                     : FindItem(lines_[number], column, item, ignoreCase_);
        if (match.start == kNowhere) break;
        if (match.start == match.end) throw kPartNotFound;
        bool replaceIt = true;
        if (ask_ && !replaceAll_) {
          bool cancelled = false;
          replaceIt = Confirm(MakeQuestion({number, match.start, number, match.end}, replace,
                                           static_cast<std::uint32_t>(replace.size()), {'\r', '\n'}),
                              cancelled);
          if (cancelled) throw Failure{1223, "Operation cancelled by user"};
        }
        if (replaceIt) {
          ReplaceInLine(number, match.start, match.end, replace);
          ++changes;
        }
        column = match.end;
      }
    }
  }

  bool ContainsBlock(std::size_t first, const std::vector<Item<CharT>>& finds) const {
    const std::size_t n = finds.size();
    if (first + n > lines_.size()) return false;
    for (std::size_t k = 1; k + 4 <= n; ++k) {
      const Line<CharT>& line = lines_[first + k];
      if (finds[k].text.size() != line.file.size()) return false;
      if (FindItem(line, 0, finds[k], ignoreCase_).start == kNowhere) return false;
    }
    const Text& last = finds[n - 1].text;
    const Text& line = lines_[first + n - 1].file;
    if (last.size() > line.size()) return false;
    for (std::size_t i = 0; i < last.size(); ++i) {
      if (ignoreCase_ ? Fold(last[i]) != Fold(line[i]) : last[i] != line[i]) return false;
    }
    return true;
  }

  bool FindBlock(const std::vector<Item<CharT>>& finds, std::size_t number, std::size_t column,
                 Range& range) const {
    for (; number < lines_.size(); ++number, column = 0) {
      const auto match = FindItem(lines_[number], column, finds[0], ignoreCase_);
      if (match.start == kNowhere) continue;
      if (finds.size() == 1) {
        range = {number, match.start, number, match.end};
        return true;
      }
      if (!ContainsBlock(number, finds)) continue;
      range = {number, match.start, number + finds.size() - 1, finds.back().text.size()};
      return true;
    }
    return false;
  }

  void RunMultiline(const std::vector<Item<CharT>>& finds, const std::vector<Item<CharT>>& replaces) {
    if (finds.empty()) throw kTooFew;
    Text joined;
    for (std::size_t i = 0; i < replaces.size(); ++i) {
      if (i != 0) joined += Text{'\r', '\n'};
      joined += replaces[i].text;
    }
    Range range = {};
    for (std::size_t line = 0, column = 0; FindBlock(finds, line, column, range);
         line = range.endLine, column = range.end) {
      bool replaceIt = true;
      if (ask_ && !replaceAll_) {
        bool cancelled = false;
        replaceIt = Confirm(MakeQuestion(range, joined, 0xFFFFFFFF, OutputEnding()), cancelled);
        if (cancelled) return;
      }
      if (replaceIt) ReplaceRange(range, replaces);
    }
  }

  std::vector<Line<CharT>> lines_;
  std::string oddByte_;
  Ask<CharT> ask_;
  bool replaceAll_ = false;
  bool ignoreCase_ = false;
  bool wildcard_ = false;
};

}  // namespace PlainEngine
