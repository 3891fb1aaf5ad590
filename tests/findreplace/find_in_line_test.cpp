// Searching a text in a line: plain, ignoring case, and with wildcards.
#include <gmock/gmock.h>

#include <optional>
#include <regex>

#include "findreplace/documents.h"
#include "findreplace/engine/item_search.h"
#include "findreplace/engine/line_match.h"
#include "findreplace/engine/pattern_search.h"

using namespace QXFindAndReplace;
using namespace std::string_view_literals;
using testing::SizeIs;

namespace {

using Found = std::optional<RangeNumbers>;

template <typename CharT>
class FindInLineTest : public testing::Test {
 protected:
  void Load(std::string_view text) { document = MakeDocument<CharT>(text); }

  // Searches line 0 by default.
  Found Find(std::string_view text, std::uint32_t column, bool ignoreCase, std::uint32_t line = 0) {
    const auto wide = In<CharT>(text);
    LineMatch match;
    const bool found = FindInLine(*document, match, line, column, wide.c_str(),
                                  static_cast<std::uint32_t>(wide.size()), ignoreCase);
    EXPECT_EQ(found, match.found);
    return found ? Found(NumbersOf(match.range)) : std::nullopt;
  }
  Found FindPattern(std::string_view text, std::uint32_t column = 0, bool ignoreCase = false,
                    std::uint32_t line = 0) {
    const auto wide = In<CharT>(text);
    LineMatch match;
    const bool found = FindRegexInLine(*document, match, line, column, wide.c_str(), ignoreCase);
    EXPECT_EQ(found, match.found);
    return found ? Found(NumbersOf(match.range)) : std::nullopt;
  }
  // A match in line 0 between these columns.
  static Found At(std::uint32_t start, std::uint32_t end) { return RangeNumbers{0, start, 0, end}; }

  // Searches a text in a document that consists of this line.
  Found Case(std::string_view line, std::string_view text, std::uint32_t column = 0) {
    Load(line);
    return Find(text, column, false);
  }
  Found NoCase(std::string_view line, std::string_view text, std::uint32_t column = 0) {
    Load(line);
    return Find(text, column, true);
  }
  Found Pattern(std::string_view line, std::string_view text, std::uint32_t column = 0) {
    Load(line);
    return FindPattern(text, column);
  }

  static constexpr Found kNone = std::nullopt;
  DocumentPointer<CharT> document;
};
TYPED_TEST_SUITE(FindInLineTest, BothWidths);

}  // namespace

// --- plain

TYPED_TEST(FindInLineTest, TheFirstPlaceFromTheColumnOnIsFound) {
  for (const bool ignoreCase : {false, true}) {
    this->Load("abcabc\nxabc\n");
    EXPECT_EQ(this->Find("abc", 0, ignoreCase), this->At(0, 3));
    EXPECT_EQ(this->Find("abc", 1, ignoreCase), this->At(3, 6));
    EXPECT_EQ(this->Find("abc", 3, ignoreCase), this->At(3, 6));
    EXPECT_EQ(this->Find("abc", 4, ignoreCase), this->kNone);
    EXPECT_EQ(this->Find("abc", 6, ignoreCase), this->kNone);
    EXPECT_EQ(this->Find("abc", 7, ignoreCase), this->kNone);
    EXPECT_EQ(this->Find("abc", 0, ignoreCase, 1), (RangeNumbers{1, 1, 1, 4}));
    EXPECT_EQ(this->Find("c", 0, ignoreCase), this->At(2, 3));
    EXPECT_EQ(this->Find("abcabc", 0, ignoreCase), this->At(0, 6));
    EXPECT_EQ(this->Find("abcabcx", 0, ignoreCase), this->kNone);
  }
}

TYPED_TEST(FindInLineTest, EmptyLineHoldsNothing) {
  for (const bool ignoreCase : {false, true}) {
    this->Load("\na\n");
    EXPECT_EQ(this->Find("a", 0, ignoreCase), this->kNone);
  }
}

