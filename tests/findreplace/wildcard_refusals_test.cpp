// Which patterns are refused, and with which messages: those of the standard library.
#include <gtest/gtest.h>

#include <regex>
#include <string>
#include <thread>

#include "findreplace/wildcard/wildcard_elements.h"
#include "findreplace/wildcard_library.h"
#include "linesorter/widths.h"

using namespace QXFindAndReplace;

namespace {

template <typename CharT>
class WildcardRefusalsTest : public testing::Test {
 protected:
  static Refusal Refuse(std::string_view text) {
    return RefusalOf([&] { WildcardPattern<CharT>(In<CharT>(text), false); });
  }
  static Refusal RefuseInLibrary(std::string_view text) {
    return RefusalOf([&] { CompileInLibrary<CharT>(In<CharT>(text), false); });
  }
  static LineMatches Find(std::string_view text, std::string_view line) {
    WildcardPattern<CharT> pattern(In<CharT>(text), false);
    return MatchesOf<CharT>(pattern, In<CharT>(line), 0);
  }
};
TYPED_TEST_SUITE(WildcardRefusalsTest, BothWidths);

const Refusal kNothingToRepeat = {"Mismatched '(' and ')' in regular expression",
                                  std::regex_constants::error_paren};
const Refusal kBadBrace = {"Invalid range in '{}' in regular expression",
                           std::regex_constants::error_badbrace};
const Refusal kOpenBrace = {"Mismatched '{' and '}' in regular expression",
                            std::regex_constants::error_brace};
const Refusal kTooLarge = {
    "Number of NFA states exceeds limit. Please use shorter regex string, or use smaller brace expression, "
    "or "
    "make _GLIBCXX_REGEX_STATE_LIMIT larger.",
    std::regex_constants::error_space};
const Refusal kAccepted;

struct Malformed {
  const char* text;
  const Refusal& refusal;
};

const Malformed kMalformed[] = {
    {"{", kNothingToRepeat},
    {"{2}", kNothingToRepeat},
    {"{}", kNothingToRepeat},
    {"{,}", kNothingToRepeat},
    {"{x", kNothingToRepeat},
    {"a{", kBadBrace},
    {"a{}", kBadBrace},
    {"a{,3}", kBadBrace},
    {"a{2,1}", kBadBrace},
    {"a{x", kBadBrace},
    {"a{2x}", kBadBrace},
    {"a{2,x}", kBadBrace},
    {"a{ 2}", kBadBrace},
    {"a{-1}", kBadBrace},
    {"a{{2}}", kBadBrace},
    {"a{2}{", kBadBrace},
    {"?{", kBadBrace},
    {"*{,", kBadBrace},
    {"a{2*}", kBadBrace},
    {"a{2.}", kBadBrace},
    {"a{2\r\n}", kBadBrace},
    {"a{2", kOpenBrace},
    {"a{2,", kOpenBrace},
    {"a{2,3", kOpenBrace},
    {"a{2,,}", kOpenBrace},
    {"a{1,2,3}", kOpenBrace},
    {"ok*a{2}b{1,0}c{", kBadBrace},
    {"}", kAccepted},
    {"}{2}", kAccepted},
    {"a{0}", kAccepted},
    {"a{0,}", kAccepted},
    {"a{00001,00002}", kAccepted},
    {"", kAccepted},
};

// Elements and the number of states that the library creates for each, counted by hand.
struct Element {
  const char* text;
  int states;
};
constexpr Element kElements[] = {
    {"a", 1},                 // itself
    {"*", 2},                 // any character, and the loop
    {"?{2}", 1 + 4},          // itself; a start, two copies, an end
    {"a{0,2}", 1 + 6},        // itself; a start, two copies with an alternative each, an end
    {"a{2,}", 1 + 5},         // itself; a start, two copies, a third with a loop
    {"*{2}", 2 + 6},          // both, twice
    {"a{2}{3}", 1 + 4 + 14},  // the four states of a{2}, three times
    {"a{0}{0}", 1 + 2 + 2},   // a start and an end for each
    {"a{0,1}{1,}", 1 + 4 + 10},
};
// The whole match takes 4 states, and x{N} takes N + 3.
constexpr int kMaxRepeatsOfX = 100000 - 4 - 3;

std::string Repeat(std::string_view text, int count) {
  std::string result;
  while (count-- > 0) result += text;
  return result;
}

}  // namespace

TYPED_TEST(WildcardRefusalsTest, RefusesMalformedBracesInTheLibrarysWords) {
  for (const Malformed& each : kMalformed) {
    EXPECT_EQ(this->Refuse(each.text).text, each.refusal.text) << each.text;
    EXPECT_EQ(this->Refuse(each.text).code, each.refusal.code) << each.text;
    EXPECT_EQ(this->RefuseInLibrary(each.text), each.refusal) << each.text;
  }
}

// The characters after the end of the pattern would complete it.
TYPED_TEST(WildcardRefusalsTest, ReadsAPatternToItsEndAndNoFarther) {
  using CharT = TypeParam;
  constexpr struct {
    const char* text;
    std::size_t size;
    const Refusal& refusal;
  } kRows[] = {{"a{2}", 2, kBadBrace},    {"a{2}", 3, kOpenBrace}, {"a{2,3}", 4, kOpenBrace},
               {"a{2,3}", 5, kOpenBrace}, {"a{2", 1, kAccepted},   {"a*{", 2, kAccepted}};
  for (const auto& row : kRows) {
    const std::basic_string<CharT> text = In<CharT>(row.text);
    const auto view = std::basic_string_view<CharT>(text).substr(0, row.size);
    EXPECT_EQ(RefusalOf([&] { ParseWildcardRegex<CharT>(view); }), row.refusal)
        << row.text << " " << row.size;
  }
}

