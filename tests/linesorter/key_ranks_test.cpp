// The ranks of a few keys, step by step as in the overview of key_ranks.cpp.
#include "linesorter/engine/key_ranks.h"

#include <gtest/gtest.h>

#include <ostream>

#include "linesorter/engine/key_reader.h"
#include "linesorter/line_records.h"

namespace WQLineSorter {
namespace {

struct RankedLine {
  std::uint32_t index;
  std::uint32_t first;
  std::uint32_t last;

  bool operator==(const RankedLine&) const = default;
};

std::ostream& operator<<(std::ostream& out, const RankedLine& line) {
  return out << "line " << line.index << ": " << line.first << " to " << line.last;
}

constexpr FoldRule kAsWritten = {false, nullptr};

template <typename Keys>
std::vector<RankedLine> RanksOf(const std::vector<std::string>& texts, bool& hasPrefixes) {
  const auto records = LinesOf<typename Keys::Char>(texts);
  std::vector<RankedLine> ranked;
  for (const KeyRecord& record : RankKeys<Keys>(records.lines, kAsWritten, hasPrefixes)) {
    ranked.push_back({record.index, record.First(), record.Last()});
  }
  return ranked;
}

const std::vector<std::string> kFourLines = {"pineapple pie", "pine", "pineapples", "plum"};

TEST(KeyRanksTest, TheFirstCharactersOfFourKeysAreSevenBytesAndTheirCount) {
  const auto records = LinesOf<char>(kFourLines);
  const KeyReader<ByteKeys> reader(records.lines, kAsWritten);
  EXPECT_EQ(reader.FirstCharactersOf(reader.KeyOfLine(0)), 0x70'69'6E'65'61'70'70'08u);
  EXPECT_EQ(reader.FirstCharactersOf(reader.KeyOfLine(1)), 0x70'69'6E'65'00'00'00'04u);
  EXPECT_EQ(reader.FirstCharactersOf(reader.KeyOfLine(2)), 0x70'69'6E'65'61'70'70'08u);
  EXPECT_EQ(reader.FirstCharactersOf(reader.KeyOfLine(3)), 0x70'6C'75'6D'00'00'00'04u);
}

TEST(KeyRanksTest, KeysThatGoOnAfterTheFirstCharactersShareTwoMoreAndDifferInTheNext) {
  const auto records = LinesOf<char>(kFourLines);
  const KeyReader<ByteKeys> reader(records.lines, kAsWritten);
  EXPECT_EQ(reader.Shared(reader.RestOfLine(2, 7), reader.RestOfLine(0, 7), 6), 2u);
  EXPECT_EQ(reader.NextOf(reader.RestOfLine(0, 9)), 0x20'70'69'65'00'00'00'04u);
  EXPECT_EQ(reader.NextOf(reader.RestOfLine(2, 9)), 0x73'00'00'00'00'00'00'01u);
}

TEST(KeyRanksTest, FourKeysOfWhichOneBeginsTwoOthersGetTheRanksOfTheOverview) {
  bool hasPrefixes = false;
  EXPECT_EQ(RanksOf<ByteKeys>(kFourLines, hasPrefixes),
            (std::vector<RankedLine>{{1, 0, 2}, {0, 1, 1}, {2, 2, 2}, {3, 3, 3}}));
  EXPECT_TRUE(hasPrefixes);
}

TEST(KeyRanksTest, UnitsThatBeginOthersComeBeforeThem) {
  bool hasPrefixes = false;
  EXPECT_EQ(RanksOf<UnitKeys>(kFourLines, hasPrefixes),
            (std::vector<RankedLine>{{1, 0, 0}, {0, 1, 1}, {2, 2, 2}, {3, 3, 3}}));
  EXPECT_FALSE(hasPrefixes);
}

TEST(KeyRanksTest, EqualKeysHaveTheRanksOfTheFirstAndTheLastOfThem) {
  bool hasPrefixes = true;
  EXPECT_EQ(RanksOf<ByteKeys>({"b", "a", "b"}, hasPrefixes),
            (std::vector<RankedLine>{{1, 0, 0}, {0, 1, 2}, {2, 1, 2}}));
}

TEST(KeyRanksTest, EmptyKeysComeFirstAndBeginNoOthers) {
  bool hasPrefixes = false;
  EXPECT_EQ(RanksOf<ByteKeys>({"a", "", ""}, hasPrefixes),
            (std::vector<RankedLine>{{1, 0, 1}, {2, 0, 1}, {0, 2, 2}}));
  EXPECT_FALSE(hasPrefixes);
}

}  // namespace
}  // namespace WQLineSorter
