#include "linesorter/engine/sort_keys.h"

#include <algorithm>
#include <cstring>

#include "linesorter/engine/date_parser.h"
#include "linesorter/engine/number_parser.h"

namespace WQLineSorter {

namespace {

template <typename CharT>
constexpr CharT kBlank = ' ';
template <typename CharT>
constexpr CharT kTab = '\t';

template <typename CharT>
bool IsBlank(CharT c) {
  return c == kBlank<CharT> || c == kTab<CharT>;
}

// The text of one line, in characters. `start` is where the key begins.
template <typename CharT>
struct LineText {
  const CharT* text;
  std::uint64_t start;
  std::uint64_t end;

  bool StartsInside() const { return start < end; }

  // Characters from the start to the first that fits, or to the end.
  template <typename Fits>
  std::uint32_t Distance(Fits fits) const {
    if (!StartsInside()) return 0;
    const CharT* const found = std::find_if(text + start, text + end, fits);
    return static_cast<std::uint32_t>(found - (text + start));
  }
};

template <typename CharT>
class KeyPass {
 public:
  explicit KeyPass(const SortLinesOptions& options) : options_(options), matchChar_(MatchChar(options)) {}

  void Run(SortLine& line) {
    LineText<CharT> key{reinterpret_cast<const CharT*>(line.text), options_.lineOffset,
                        line.length / sizeof(CharT)};
    if (Has(SortSkipLeadingSpace)) {
      while (key.StartsInside() && IsBlank(key.text[key.start])) ++key.start;
    }
    line.keyLength = 0;
    // The entire line has no value: all lines are equal by number and by date (C-109).
    if (!Has(SortByLine)) {
      if (Has(SortBySubstring)) {
        line.keyLength = SubstringLength(key);
      } else if (Has(SortByItem)) {
        SkipToItem(key);
        line.keyLength = key.Distance([this](CharT c) { return c == matchChar_; });
      }
      if (Has(SortAsNumber)) {
        line.numericKey = Number(key);
      } else if (Has(SortAsDate) && options_.dateFormat[0] != '\0') {
        line.numericKey = Date(key);
      }
    }
    line.keyOffset = static_cast<std::uint32_t>(key.start);
  }

 private:
  static CharT MatchChar(const SortLinesOptions& options) {
    if constexpr (sizeof(CharT) == 1) {
      return static_cast<CharT>(options.matchCharA);
    } else {
      return static_cast<CharT>(options.matchChar);
    }
  }

  bool Has(SortLinesOption option) const { return (options_.options & option) != 0; }

  // 0 where the key runs to the line's end.
  std::uint32_t SubstringLength(const LineText<CharT>& key) const {
    if (options_.subStringLen != 0) {
      return key.start + options_.subStringLen < key.end ? options_.subStringLen : 0;
    }
    if (Has(SortEndAtWhitespace)) return key.Distance(IsBlank<CharT>);
    if (Has(SortEndAtChar)) return key.Distance([this](CharT c) { return c == matchChar_; });
    return 0;
  }

  // Items count from 1; item 0, or one after the last, leaves the start at the end (C-111).
  void SkipToItem(LineText<CharT>& key) const {
    for (std::uint32_t item = 1; key.StartsInside() && item != options_.lineItem; ++key.start) {
      if (key.text[key.start] == matchChar_) ++item;
    }
  }

  std::int64_t Number(const LineText<CharT>& key) {
    if (key.start > key.end) return 0;
    const CharT* const text = key.text + key.start;
    const CharT* end;
    // Longer numbers than the buffer holds are cut (C-114).
    constexpr std::uint64_t kLongest = 63;
    const auto limit = static_cast<std::size_t>(
        std::min({key.end - key.start, static_cast<std::uint64_t>(options_.subStringLen), kLongest}));
    // Without a limit the number is read in place, and past the line's end if white space leads there: an
    // empty line has the number of the next line (C-112).
    if (limit == 0) return reader_.template Read<std::int64_t>(text, &end);
    CharT buffer[kLongest + 1];
    std::copy_n(text, limit, buffer);
    buffer[limit] = 0;
    return ParseNumber<std::int64_t>(buffer, &end);
  }

  std::int64_t Date(const LineText<CharT>& key) {
    static constexpr CharT kEmpty[2] = {};
    // Reads past the line's end as well (C-113). The result of the parser does not matter (C-115).
    std::tm date = {};
    ParseDate(key.start > key.end ? kEmpty : key.text + key.start, options_.dateFormat, &date, reader_);
    // Some formats leave an absolute year (C-123).
    if (date.tm_year > 1900) date.tm_year -= 1900;
    return _mktime64(&date);
  }

  const SortLinesOptions& options_;
  const CharT matchChar_;
  NumberReader<CharT> reader_;
};

}  // namespace

template <typename CharT>
void ComputeSortKeys(std::vector<SortLine>& lines, const SortLinesOptions& options) {
  KeyPass<CharT> pass(options);
  for (SortLine& line : lines) pass.Run(line);
}

template void ComputeSortKeys<char>(std::vector<SortLine>&, const SortLinesOptions&);
template void ComputeSortKeys<WCHAR>(std::vector<SortLine>&, const SortLinesOptions&);

}  // namespace WQLineSorter
