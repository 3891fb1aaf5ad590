// Lines as long as a block, on a thread with a stack of the usual size: there must be no recursion, and the
// work must grow linearly with the line.
#include <gtest/gtest.h>

#include <regex>
#include <string>
#include <thread>

#include "findreplace/wildcard_library.h"
#include "linesorter/widths.h"

using namespace QXFindAndReplace;

namespace {

constexpr std::size_t kLength = 32767;

template <typename CharT>
class WildcardLongLinesTest : public testing::Test {
 protected:
  static LineMatches Find(std::string_view text, const std::string& line) {
    LineMatches matches;
    std::thread([&] {
      WildcardPattern<CharT> pattern(In<CharT>(text), false);
      matches = MatchesOf<CharT>(pattern, In<CharT>(line), 0);
    }).join();
    return matches;
  }
  static LineMatches FindWide(const WString& text, const WString& line) {
    LineMatches matches;
    std::thread([&] {
      WildcardPattern<WCHAR> pattern(text, false);
      matches = MatchesOf<WCHAR>(pattern, line, 0);
    }).join();
    return matches;
  }
  // Returns `count` adjacent matches of the same length, from a column on.
  static LineMatches Row(std::size_t start, std::size_t length, std::size_t count) {
    LineMatches matches;
    for (; count > 0; --count, start += length) matches.emplace_back(start, length);
    return matches;
  }

  const LineMatches none = {};
  const std::string as = std::string(kLength, 'a');
  const std::string xs = std::string(kLength, 'x');
};
TYPED_TEST_SUITE(WildcardLongLinesTest, BothWidths);

}  // namespace

TYPED_TEST(WildcardLongLinesTest, FindsStars) {
  EXPECT_EQ(this->Find("*", this->as), (LineMatches{{0, kLength}, {kLength, 0}}));
  EXPECT_EQ(this->Find("a*", this->as), (LineMatches{{0, kLength}}));
  EXPECT_EQ(this->Find("a*b", this->as + "b"), (LineMatches{{0, kLength + 1}}));
  EXPECT_EQ(this->Find("a*b", this->as), this->none);
  EXPECT_EQ(this->Find("a*b*c*d", "abcd" + this->as + "abcd"), (LineMatches{{0, kLength + 8}}));
  EXPECT_EQ(this->Find("a*b*c*d", this->as + "bdc" + this->as), this->none);
  EXPECT_EQ(this->Find("*a*a*a*a*a*a*a*a*a*a*a*a*a*b", this->as), this->none);
}

TYPED_TEST(WildcardLongLinesTest, FindsQuestionMarks) {
  EXPECT_EQ(this->Find("?", this->as), this->Row(0, 1, kLength));
  EXPECT_EQ(this->Find("?{3}x", this->as + "x"), (LineMatches{{kLength - 3, 4}}));
  EXPECT_EQ(this->Find("?{3}x", this->as), this->none);
  EXPECT_EQ(this->Find("?{3}x", this->xs), this->Row(0, 4, kLength / 4));
}

TYPED_TEST(WildcardLongLinesTest, FindsManyMatchesOfRepeats) {
  EXPECT_EQ(this->Find("a{1}", this->as), this->Row(0, 1, kLength));
  EXPECT_EQ(this->Find("a{1,1}", this->as), this->Row(0, 1, kLength));
  EXPECT_EQ(this->Find("a{1,7}", this->as), this->Row(0, 7, kLength / 7));  // 7 divides the length
  EXPECT_EQ(this->Find("a{1,}", this->as), (LineMatches{{0, kLength}}));
}

TYPED_TEST(WildcardLongLinesTest, FindsRunsThatShareTheirCharacters) {
  const std::string text = "x{0,30}x{0,30}x{0,30}y";
  EXPECT_EQ(this->Find(text, this->xs), this->none);
  EXPECT_EQ(this->Find(text, this->xs + "y" + this->xs), (LineMatches{{kLength - 90, 91}}));
  EXPECT_EQ(this->Find("x{1,10000}x{1,10000}x{1,10000}y", this->xs + "y"),
            (LineMatches{{kLength - 30000, 30001}}));
  EXPECT_EQ(this->Find("x{1,10000}x{1,10000}x{1,10000}y", this->xs + "z"), this->none);
  EXPECT_EQ(this->Find("?{0,30000}x", this->xs), (LineMatches{{0, 30001}, {30001, kLength - 30001}}));
}

TYPED_TEST(WildcardLongLinesTest, FindsRepeatsOfRepeats) {
  EXPECT_EQ(this->Find("a{2}{1,3}", this->as), this->Row(0, 6, kLength / 6));  // one character remains
  EXPECT_EQ(this->Find("a{2}{0,}b", this->as), this->none);
  EXPECT_EQ(this->Find("a{2}{0,}b", this->as + "b"), (LineMatches{{1, kLength}}));
  EXPECT_EQ(this->Find("a{2,3}{2,}{0,}b", this->as + "b"), (LineMatches{{0, kLength + 1}}));
}

// Each combination of state and place takes a bit.
TYPED_TEST(WildcardLongLinesTest, RefusesWhatTakesTooMuchMemory) {
  std::string text;
  for (int count = 0; count < 16000; ++count) text += "a{0,1}";
  WildcardPattern<TypeParam> pattern(In<TypeParam>(text), false);
  EXPECT_EQ(MatchesOf<TypeParam>(pattern, In<TypeParam>("aaab"), 0), (LineMatches{{0, 3}, {3, 0}}));
  const Refusal refusal =
      RefusalOf([&] { MatchesOf<TypeParam>(pattern, In<TypeParam>(this->as + this->as), 0); });
  EXPECT_EQ(refusal.code, std::regex_constants::error_complexity);
  // The pattern can still be used.
  EXPECT_EQ(MatchesOf<TypeParam>(pattern, In<TypeParam>("aaab"), 0), (LineMatches{{0, 3}, {3, 0}}));
}

// 64 MiB, of which each place of a line, including its end, takes eight bytes for up to 63 states.
TYPED_TEST(WildcardLongLinesTest, SearchesTheLongestLineThatTheMemoryHoldsAndRefusesOneMore) {
  constexpr std::size_t kLongest = (std::size_t{64} << 20) / 8 - 1;
  WildcardPattern<TypeParam> pattern(In<TypeParam>("a{2}{1,3}b"), false);
  std::basic_string<TypeParam> line(kLongest, static_cast<TypeParam>('x'));
  line[kLongest - 3] = line[kLongest - 2] = static_cast<TypeParam>('a');
  line[kLongest - 1] = static_cast<TypeParam>('b');
  EXPECT_EQ(MatchesOf<TypeParam>(pattern, line, 0), (LineMatches{{kLongest - 3, 3}}));
  line += static_cast<TypeParam>('x');
  const Refusal refusal = RefusalOf([&] { MatchesOf<TypeParam>(pattern, line, 0); });
  EXPECT_EQ(refusal.code, std::regex_constants::error_complexity);
}

TEST(WideWildcardLongLinesTest, FindsWhatLineSeparatorsCut) {
  WString line;
  LineMatches wanted;
  while (line.size() + 4 <= kLength) {
    wanted.emplace_back(line.size(), 3);
    line += W("a1b\u2028");
  }
  line += WString(kLength, W('x'));
  WildcardPattern<WCHAR> pattern(W("a*b"), false);
  EXPECT_EQ(MatchesOf<WCHAR>(pattern, line, 0), wanted);
}
