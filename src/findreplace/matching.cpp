#include "findreplace/matching.h"

#include <algorithm>
#include <string>
#include <string_view>

#include "findreplace/item_search.h"
#include "findreplace/text_search.h"

namespace QXFindAndReplace {

namespace {

void SetMatch(LineMatch& match, const TextPosition& position, std::uint32_t length) {
  match = {true, {position, {position.line, position.column + length}}};
}

template <typename CharT>
std::basic_string_view<CharT> Measured(const CharT* text, std::uint32_t length) {
  return length != 0 ? std::basic_string_view<CharT>(text, length) : std::basic_string_view<CharT>(text);
}

template <typename CharT>
bool HasZero(const CharT* text, std::size_t length) {
  return std::char_traits<CharT>::find(text, length, CharT()) != nullptr;
}

// The first place of the text in one line's stretch of the file, by the rules of FindInLine.
template <typename CharT>
const CharT* FindInStretch(const CharT* p, const CharT* end, std::basic_string_view<CharT> text,
                           bool ignoreCase) {
  if (text.empty()) return p != end && (ignoreCase || *p != CharT()) ? p : nullptr;
  if (ignoreCase) return ScanIgnoringCase(p, end, text.data(), text.size());
  const CharT* const place = FindText<CharT, false>(p, end, text.data(), text.size());
  return place && !HasZero(p, static_cast<std::size_t>(place - p) + 1) ? place : nullptr;
}

// Whether a place in a block's bytes is a place in one line.
template <typename CharT>
bool HoldsLineEnd(std::basic_string_view<CharT> text) {
  return text.find(CharT('\r')) != text.npos || text.find(CharT('\n')) != text.npos;
}

template <typename CharT>
WildcardPattern<CharT>& CompiledPattern(TextDocumentT<CharT>& document, const CharT* text, bool ignoreCase) {
  const std::basic_string_view<CharT> find(text);
  auto& cache = document.regexCache;
  const auto known = std::ranges::find(cache, find, &RegexCacheEntry<CharT>::text);
  if (known != cache.end()) return known->pattern;
  return cache
      .emplace_back(
          RegexCacheEntry<CharT>{std::basic_string<CharT>(find), WildcardPattern<CharT>(find, ignoreCase)})
      .pattern;
}

template <typename CharT>
bool MatchPattern(WildcardPattern<CharT>& pattern, const TextLine& line, const TextPosition& position,
                  LineMatch& match) {
  typename WildcardPattern<CharT>::Match found = {};
  if (!pattern.Search(FileText<CharT>(line), FileLength<CharT>(line), position.column, found)) return false;
  SetMatch(match, {position.line, found.start}, found.length);
  return true;
}

// The search with wildcards through a document. Lines that lack the longest text that every match holds are
// passed over without a look.
template <typename CharT>
class PatternSearch {
 public:
  PatternSearch(TextDocumentT<CharT>& document, const CharT* text, bool ignoreCase)
      : document_(document), search_(document, 0), text_(text), ignoreCase_(ignoreCase) {}

  bool Next(TextPosition position, LineMatch& match) {
    for (; position.line < document_.lines.size(); position = {position.line + 1, 0}) {
      if (pattern_ && !MoveToRequired(position)) return false;
      const TextLine& line = document_.lines[position.line];
      if (line.removed != 0) continue;
      // A pattern is compiled when the first line is searched.
      if (!pattern_) pattern_ = &CompiledPattern(document_, text_, ignoreCase_);
      if (MatchPattern(*pattern_, line, position, match)) return true;
    }
    return false;
  }

 private:
  // Moves to the next line that holds the required text behind the position, if that is in a later line.
  bool MoveToRequired(TextPosition& position) {
    const std::basic_string_view<CharT> required = pattern_->RequiredText();
    if (required.empty()) return true;
    if (HoldsLineEnd(required)) return false;
    TextPosition place = position;
    const bool isFound = search_.Next(place, [&](const CharT* p, const CharT* end) {
      return ignoreCase_ ? FindText<CharT, true>(p, end, required.data(), required.size())
                         : FindText<CharT, false>(p, end, required.data(), required.size());
    });
    if (place.line != position.line) position = {place.line, 0};
    return isFound;
  }

