// Matches of wildcard patterns, determined by hand.
#include "findreplace/wildcard/wildcard.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

#include "findreplace/wildcard_library.h"
#include "linesorter/widths.h"

using namespace QXFindAndReplace;

namespace {

template <typename CharT>
class WildcardTest : public testing::Test {
 protected:
  // Returns all matches in a line, up to the first empty one.
  static LineMatches Find(std::string_view text, std::string_view line, bool ignoreCase = false) {
    WildcardPattern<CharT> pattern(In<CharT>(text), ignoreCase);
    const Exact<CharT> exact(In<CharT>(line));
    return MatchesOf<CharT>(pattern, {exact.Begin(), exact.Length()}, 0);
  }
  static std::basic_string<CharT> Required(std::string_view text) {
    return std::basic_string<CharT>(WildcardPattern<CharT>(In<CharT>(text), true).RequiredText());
  }
};
TYPED_TEST_SUITE(WildcardTest, BothWidths);

const LineMatches kNone;

using namespace std::string_view_literals;

}  // namespace

TYPED_TEST(WildcardTest, TakesOneCharacterForAQuestionMark) {
  EXPECT_EQ(this->Find("a?c", "xabcx"), (LineMatches{{1, 3}}));
  EXPECT_EQ(this->Find("a?c", "ac"), kNone);
  EXPECT_EQ(this->Find("a?c", "abbc"), kNone);
  EXPECT_EQ(this->Find("??", "abcde"), (LineMatches{{0, 2}, {2, 2}}));
  EXPECT_EQ(this->Find("?", ""), kNone);
}

TYPED_TEST(WildcardTest, TakesAsMuchAsItCanForAStar) {
  EXPECT_EQ(this->Find("a*", "xabcx"), (LineMatches{{1, 4}}));
  EXPECT_EQ(this->Find("*a", "xabac"), (LineMatches{{0, 4}}));
  EXPECT_EQ(this->Find("a*b", "ab xb ab x"), (LineMatches{{0, 8}}));
  EXPECT_EQ(this->Find("a*b*c", "a bcbc b"), (LineMatches{{0, 6}}));
  EXPECT_EQ(this->Find("a**b", "aab"), (LineMatches{{0, 3}}));
  EXPECT_EQ(this->Find("a*b", "b a"), kNone);
}

TYPED_TEST(WildcardTest, LetsNoMatchOverlapThePreviousOne) {
  EXPECT_EQ(this->Find("aba*aba", "xababa"), kNone);
  EXPECT_EQ(this->Find("aba*aba", "xabaaba"), (LineMatches{{1, 6}}));
  EXPECT_EQ(this->Find("a*aa*a", "aaa"), kNone);
  EXPECT_EQ(this->Find("a*aa*a", "aaaa"), (LineMatches{{0, 4}}));
}

TYPED_TEST(WildcardTest, TakesADotForADot) {
  EXPECT_EQ(this->Find("a.c", "abc"), kNone);
  EXPECT_EQ(this->Find("a.c", "abca.c"), (LineMatches{{3, 3}}));
}

TYPED_TEST(WildcardTest, TakesAllThatHasAMeaningInPatternsForItself) {
  EXPECT_EQ(this->Find("^.$|()[]+/\\-}", "x^.$|()[]+/\\-}x"), (LineMatches{{1, 13}}));
  EXPECT_EQ(this->Find("\\?", "a\\bc"), (LineMatches{{1, 2}}));
}

TYPED_TEST(WildcardTest, MatchesStarsAloneEmptyAtTheEndOfTheLine) {
  EXPECT_EQ(this->Find("*", "abc"), (LineMatches{{0, 3}, {3, 0}}));
  EXPECT_EQ(this->Find("***", "abc"), (LineMatches{{0, 3}, {3, 0}}));
  EXPECT_EQ(this->Find("*", ""), (LineMatches{{0, 0}}));
}

TYPED_TEST(WildcardTest, FoldsLettersOfAToZAlone) {
  EXPECT_EQ(this->Find("aBz?", "AbZ1 abz2", true), (LineMatches{{0, 4}, {5, 4}}));
  EXPECT_EQ(this->Find("aBz?", "AbZ1 aBz2"), (LineMatches{{5, 4}}));
  EXPECT_EQ(this->Find("\xE4", "\xC4\xE4", true), (LineMatches{{1, 1}}));
  // Characters next to the letters that also differ by 0x20.
  EXPECT_EQ(this->Find("@", "`", true), kNone);
  EXPECT_EQ(this->Find("}", "]", true), kNone);
  EXPECT_EQ(this->Find("[", "k{", true), kNone);
}