TYPED_TEST(FindInLineTest, MatchNeverReachesIntoTheNextLine) {
  for (const bool ignoreCase : {false, true}) {
    for (const char* text : {"ab\ncd", "ab\r\ncd", "ab\rcd"}) {
      this->Load(text);
      EXPECT_EQ(this->Find("bc", 0, ignoreCase), this->kNone);
      EXPECT_EQ(this->Find("b\nc", 0, ignoreCase), this->kNone);
      EXPECT_EQ(this->Find("b\r\nc", 0, ignoreCase), this->kNone);
      EXPECT_EQ(this->Find("b\rc", 0, ignoreCase), this->kNone);
      EXPECT_EQ(this->Find("b\n", 0, ignoreCase), this->kNone);
      EXPECT_EQ(this->Find("b\r", 0, ignoreCase), this->kNone);
    }
  }
}

TYPED_TEST(FindInLineTest, EveryCharacterCountsWithCase) {
  EXPECT_EQ(this->Case("xAbC", "abc"), this->kNone);
  EXPECT_EQ(this->Case("xAbCabc", "abc"), this->At(4, 7));
}

TYPED_TEST(FindInLineTest, RemovedLineHasNoMatch) {
  this->Load("a\nabc\na\n");
  this->document->lines[1].removed = 1;
  EXPECT_EQ(this->Find("abc", 0, false, 1), this->kNone);
  EXPECT_EQ(this->Find("abc", 0, true, 1), this->kNone);
  EXPECT_EQ(this->FindPattern("a*", 0, false, 1), this->kNone);
}

TYPED_TEST(FindInLineTest, TextOfTheFileIsSearchedAndNotWhatReplacedIt) {
  this->Load("abc");
  const auto text = In<TypeParam>("xyz");
  this->document->ReplaceInLine(0, 0, 3, text.data(), 3);
  for (const bool ignoreCase : {false, true}) {
    EXPECT_EQ(this->Find("abc", 0, ignoreCase), this->At(0, 3));
    EXPECT_EQ(this->Find("xyz", 0, ignoreCase), this->kNone);
  }
  EXPECT_EQ(this->FindPattern("a?c"), this->At(0, 3));
}

TYPED_TEST(FindInLineTest, ZeroHidesTheRestOfTheLineFromTheSearchWithCase) {
  EXPECT_EQ(this->Case("ab\0cd"sv, "cd"), this->kNone);
  EXPECT_EQ(this->Case("ab\0cd"sv, "ab"), this->At(0, 2));
  EXPECT_EQ(this->Case("\0ab"sv, "ab"), this->kNone);
  EXPECT_EQ(this->Case("ab\0cd"sv, "cd", 2), this->kNone);
  EXPECT_EQ(this->Case("ab\0cd"sv, "cd", 3), this->At(3, 5)) << "the walk begins behind the zero";
  this->Load("ab\0cd\ncd"sv);
  EXPECT_EQ(this->Find("cd", 0, false, 1), (RangeNumbers{1, 0, 1, 2})) << "other lines are not hidden";
}

TYPED_TEST(FindInLineTest, ZeroHidesNothingFromTheSearchIgnoringCase) {
  EXPECT_EQ(this->NoCase("ab\0cd"sv, "CD"), this->At(3, 5));
  EXPECT_EQ(this->NoCase("\0\0ab"sv, "ab"), this->At(2, 4));
}

TYPED_TEST(FindInLineTest, TextOfAGivenLengthMayHoldAZero) {
  EXPECT_EQ(this->Case("xab\0cd"sv, "b\0c"sv), this->At(2, 5));
  EXPECT_EQ(this->Case("xab\0cd"sv, "\0c"sv), this->kNone) << "the walk stops at the zero";
  EXPECT_EQ(this->NoCase("xab\0cd"sv, "\0C"sv), this->At(3, 5));
}