  TextDocumentT<CharT>& document_;
  DocumentSearch<CharT> search_;
  const CharT* text_;
  bool ignoreCase_;
  WildcardPattern<CharT>* pattern_ = nullptr;
};

[[noreturn]] void ThrowNoPart() {
  throw WQDR::WQDataReaderException(ERROR_INVALID_PARAMETER, "Text part not found");
}

// One item's pass over a document, which takes each match as it comes.
template <typename CharT>
class ReplacePass {
 public:
  ReplacePass(TextDocumentT<CharT>& document, std::basic_string_view<CharT> replace,
              IFindAndReplaceCallback* callback)
      : document_(document), replace_(replace), callback_(callback) {}

  template <typename Search>
  void Run(Search&& search) {
    TextPosition position = {};
    for (LineMatch match; search.Next(position, match); position = match.range.end) {
      // Behind an empty match the search would find it again, for ever.
      if (match.range.start.column == match.range.end.column) ThrowNoPart();
      if (IsWanted(match.range)) Replace(match.range);
    }
  }

 private:
  bool IsWanted(const TextRange& range) {
    if (!callback_ || document_.replaceAll) return true;
    Highlight highlight = {};
    const auto context = document_.GetContextText(range, highlight, LineEnding::CrLf);
    switch (callback_->ConfirmReplace(context.get(), document_.format, range, highlight, replace_.data(),
                                      static_cast<std::uint32_t>(replace_.size()))) {
      case ConfirmResult::ReplaceAll:
        document_.replaceAll = true;
        return true;
      case ConfirmResult::Replace:
      case ConfirmResult::ReplaceToo:
        return true;
      case ConfirmResult::Cancel:
        throw WQDR::WQDataReaderException(ERROR_CANCELLED, "Operation cancelled by user");
      default:
        return false;
    }
  }

  void Replace(const TextRange& range) {
    if (document_.ReplaceInLine(range.start.line, range.start.column, range.end.column, replace_.data(),
                                static_cast<std::uint32_t>(replace_.size()))) {
      ++document_.changeCount;
    }
  }