TYPED_TEST(WildcardTest, TakesZerosForCharacters) {
  EXPECT_EQ(this->Find("a?b*c", "a\0b\0\0c"sv), (LineMatches{{0, 6}}));
  EXPECT_EQ(this->Find("b", "\0b"sv), (LineMatches{{1, 1}}));
}

// A list of texts is one pattern up to its end, including its line breaks, which no line contains.
TYPED_TEST(WildcardTest, FindsNothingForATextWithLineBreaks) {
  EXPECT_EQ(this->Find("a\r\nb", "a b"), kNone);
  EXPECT_EQ(this->Find("a\r\nb", "ab"), kNone);
  EXPECT_EQ(this->Find("a\nb", "xa\nb"), (LineMatches{{1, 3}}));
  EXPECT_EQ(this->Find("a?b*", "a\nba\rba bc\nd"), (LineMatches{{6, 4}}));
}

TEST(WideWildcardTest, WildcardsDoNotMatchLineOrParagraphSeparatorsByDesign) {
  WildcardPattern<WCHAR> pattern(W("a*"), false);
  const WString line = W("ab\u2028ab\u2029a\u2027b");
  EXPECT_EQ(MatchesOf<WCHAR>(pattern, line, 0), (LineMatches{{0, 2}, {3, 2}, {6, 3}}));
  WildcardPattern<WCHAR> single(W("b?a"), false);
  EXPECT_EQ(MatchesOf<WCHAR>(single, W("b\u2028ab\u2027a"), 0), (LineMatches{{3, 3}}));
  // Written out in the pattern, it matches.
  WildcardPattern<WCHAR> separator(W("b\u2028*"), false);
  EXPECT_EQ(MatchesOf<WCHAR>(separator, line, 0), (LineMatches{{1, 4}}));
}

TEST(WideWildcardTest, TakesUnitsForCharacters) {
  WildcardPattern<WCHAR> pattern(W("a?b"), false);
  EXPECT_EQ(MatchesOf<WCHAR>(pattern, W("a\U0001F600b a\u0416b"), 0), (LineMatches{{5, 3}}));
  WildcardPattern<WCHAR> folded(W("\u0416"), true);
  EXPECT_EQ(MatchesOf<WCHAR>(folded, W("\u0436\u0416"), 0), (LineMatches{{1, 1}}));
  // Full-width wildcards and braces are ordinary characters.
  WildcardPattern<WCHAR> wide(W("\uFF0A\uFF5B2\uFF5D"), false);
  EXPECT_EQ(MatchesOf<WCHAR>(wide, W("x\uFF0A\uFF5B2\uFF5D"), 0), (LineMatches{{1, 4}}));
}

TYPED_TEST(WildcardTest, RepeatsByBraces) {
  EXPECT_EQ(this->Find("xa{2}", "xa xaa xaaa"), (LineMatches{{3, 3}, {7, 3}}));
  EXPECT_EQ(this->Find("a{1,3}", "aaaaa"), (LineMatches{{0, 3}, {3, 2}}));
  EXPECT_EQ(this->Find("a{2,}", "a aaaa"), (LineMatches{{2, 4}}));
  EXPECT_EQ(this->Find("?{3}x", "abcdx"), (LineMatches{{1, 4}}));
  EXPECT_EQ(this->Find("a{0002}", "aaa"), (LineMatches{{0, 2}}));
  EXPECT_EQ(this->Find("*{2}b", "abab"), (LineMatches{{0, 4}}));
  EXPECT_EQ(this->Find("\\{2}", "\\\\"), (LineMatches{{0, 2}}));
  EXPECT_EQ(this->Find("a{1,2}", "Aa", true), (LineMatches{{0, 2}}));
}

TYPED_TEST(WildcardTest, GivesTheFirstRunMoreThanTheSecond) {
  EXPECT_EQ(this->Find("xa{0,2}?{0,2}y", "xaay xabcy"), (LineMatches{{0, 4}, {5, 5}}));
  EXPECT_EQ(this->Find("a{1,3}aab", "aaaaab"), (LineMatches{{0, 6}}));
  EXPECT_EQ(this->Find("a{1,2}aab", "aaaaab"), (LineMatches{{1, 5}}));
}

TYPED_TEST(WildcardTest, MatchesRepeatsOfNothingEmpty) {
  EXPECT_EQ(this->Find("?{0}", "ab"), (LineMatches{{0, 0}}));
  EXPECT_EQ(this->Find("a{0,0}", "ab"), (LineMatches{{0, 0}}));
  EXPECT_EQ(this->Find("b{0,1}", "ab"), (LineMatches{{0, 0}}));
  EXPECT_EQ(this->Find("b{0,1}", "ba"), (LineMatches{{0, 1}, {1, 0}}));
  EXPECT_EQ(this->Find("xa{0}y", "xay xy"), (LineMatches{{4, 2}}));
}