TYPED_TEST(FindInLineTest, LengthOfZeroMeasuresTheTextAndFindsAnEmptyMatch) {
  const auto text = In<TypeParam>("bc");
  for (const bool ignoreCase : {false, true}) {
    this->Load("abcd");
    LineMatch match;
    ASSERT_TRUE(FindInLine(*this->document, match, 0, 0, text.c_str(), 0, ignoreCase));
    EXPECT_EQ(NumbersOf(match.range), (RangeNumbers{0, 1, 0, 1}));
    this->Load("abd");
    EXPECT_FALSE(FindInLine(*this->document, match, 0, 0, text.c_str(), 0, ignoreCase));
    EXPECT_FALSE(match.found);
  }
}

// The search with case stops at a zero before it compares the text.
TYPED_TEST(FindInLineTest, EmptyTextIsFoundAtOnceButWithCaseNotBeforeAZero) {
  EXPECT_EQ(this->Case("ab", ""), this->At(0, 0));
  EXPECT_EQ(this->Case("ab", "", 1), this->At(1, 1));
  EXPECT_EQ(this->Case("\0ab"sv, ""), this->kNone);
  EXPECT_EQ(this->Case("a\0b"sv, ""), this->At(0, 0));
  EXPECT_EQ(this->Case("a\0b"sv, "", 1), this->kNone);
  EXPECT_EQ(this->Case("a\0b"sv, "", 2), this->At(2, 2));
  EXPECT_EQ(this->NoCase("\0ab"sv, ""), this->At(0, 0));
  EXPECT_EQ(this->NoCase("a\0b"sv, "", 1), this->At(1, 1));
}

TYPED_TEST(FindInLineTest, EmptyItemOfAListMeansTheRestOfTheListAndIsInNoLine) {
  const auto lines = MakeLines<TypeParam>("\nab\n");
  ASSERT_EQ(lines->items[0].length, 0u);
  for (const bool ignoreCase : {false, true}) {
    this->Load("\nab\n");
    for (const std::uint32_t line : {0u, 1u}) {
      LineMatch match;
      EXPECT_FALSE(
          FindInLine(*this->document, match, line, 0, TextOf<TypeParam>(lines->items[0]), 0, ignoreCase));
    }
  }
}

// --- ignoring case

TYPED_TEST(FindInLineTest, LettersOfBothCasesAreEqual) {
  EXPECT_EQ(this->NoCase("xAbCx", "aBc"), this->At(1, 4));
  EXPECT_EQ(this->NoCase("abcdefghijklmnopqrstuvwxyz", "ABCDEFGHIJKLMNOPQRSTUVWXYZ"), this->At(0, 26));
  EXPECT_EQ(this->NoCase("ABCDEFGHIJKLMNOPQRSTUVWXYZ", "abcdefghijklmnopqrstuvwxyz"), this->At(0, 26));
}

TYPED_TEST(FindInLineTest, OnlyLettersFromAToZHaveACase) {
  // Compares all pairs of characters: only equal ones and the two cases of a letter match.
  std::string all;
  for (int character = 1; character < 256; ++character) {
    if (character != '\r' && character != '\n') all += static_cast<char>(character);
  }
  for (const char one : all) {
    this->Load(std::string(1, one));
    for (const char other : all) {
      const bool letters = ((one | 0x20) >= 'a' && (one | 0x20) <= 'z' && (one | 0x20) == (other | 0x20));
      const bool equal = one == other || letters;
      ASSERT_EQ(this->Find(std::string(1, other), 0, true).has_value(), equal)
          << static_cast<int>(one) << " " << static_cast<int>(other);
    }
  }
}

TYPED_TEST(FindInLineTest, UmlautsOfBothCasesDiffer) {
  EXPECT_EQ(this->NoCase("\xC4", "\xE4"), this->kNone);
  EXPECT_EQ(this->NoCase("\xE4", "\xC4"), this->kNone);
  EXPECT_EQ(this->NoCase("\xE4", "\xE4"), this->At(0, 1));
}

