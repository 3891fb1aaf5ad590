// Options for keys, and the keys of lines in both widths.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <ctime>
#include <ostream>
#include <string>
#include <string_view>
#include <vector>

#include "linesorter/engine/sort_keys.h"
#include "linesorter/line_records.h"
#include "support/time_of.h"

namespace WQLineSorter {

inline constexpr std::uint32_t kMax = 0xFFFFFFFF;

inline SortLinesOptions Options(std::uint32_t bits) {
  SortLinesOptions options;
  options.options = bits;
  return options;
}

inline SortLinesOptions Substring(std::uint32_t bits = 0) { return Options(SortBySubstring | bits); }

inline SortLinesOptions Item(std::uint32_t item, char separator = ';', std::uint32_t bits = 0) {
  SortLinesOptions options = Options(SortByItem | bits);
  options.lineItem = item;
  options.matchChar = static_cast<unsigned char>(separator);
  options.matchCharA = static_cast<unsigned char>(separator);
  return options;
}

inline SortLinesOptions Number(std::uint32_t limit = 0) {
  SortLinesOptions options = Substring(SortAsNumber);
  options.subStringLen = limit;
  return options;
}

inline SortLinesOptions Date(const char* format) {
  SortLinesOptions options = Substring(SortAsDate);
  CopyTerminated(options.dateFormat, sizeof(options.dateFormat), std::string_view(format));
  return options;
}

inline SortLinesOptions From(std::uint32_t lineOffset, SortLinesOptions options) {
  options.lineOffset = lineOffset;
  return options;
}

// Local time, computed by the C library.
inline std::int64_t LocalTime(int year, int month, int day, int hour = 0, int minute = 0, int second = 0) {
  std::tm time = TimeOf(year, month, day, hour, minute, second);
  return static_cast<std::int64_t>(std::mktime(&time));
}

struct Key {
  std::uint32_t offset;
  std::uint32_t length;
  std::int64_t number = 0;
  bool operator==(const Key&) const = default;
  friend void PrintTo(const Key& key, std::ostream* out) {
    *out << "offset " << key.offset << ", length " << key.length << ", number " << key.number;
  }
};

using Numbers = std::vector<std::int64_t>;

template <typename CharT>
class SortKeys : public testing::Test {
 protected:
  static std::vector<Key> KeysOf(const std::vector<std::string>& texts, const SortLinesOptions& options,
                                 std::string_view ending = "\n") {
    LineRecords<CharT> records = LinesOf<CharT>(texts, ending);
    const std::vector<SortLine> before = records.lines;
    ComputeSortKeys<CharT>(records.lines, options);
    EXPECT_EQ(records.lines.size(), before.size());
    std::vector<Key> keys;
    for (std::size_t i = 0; i < records.lines.size(); ++i) {
      const SortLine& line = records.lines[i];
      EXPECT_EQ(line.text, before[i].text);
      EXPECT_EQ(line.length, before[i].length);
      EXPECT_EQ(line.endingSize, before[i].endingSize);
      EXPECT_EQ(line.endingKind, before[i].endingKind);
      keys.push_back({line.keyOffset, line.keyLength, line.numericKey});
    }
    return keys;
  }
  static Key KeyIn(const std::string& text, const SortLinesOptions& options) {
    return KeysOf({text}, options, "")[0];
  }
  static std::vector<std::int64_t> NumbersOf(const std::vector<std::string>& texts,
                                             const SortLinesOptions& options,
                                             std::string_view ending = "\n") {
    std::vector<std::int64_t> numbers;
    for (const Key& key : KeysOf(texts, options, ending)) numbers.push_back(key.number);
    return numbers;
  }
};
TYPED_TEST_SUITE(SortKeys, BothWidths);

}  // namespace WQLineSorter