  TextDocumentT<CharT>& document_;
  std::basic_string_view<CharT> replace_;
  IFindAndReplaceCallback* callback_;
};

}  // namespace

template <typename CharT>
ItemSearch<CharT>::ItemSearch(const TextDocumentT<CharT>& document, std::uint32_t firstLine,
                              const CharT* text, std::uint32_t length, bool ignoreCase)
    : document_(document),
      search_(document, firstLine),
      text_(Measured(text, length)),
      matchLength_(length),
      ignoreCase_(ignoreCase) {}

template <typename CharT>
bool ItemSearch<CharT>::Next(TextPosition position, LineMatch& match) {
  const bool isWithinLines = !text_.empty() && !HoldsLineEnd(text_);
  return isWithinLines ? NextInBlocks(position, match) : NextInLines(position, match);
}

// Whether a zero character ends the search before a column is reached.
template <typename CharT>
bool ItemSearch<CharT>::IsHiddenByZero(const TextLine& line, std::uint32_t from, std::uint32_t column) const {
  return !ignoreCase_ && HasZero(FileText<CharT>(line) + from, column - from + 1);
}

template <typename CharT>
bool ItemSearch<CharT>::NextInBlocks(TextPosition position, LineMatch& match) {
  const auto find = [this](const CharT* p, const CharT* end) {
    return ignoreCase_ ? ScanIgnoringCase(p, end, text_.data(), text_.size())
                       : FindText<CharT, false>(p, end, text_.data(), text_.size());
  };
  for (;;) {
    const TextPosition start = position;
    if (!search_.Next(position, find)) return false;
    const TextLine& line = document_.lines[position.line];
    const std::uint32_t from = start.line == position.line ? start.column : 0;
    if (line.removed == 0 && !IsHiddenByZero(line, from, position.column)) {
      SetMatch(match, position, matchLength_);
      return true;
    }
    position = {position.line + 1, 0};
  }
}

template <typename CharT>
bool ItemSearch<CharT>::NextInLines(TextPosition position, LineMatch& match) {
  for (; position.line < document_.lines.size(); position = {position.line + 1, 0}) {
    const TextLine& line = document_.lines[position.line];
    if (line.removed != 0) continue;
    const CharT* const begin = FileText<CharT>(line);
    const CharT* const place =
        FindInStretch(begin + position.column, begin + FileLength<CharT>(line), text_, ignoreCase_);
    if (!place) continue;
    SetMatch(match, {position.line, static_cast<std::uint32_t>(place - begin)}, matchLength_);
    return true;
  }
  return false;
}

template <typename CharT>
bool FindInLine(const TextDocumentT<CharT>& document, LineMatch& match, std::uint32_t line,
                std::uint32_t column, const CharT* text, std::uint32_t length, bool ignoreCase) {
  match = {};
  const TextLine& searched = document.lines.at(line);
  if (searched.removed != 0 || column > FileLength<CharT>(searched)) return false;
  const CharT* const begin = FileText<CharT>(searched);
  const CharT* const place =
      FindInStretch(begin + column, begin + FileLength<CharT>(searched), Measured(text, length), ignoreCase);
  if (place) SetMatch(match, {line, static_cast<std::uint32_t>(place - begin)}, length);
  return match.found;
}

template <typename CharT>
bool FindRegexInLine(TextDocumentT<CharT>& document, LineMatch& match, std::uint32_t line,
                     std::uint32_t column, const CharT* text, bool ignoreCase) {
  match = {};
  const TextLine& searched = document.lines.at(line);
  if (searched.removed != 0 || column > FileLength<CharT>(searched)) return false;
  return MatchPattern(CompiledPattern(document, text, ignoreCase), searched, {line, column}, match);
}

template <typename CharT>
void FindAndReplaceInLines(TextDocumentT<CharT>& document, const CharT* find, std::uint32_t findLength,
                           const CharT* replace, std::uint32_t replaceLength, bool ignoreCase,
                           std::uint32_t matching, IFindAndReplaceCallback* callback) {
  ReplacePass<CharT> pass(document, {replace, replaceLength}, callback);
  switch (matching) {
    case kMatchPlain:
      return pass.Run(ItemSearch<CharT>(document, 0, find, findLength, ignoreCase));
    case kMatchWildcard:
      return pass.Run(PatternSearch<CharT>(document, find, ignoreCase));
    default:
      throw WQDR::WQDataReaderException(ERROR_INVALID_PARAMETER, "Unsupported line matching options");
  }
}

template class ItemSearch<char>;
template class ItemSearch<WCHAR>;
template bool FindInLine(const TextDocumentT<char>&, LineMatch&, std::uint32_t, std::uint32_t, const char*,
                         std::uint32_t, bool);
template bool FindInLine(const TextDocumentT<WCHAR>&, LineMatch&, std::uint32_t, std::uint32_t, const WCHAR*,
                         std::uint32_t, bool);
template bool FindRegexInLine(TextDocumentT<char>&, LineMatch&, std::uint32_t, std::uint32_t, const char*,
                              bool);
template bool FindRegexInLine(TextDocumentT<WCHAR>&, LineMatch&, std::uint32_t, std::uint32_t, const WCHAR*,
                              bool);
template void FindAndReplaceInLines(TextDocumentT<char>&, const char*, std::uint32_t, const char*,
                                    std::uint32_t, bool, std::uint32_t, IFindAndReplaceCallback*);
template void FindAndReplaceInLines(TextDocumentT<WCHAR>&, const WCHAR*, std::uint32_t, const WCHAR*,
                                    std::uint32_t, bool, std::uint32_t, IFindAndReplaceCallback*);

}  // namespace QXFindAndReplace