TEST(FindInLineWide, LettersBeyondTheAlphabetHaveNoCase) {
  // Greek, Cyrillic, full-width letters, the Kelvin sign and the long s.
  constexpr std::pair<WCHAR, WCHAR> kPairs[] = {{0x0391, 0x03B1}, {0x0410, 0x0430}, {0xFF21, 0xFF41},
                                                {W('k'), 0x212A}, {W('s'), 0x017F}, {W('a'), 0x0161},
                                                {0x0141, W('A')}};
  for (const auto& [upper, lower] : kPairs) {
    const WCHAR line[] = {upper, 0};
    const WCHAR text[] = {lower, 0};
    const auto document = MakeDocumentOfBytes<WCHAR>(RawBytes<WCHAR>(WStringView(line)));
    LineMatch match;
    EXPECT_FALSE(FindInLine(*document, match, 0, 0, text, 1, true)) << static_cast<int>(lower);
    EXPECT_TRUE(FindInLine(*document, match, 0, 0, line, 1, true));
  }
}

TEST(FindInLineWide, MatchBeginsWithAWholeUnit) {
  // The line contains the bytes of "a" and "b", one byte off the unit boundaries.
  const WString line = {0x6100, 0x6200, 0x0100};
  const auto document = MakeDocumentOfBytes<WCHAR>(RawBytes<WCHAR>(WStringView(line)));
  const WCHAR text[] = {0x0061, 0x0062, 0};
  LineMatch match;
  for (const bool ignoreCase : {false, true}) {
    EXPECT_FALSE(FindInLine(*document, match, 0, 0, text, 1, ignoreCase));
    EXPECT_FALSE(FindInLine(*document, match, 0, 0, text, 2, ignoreCase));
  }
}

// After a mismatch the scan continues with the next character, without going back to where the failed
// comparison began.
TYPED_TEST(FindInLineTest, ScanIgnoringCaseDoesNotGoBack) {
  EXPECT_EQ(this->NoCase("aaab", "aab"), this->kNone);
  EXPECT_EQ(this->Case("aaab", "aab"), this->At(1, 4));
  EXPECT_EQ(this->NoCase("AAB", "AB"), this->kNone);
  EXPECT_EQ(this->Case("AAB", "AB"), this->At(1, 3));
  EXPECT_EQ(this->NoCase("aaaab", "aab"), this->kNone) << "a a (a) a (b)";
  EXPECT_EQ(this->NoCase("aaaaab", "aab"), this->At(3, 6)) << "a a (a) a a b";
  EXPECT_EQ(this->NoCase("aab", "ab", 1), this->At(1, 3)) << "the scan begins where it is told";
  EXPECT_EQ(this->NoCase("ababac", "abac"), this->kNone);
  EXPECT_EQ(this->NoCase("abxabac", "abac"), this->At(3, 7));
  EXPECT_EQ(this->NoCase("aab\0ab"sv, "ab"), this->At(4, 6));
  EXPECT_EQ(this->NoCase("xab", "ab"), this->At(1, 3));
}

// --- wildcards

TYPED_TEST(FindInLineTest, QuestionMarkIsOneCharacter) {
  EXPECT_EQ(this->Pattern("xabcx", "a?c"), this->At(1, 4));
  EXPECT_EQ(this->Pattern("xacx", "a?c"), this->kNone);
  EXPECT_EQ(this->Pattern("ab", "???"), this->kNone);
  EXPECT_EQ(this->Pattern("abcd", "???"), this->At(0, 3));
}

TYPED_TEST(FindInLineTest, StarIsAsManyCharactersAsCanBe) {
  EXPECT_EQ(this->Pattern("xabcabd", "a*"), this->At(1, 7));
  EXPECT_EQ(this->Pattern("xabcabd", "a*b"), this->At(1, 6));
  EXPECT_EQ(this->Pattern("xabcabd", "a*c"), this->At(1, 4));
  EXPECT_EQ(this->Pattern("xacx", "a*c"), this->At(1, 3));
  EXPECT_EQ(this->Pattern("ab\ncd", "b*"), this->At(1, 2)) << "within the line";
  EXPECT_EQ(this->Pattern("xyxy", "*x"), this->At(0, 3));
}

