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

// The text of one line and the position of its key, in characters.
template <typename CharT>
struct LineText {
  const CharT* text;
  std::uint64_t start;
  std::uint64_t end;

  bool StartsInside() const { return start < end; }

  // Returns the number of characters from the start to the first that satisfies `fits`, or to the end.
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
    // The entire line has no value: by number or by date, all lines are equal (C-109).
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

  // Returns 0 if the key extends to the end of the line.
  std::uint32_t SubstringLength(const LineText<CharT>& key) const {
    if (options_.subStringLen != 0) {
      return key.start + options_.subStringLen < key.end ? options_.subStringLen : 0;
    }
    if (Has(SortEndAtWhitespace)) return key.Distance(IsBlank<CharT>);
    if (Has(SortEndAtChar)) return key.Distance([this](CharT c) { return c == matchChar_; });
    return 0;
  }

  // Items count from 1. For item 0, or an item after the last one, the start becomes the end of the line
  // (C-111).
  void SkipToItem(LineText<CharT>& key) const {
    for (std::uint32_t item = 1; key.StartsInside() && item != options_.lineItem; ++key.start) {
      if (key.text[key.start] == matchChar_) ++item;
    }
  }

  std::int64_t Number(const LineText<CharT>& key) {
    if (key.start > key.end) return 0;
    const CharT* const text = key.text + key.start;
    const CharT* end;
    // Numbers longer than the buffer are truncated (C-114).
    constexpr std::uint64_t kLongest = 63;
    const auto limit = static_cast<std::size_t>(
        std::min({key.end - key.start, static_cast<std::uint64_t>(options_.subStringLen), kLongest}));
    // Without a limit the number is read directly from the block. If the rest of the line is white space, the
    // parser continues in the next line: an empty line gets the number of the next line (C-112).
    if (limit == 0) return reader_.template Read<std::int64_t>(text, &end);
    CharT buffer[kLongest + 1];
    std::copy_n(text, limit, buffer);
    buffer[limit] = 0;
    return ParseNumber<std::int64_t>(buffer, &end);
  }

  std::int64_t Date(const LineText<CharT>& key) {
    static constexpr CharT kEmpty[2] = {};
    // Also reads past the end of the line (C-113). The result of the parser is ignored (C-115).
    std::tm date = {};
    ParseDate(key.start > key.end ? kEmpty : key.text + key.start, options_.dateFormat, &date, reader_);
    // Some formats store an absolute year (C-123).
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