TYPED_TEST(WildcardTest, RepeatsRepeats) {
  EXPECT_EQ(this->Find("a{2}{3}", "aaaaaaa"), (LineMatches{{0, 6}}));
  // Two, four or six, the longest first.
  EXPECT_EQ(this->Find("a{2}{1,3}b", "aaaaaaab"), (LineMatches{{1, 7}}));
  EXPECT_EQ(this->Find("a{2}{1,3}", "aaaaaaaaa"), (LineMatches{{0, 6}, {6, 2}}));
  EXPECT_EQ(this->Find("xa{2}{0,}b", "xaaab xaaaab"), (LineMatches{{6, 6}}));
}

// Six and six are tried before five, five and five or more, although the latter are longer.
TYPED_TEST(WildcardTest, TriesRepeatsOfRepeatsInTheirOwnOrderByDesign) {
  EXPECT_EQ(this->Find("?{5,6}{0,3}b", "012345678901b345b789"), (LineMatches{{0, 13}, {16, 1}}));
}

// The examples in the headers of the three matchers.
TYPED_TEST(WildcardTest, FindsTheExamplesOfTheMatchers) {
  EXPECT_EQ(this->Find("ab*c?*d", "xabcdabcedx"), (LineMatches{{1, 9}}));
  EXPECT_EQ(this->Find("a{1,3}ab", "xaaab"), (LineMatches{{1, 4}}));
  EXPECT_EQ(this->Find("a{2}{1,2}b", "aaab"), (LineMatches{{1, 3}}));
}

TYPED_TEST(WildcardTest, TakesAClosingBraceAloneForItself) {
  EXPECT_EQ(this->Find("}", "a}"), (LineMatches{{1, 1}}));
  EXPECT_EQ(this->Find("a}", "a}"), (LineMatches{{0, 2}}));
  EXPECT_EQ(this->Find("a{2}}", "aa}"), (LineMatches{{0, 3}}));
}

TYPED_TEST(WildcardTest, ReturnsTheTextThatAllMatchesContain) {
  EXPECT_EQ(this->Required("abc"), In<TypeParam>("abc"));
  EXPECT_EQ(this->Required("a?bcd*ef"), In<TypeParam>("bcd"));
  EXPECT_EQ(this->Required("aB*cD"), In<TypeParam>("aB"));
  EXPECT_EQ(this->Required("a.b"), In<TypeParam>("a.b"));
  EXPECT_EQ(this->Required("ab{2}c{1,2}d"), In<TypeParam>("abb"));
  EXPECT_EQ(this->Required("ab{0}c"), In<TypeParam>("ac"));
  EXPECT_EQ(this->Required("ab{2}{1,2}cde"), In<TypeParam>("cde"));
  EXPECT_EQ(this->Required("*?*"), In<TypeParam>(""));
  EXPECT_EQ(this->Required(""), In<TypeParam>(""));
}

TYPED_TEST(WildcardTest, SearchesFromTheColumn) {
  WildcardPattern<TypeParam> pattern(In<TypeParam>("a{1,2}b"), false);
  const Exact<TypeParam> line(In<TypeParam>("aab aab"));
  typename WildcardPattern<TypeParam>::Match match = {};
  ASSERT_TRUE(pattern.Search(line.Begin(), 7, 1, match));
  EXPECT_EQ(match.start, 1u);
  EXPECT_EQ(match.length, 2u);
  // From an earlier column again, and up to the end of the line.
  ASSERT_TRUE(pattern.Search(line.Begin(), 7, 0, match));
  EXPECT_EQ(match.start, 0u);
  EXPECT_EQ(match.length, 3u);
  EXPECT_FALSE(pattern.Search(line.Begin(), 7, 6, match));
  EXPECT_FALSE(pattern.Search(line.Begin(), 7, 7, match));
}

TYPED_TEST(WildcardTest, CanBeMoved) {
  WildcardPattern<TypeParam> pattern(In<TypeParam>("a"), false);
  WildcardPattern<TypeParam> moved(std::move(pattern));
  pattern = WildcardPattern<TypeParam>(In<TypeParam>("b"), false);
  EXPECT_EQ(MatchesOf<TypeParam>(moved, In<TypeParam>("ba"), 0), (LineMatches{{1, 1}}));
  EXPECT_EQ(MatchesOf<TypeParam>(pattern, In<TypeParam>("ba"), 0), (LineMatches{{0, 1}}));
}