TYPED_TEST(FindInLineTest, DotsAndOtherSignsAreLiteral) {
  EXPECT_EQ(this->Pattern("abc", "a.c"), this->kNone);
  EXPECT_EQ(this->Pattern("a.c", "a.c"), this->At(0, 3));
  const std::string signs = "\\^.$|()[]+/-";
  EXPECT_EQ(this->Pattern("x" + signs + "x", signs), this->At(1, 13));
  for (const char sign : signs) EXPECT_EQ(this->Pattern("ab", std::string("a") + sign), this->kNone) << sign;
}

TYPED_TEST(FindInLineTest, BracesRepeat) {
  EXPECT_EQ(this->Pattern("xaaax", "a{2}"), this->At(1, 3));
  EXPECT_EQ(this->Pattern("xa{2}x", "a{2}x"), this->kNone);
}

TYPED_TEST(FindInLineTest, PatternMayMatchAnywhereFromTheColumnOn) {
  EXPECT_EQ(this->Pattern("abcabc", "b?", 1), this->At(1, 3));
  EXPECT_EQ(this->Pattern("abcabc", "b?", 2), this->At(4, 6));
  EXPECT_EQ(this->Pattern("abcabc", "b?", 5), this->kNone);
}

TYPED_TEST(FindInLineTest, EmptyMatchOfAPatternCounts) {
  EXPECT_EQ(this->Pattern("\nx", "*"), this->At(0, 0));
  EXPECT_EQ(this->Pattern("abc", "*"), this->At(0, 3));
  EXPECT_EQ(this->Pattern("abc", "*", 3), this->At(3, 3));
  EXPECT_EQ(this->Pattern("abc", "x{0}", 1), this->At(1, 1));
}

TYPED_TEST(FindInLineTest, PatternIgnoresCaseWhenAsked) {
  this->Load("xABCx");
  EXPECT_EQ(this->FindPattern("a?c", 0, false), this->kNone);
  this->Load("xABCx");
  EXPECT_EQ(this->FindPattern("a?c", 0, true), this->At(1, 4));
}

TYPED_TEST(FindInLineTest, ZeroIsACharacterForAPattern) {
  EXPECT_EQ(this->Pattern("a\0c\0e"sv, "c?e"), this->At(2, 5));
  EXPECT_EQ(this->Pattern("a\0c\0e"sv, "*e"), this->At(0, 5));
}

// They are not matched, as by the dot of the standard library's grammar, although they do not end a line
// here.
TEST(FindInLineWide, WildcardsTakeNoLineSeparatorOfUnicode) {
  const WString line = {W('a'), 0x2028, W('b'), W('c'), 0x2029, W('d')};
  const auto document = MakeDocumentOfBytes<WCHAR>(RawBytes<WCHAR>(WStringView(line)));
  ASSERT_EQ(document->GetLineCount(), 1u);
  const auto find = [&](const WCHAR* text) {
    LineMatch match;
    return FindRegexInLine(*document, match, 0, 0, text, false) ? Found(NumbersOf(match.range))
                                                                : std::nullopt;
  };
  EXPECT_EQ(find(W("a?")), std::nullopt);
  EXPECT_EQ(find(W("b*")), (RangeNumbers{0, 2, 0, 4}));
  EXPECT_EQ(find(W("b*d")), std::nullopt);
}

TYPED_TEST(FindInLineTest, PatternIsCompiledOnceAndKeptUnderItsText) {
  this->Load("abc\nabc\n");
  this->FindPattern("a?");
  this->FindPattern("a?", 0, false, 1);
  this->FindPattern("a?", 2);
  ASSERT_THAT(this->document->regexCache, SizeIs(1));
  this->FindPattern("b*");
  this->FindPattern("a?");
  ASSERT_THAT(this->document->regexCache, SizeIs(2));
  EXPECT_EQ(Narrow<TypeParam>(this->document->regexCache[0].text), "a?");
  EXPECT_EQ(Narrow<TypeParam>(this->document->regexCache[1].text), "b*");
}

TYPED_TEST(FindInLineTest, MalformedBracesAreRefusedByTheLibrary) {
  this->Load("abc");
  EXPECT_THROW(this->FindPattern("a{2"), std::regex_error);
  EXPECT_THROW(this->FindPattern("a{3,2}"), std::regex_error);
}
