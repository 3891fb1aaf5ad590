// The memory that is reserved for line records: the estimate from the first lines may be wrong, which must
// not affect the lines or waste memory.
#include <gtest/gtest.h>

#include <algorithm>

#include "data/data_reader.h"
#include "linesorter/engine/line_loader.h"
#include "linesorter/widths.h"

using namespace WQLineSorter;

namespace {

// Lines of the same length in bytes or units, without the ending.
struct Stretch {
  std::size_t count;
  std::size_t length;
};

template <typename CharT>
class LineLoaderRoom : public testing::Test {
 protected:
  // Loads stretches of lines that end in LF, and checks every line and the reserved memory.
  static void Check(const std::vector<Stretch>& stretches) {
    std::basic_string<CharT> text;
    std::size_t count = 0;
    for (const Stretch& stretch : stretches) {
      for (std::size_t i = 0; i < stretch.count; ++i) {
        text.append(stretch.length, LetterOf(count++)).push_back(static_cast<CharT>('\n'));
      }
    }
    const std::size_t size = text.size() * sizeof(CharT);
    WQDR::MemoryDataReader reader(text.data(), size);
    const auto data = ReadLines<CharT>(reader);
    ASSERT_EQ(data->lines.size(), count);

    std::size_t number = 0;
    for (const Stretch& stretch : stretches) {
      for (std::size_t i = 0; i < stretch.count; ++i, ++number) {
        const SortLine& line = data->lines[number];
        ASSERT_EQ(line.length, stretch.length * sizeof(CharT)) << number;
        ASSERT_EQ(line.endingSize, sizeof(CharT)) << number;
        ASSERT_EQ(line.endingKind, LineEnding::Lf) << number;
        const auto* const first = reinterpret_cast<const CharT*>(line.text);
        ASSERT_TRUE(std::all_of(first, first + stretch.length, [number](CharT letter) {
          return letter == LetterOf(number);
        })) << number;
      }
    }

    // Twice the number of records, plus records with one and a quarter times the file's size, plus a
    // constant.
    constexpr std::size_t kSpare = 5000;
    EXPECT_LE(data->lines.capacity(), 2 * count + size / 32 + kSpare)
        << count << " lines in " << size << " bytes";
  }

 private:
  static CharT LetterOf(std::size_t number) { return static_cast<CharT>('a' + number % 26); }
};
TYPED_TEST_SUITE(LineLoaderRoom, BothWidths);

}  // namespace

TYPED_TEST(LineLoaderRoom, ShortLinesBeforeLongOnesTakeNoRoomOfTheirs) {
  this->Check({{5000, 0}, {2000, 2000}});
  this->Check({{5000, 1}, {400, 10000}});
  this->Check({{4096, 0}, {1000, 2000}});
  this->Check({{4097, 0}, {1000, 2000}});
}

TYPED_TEST(LineLoaderRoom, LongLinesBeforeShortOnesDoNotKeepThemOut) {
  this->Check({{5000, 500}, {400000, 0}});
  this->Check({{5000, 200}, {300000, 3}});
}

TYPED_TEST(LineLoaderRoom, LinesThatChangeTimeAndAgainTakeNoMoreThanTheyNeed) {
  this->Check({{5000, 0}, {500, 2000}, {100000, 0}, {500, 2000}, {100000, 1}});
  this->Check({{3000, 1000}, {50000, 0}, {1000, 1000}, {50000, 0}});
}

TYPED_TEST(LineLoaderRoom, LinesOfOneLengthTakeNoMoreThanTheyNeed) {
  for (const std::size_t length : {0u, 1u, 10u, 30u, 60u, 500u}) this->Check({{50000, length}});
  this->Check({{200, 10000}});
}