TYPED_TEST(WildcardRefusalsTest, RefusesWhatIsTooLargeForTheLibraryAndNothingElse) {
  std::string all;
  int statesOfAll = 0;
  for (const Element& element : kElements) {
    all += element.text;
    statesOfAll += element.states;
    const int most = kMaxRepeatsOfX - element.states;
    EXPECT_EQ(this->Refuse("x{" + std::to_string(most) + '}' + element.text), kAccepted) << element.text;
    EXPECT_EQ(this->Refuse("x{" + std::to_string(most + 1) + '}' + element.text), kTooLarge) << element.text;
  }
  const std::string fits = "x{" + std::to_string(kMaxRepeatsOfX - statesOfAll) + '}' + all;
  const std::string exceeds = "x{" + std::to_string(kMaxRepeatsOfX - statesOfAll + 1) + '}' + all;
  EXPECT_EQ(this->Refuse(fits), kAccepted);
  EXPECT_EQ(this->Refuse(exceeds), kTooLarge);
  EXPECT_EQ(this->RefuseInLibrary(fits), kAccepted);
  EXPECT_EQ(this->RefuseInLibrary(exceeds), kTooLarge);
  EXPECT_EQ(this->Refuse("x{200000}"), kTooLarge);
  EXPECT_EQ(this->Refuse("x{0,50000}"), kTooLarge);
  EXPECT_EQ(this->Refuse("x{1000}{1000}"), kTooLarge);
  EXPECT_EQ(this->Refuse("x{2147483647}"), kTooLarge);
  EXPECT_EQ(this->Refuse("x{0}{2147483647}{2147483647}"), kTooLarge);
}

// The C runtime of Windows treats the superscript two as a digit; a pattern must mean the same in both
// builds.
TYPED_TEST(WildcardRefusalsTest, TakesDigitsOfAsciiAlone) { EXPECT_EQ(this->Refuse("a{\xB2}"), kBadBrace); }

// The first error that the library encounters is reported.
TYPED_TEST(WildcardRefusalsTest, ReportsTheFirstOfSeveralErrors) {
  EXPECT_EQ(this->Refuse("x{200000}a{"), kTooLarge);
  EXPECT_EQ(this->Refuse("a{x{200000}"), kBadBrace);
  EXPECT_EQ(this->Refuse("x{200000"), kOpenBrace);
  EXPECT_EQ(this->Refuse("x{200000,1}"), kTooLarge);
  EXPECT_EQ(this->Refuse("x{90000}a{1000}{20,1}"), kTooLarge);
  EXPECT_EQ(this->Refuse("x{90000}a{1000}{2,1}"), kBadBrace);
}

// The library stores 32 bits of a number, including the sign.
TYPED_TEST(WildcardRefusalsTest, LetsLargeNumbersRunOverAsTheLibraryDoes) {
  EXPECT_EQ(this->Find("a{4294967298}", "aaaaaaa"), (LineMatches{{0, 2}, {2, 2}, {4, 2}}));
  EXPECT_EQ(this->Find("a{1,4294967298}", "aaa"), (LineMatches{{0, 2}, {2, 1}}));
  EXPECT_EQ(this->Find("a{18446744073709551618}", "aaaa"), (LineMatches{{0, 2}, {2, 2}}));
  EXPECT_EQ(this->Find("a{2147483648}", "aaa"), (LineMatches{{0, 0}}));
  EXPECT_EQ(this->Find("a{2147483648,}", "aaa"), (LineMatches{{0, 3}, {3, 0}}));
  EXPECT_EQ(this->Find("a{4294967295,2}", "aaaa"), (LineMatches{{0, 3}, {3, 1}, {4, 0}}));
  EXPECT_EQ(this->Refuse("a{4294967295,4294967294}"), kBadBrace);
}

// A script may pass a find text of this length. The library's compiler would overflow the stack.
TYPED_TEST(WildcardRefusalsTest, JudgesLongTextsWithinAThreadsStack) {
  Refusal most, tooMany, questionMarks, repeats, empties, digits, open, commas;
  std::thread([&] {
    most = this->Refuse(Repeat("a", 99996));
    tooMany = this->Refuse(Repeat("a", 99997));
    questionMarks = this->Refuse(Repeat("?", 100000));
    repeats = this->Refuse(Repeat("a{1}", 25000));
    empties = this->Refuse("a" + Repeat("{0}", 33000));
    digits = this->Refuse("a{" + Repeat("0", 100000) + "2}");
    open = this->Refuse(Repeat("a", 50000) + "{" + Repeat("1", 50000));
    commas = this->Refuse("a{" + Repeat(",", 100000));
  }).join();
  EXPECT_EQ(most, kAccepted);
  EXPECT_EQ(tooMany, kTooLarge);
  EXPECT_EQ(questionMarks, kTooLarge);
  EXPECT_EQ(repeats, kTooLarge);
  EXPECT_EQ(empties, kAccepted);
  EXPECT_EQ(digits, kAccepted);
  EXPECT_EQ(open, kOpenBrace);
  EXPECT_EQ(commas, kBadBrace);
}
