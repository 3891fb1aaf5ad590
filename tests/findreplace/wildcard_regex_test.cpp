#include <gtest/gtest.h>

#include "findreplace/wildcard/wildcard.h"
#include "linesorter/widths.h"

using namespace QXFindAndReplace;

namespace {

struct Conversion {
  const char* text;
  const char* escaped;
  const char* pattern;
};

constexpr Conversion kConversions[] = {
    {"", "", ""},
    {"abc", "abc", "abc"},
    {"\\", "\\\\", "\\\\"},
    {"^", "\\^", "\\^"},
    {".", "\\.", "\\."},
    {"$", "\\$", "\\$"},
    {"|", "\\|", "\\|"},
    {"(", "\\(", "\\("},
    {")", "\\)", "\\)"},
    {"[", "\\[", "\\["},
    {"]", "\\]", "\\]"},
    {"+", "\\+", "\\+"},
    {"/", "\\/", "\\/"},
    {"?", "\\?", "."},
    {"*", "\\*", ".*"},
    {"a?c", "a\\?c", "a.c"},
    {"a*", "a\\*", "a.*"},
    {"a.c", "a\\.c", "a\\.c"},
    {"**", "\\*\\*", ".*.*"},
    {"*?", "\\*\\?", ".*."},
    // A backslash before a wildcard does not escape it.
    {"\\?", "\\\\\\?", "\\\\."},
    {"\\\\*", "\\\\\\\\\\*", "\\\\\\\\.*"},
    {"\\d", "\\\\d", "\\\\d"},
    // Braces, hyphens and characters without a meaning in a pattern are unchanged.
    {"a{2}-b{1,3}", "a{2}-b{1,3}", "a{2}-b{1,3}"},
    {"?{3}x", "\\?{3}x", ".{3}x"},
    {"*{2}", "\\*{2}", ".*{2}"},
    {"{}", "{}", "{}"},
    {"#,:=!<>&%@~`'\"; \t\r\n", "#,:=!<>&%@~`'\"; \t\r\n", "#,:=!<>&%@~`'\"; \t\r\n"},
    {"\xE4\xFF", "\xE4\xFF", "\xE4\xFF"},
};

template <typename CharT>
class WildcardRegexTest : public testing::Test {};
TYPED_TEST_SUITE(WildcardRegexTest, BothWidths);

}  // namespace

TYPED_TEST(WildcardRegexTest, PutsABackslashBeforeEachCharacterWithAMeaningButBracesAndHyphens) {
  for (const Conversion& conversion : kConversions) {
    EXPECT_EQ(EscapeRegex<TypeParam>(In<TypeParam>(conversion.text)), In<TypeParam>(conversion.escaped))
        << conversion.text;
  }
}

TYPED_TEST(WildcardRegexTest, MakesWildcardsOfQuestionMarksAndStars) {
  for (const Conversion& conversion : kConversions) {
    EXPECT_EQ(WildcardToRegex<TypeParam>(In<TypeParam>(conversion.text)), In<TypeParam>(conversion.pattern))
        << conversion.text;
  }
}

TYPED_TEST(WildcardRegexTest, KeepsZeroCharacters) {
  std::basic_string<TypeParam> text = In<TypeParam>("a");
  text += TypeParam();
  text += TypeParam('?');
  std::basic_string<TypeParam> pattern = In<TypeParam>("a");
  pattern += TypeParam();
  pattern += TypeParam('.');
  EXPECT_EQ(WildcardToRegex<TypeParam>(text), pattern);
}
