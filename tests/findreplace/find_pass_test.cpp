// A pass of one item over a document, without questions.
#include <gmock/gmock.h>

#include <regex>

#include "findreplace/documents.h"
#include "findreplace/engine/replace_pass.h"
#include "platform/windows_api.h"

using namespace QXFindAndReplace;
using namespace std::string_view_literals;
using testing::SizeIs;

namespace {

enum Case : bool { kWithCase = false, kIgnoreCase = true };

template <typename CharT>
class FindPass : public testing::Test {
 protected:
  void Load(std::string_view text, std::uint32_t block = kUsualBlock<CharT>) {
    document = MakeDocument<CharT>(text, block);
  }
  void Run(std::string_view find, std::string_view replace, bool ignoreCase = false,
           std::uint32_t matching = kMatchPlain) {
    const auto wideFind = In<CharT>(find);
    const auto wideReplace = In<CharT>(replace);
    FindAndReplaceInLines<CharT>(*document, wideFind.c_str(), static_cast<std::uint32_t>(wideFind.size()),
                                 wideReplace.c_str(), static_cast<std::uint32_t>(wideReplace.size()),
                                 ignoreCase, matching, nullptr);
  }
  // Returns the changed text and stores the number of changes in `changes`.
  std::string Replaced(std::string_view text, std::string_view find, std::string_view replace,
                       bool ignoreCase = false, std::uint32_t matching = kMatchPlain) {
    Load(text);
    Run(find, replace, ignoreCase, matching);
    changes = document->changeCount;
    return Written(*document);
  }
  std::string Wildcard(std::string_view text, std::string_view find, std::string_view replace,
                       bool ignoreCase = false) {
    return Replaced(text, find, replace, ignoreCase, kMatchWildcard);
  }

  DocumentPointer<CharT> document;
  std::uint32_t changes = 0;
};
TYPED_TEST_SUITE(FindPass, BothWidths);

}  // namespace

TYPED_TEST(FindPass, MatchesDoNotOverlapAndAreTakenFromTheLeft) {
  EXPECT_EQ(this->Replaced("aaaa", "aa", "b"), "bb");
  EXPECT_EQ(this->changes, 2u);
  EXPECT_EQ(this->Replaced("aaaaa", "aa", "b"), "bba");
  EXPECT_EQ(this->Replaced("abababa", "aba", "x"), "xbx");
}

TYPED_TEST(FindPass, ReplacementIsNotSearchedAgain) {
  EXPECT_EQ(this->Replaced("aaa", "a", "aa"), "aaaaaa");
  EXPECT_EQ(this->changes, 3u);
  EXPECT_EQ(this->Replaced("aabb", "ab", "b"), "abb");
}

TYPED_TEST(FindPass, AllLinesAreGoneThroughFromTheirBeginning) {
  EXPECT_EQ(this->Replaced("ab\r\nxab\r\n\r\nb\r\nabab", "ab", "-"), "-\r\nx-\r\n\r\nb\r\n--");
  EXPECT_EQ(this->changes, 4u);
}

TYPED_TEST(FindPass, LinesOfSeveralBlocks) {
  for (const std::uint32_t block : {8u, 9u, 10u, 11u, 12u, 13u, 16u, 100u}) {
    this->Load("abxab\nbab\na\nbab\n\nxxxxab\nab", block);
    this->Run("ab", "-");
    EXPECT_EQ(Written(*this->document), "-x-\nb-\na\nb-\n\nxxxx-\n-") << block;
    EXPECT_EQ(this->document->changeCount, 6u);
  }
}

TYPED_TEST(FindPass, NoMatchChangesNothing) {
  EXPECT_EQ(this->Replaced("abc\ndef\r\n", "x", "y"), "abc\ndef\n");
  EXPECT_EQ(this->changes, 0u);
  EXPECT_EQ(this->Replaced("", "x", "y"), "");
  EXPECT_EQ(this->changes, 0u);
}

TYPED_TEST(FindPass, TextAcrossLineEndsIsNeverFound) {
  for (const bool ignoreCase : {false, true}) {
    for (const char* find : {"b\nc", "b\r\nc", "bc", "b\n", "\nc", "\n", "\r\n", "\r"}) {
      EXPECT_EQ(this->Replaced("ab\ncd\n", find, "x", ignoreCase), "ab\ncd\n");
      EXPECT_EQ(this->changes, 0u);
      EXPECT_EQ(this->Replaced("ab\r\ncd\r\n", find, "x", ignoreCase), "ab\r\ncd\r\n");
      EXPECT_EQ(this->changes, 0u);
      EXPECT_EQ(this->Replaced("ab\rcd", find, "x", ignoreCase), "abcd");
      EXPECT_EQ(this->changes, 0u);
    }
  }
}

// The beginning of the line is at the end of one block and, carried over, in the next one.
TYPED_TEST(FindPass, TextAcrossABlocksBorderIsFoundOnce) {
  this->Load("xx\naabbcc\n", 8);
  this->Run("bb", "-");
  EXPECT_EQ(Written(*this->document), "xx\naa-cc\n");
  this->Load("xx\naabbcc\n", 8);
  this->Run("aab", "-");
  EXPECT_EQ(Written(*this->document), "xx\n-bcc\n");
  EXPECT_EQ(this->document->changeCount, 1u);
}

TYPED_TEST(FindPass, TextThatOnlyTheBytesOfTwoBlocksGiveIsNotFound) {
  // "ab" is at the end of one block and "cd" at the beginning of the next.
  this->Load("xxxxxxab\ncd", 9);
  this->Run("bcd", "-");
  this->Run("abcd", "-");
  this->Run("b\ncd", "-");
  EXPECT_EQ(this->document->changeCount, 0u);
}

TYPED_TEST(FindPass, IgnoringCase) {
  EXPECT_EQ(this->Replaced("aAxXaXA\nAx", "ax", "-", kIgnoreCase), "aAxX-A\n-");
  EXPECT_EQ(this->Replaced("abABaBAb", "ab", "-", kIgnoreCase), "----");
  EXPECT_EQ(this->changes, 4u);
}

TYPED_TEST(FindPass, ScanIgnoringCaseDoesNotGoBack) {
  EXPECT_EQ(this->Replaced("aaab", "aab", "-", kIgnoreCase), "aaab");
  EXPECT_EQ(this->changes, 0u);
  EXPECT_EQ(this->Replaced("aaab", "aab", "-", kWithCase), "a-");
  EXPECT_EQ(this->Replaced("AAB\nAB", "AB", "-", kIgnoreCase), "AAB\n-") << "a new line is a new scan";
  EXPECT_EQ(this->Replaced("abaab", "ab", "-", kIgnoreCase), "-aab") << "behind a match the scan begins anew";
}

TYPED_TEST(FindPass, ZeroHidesTheRestOfItsLineAlone) {
  EXPECT_EQ(this->Replaced("ab\0ab\nab"sv, "ab", "-"), "-\0ab\n-"sv);
  EXPECT_EQ(this->changes, 2u);
  EXPECT_EQ(this->Replaced("ab\0ab\nab"sv, "AB", "-", kIgnoreCase), "-\0-\n-"sv);
  EXPECT_EQ(this->changes, 3u);
  EXPECT_EQ(this->Replaced("\0ab\n\0\nab\0"sv, "ab", "-"), "\0ab\n\0\n-\0"sv);
}

TYPED_TEST(FindPass, ZeroInAMatchIsText) {
  EXPECT_EQ(this->Replaced("xa\0bx"sv, "a\0b"sv, "-"), "x-x");
  EXPECT_EQ(this->Replaced("xa\0ba\0b"sv, "a\0b"sv, "-"), "x--") << "the walk goes on behind the match";
}

TYPED_TEST(FindPass, EmptyReplacementDeletes) {
  EXPECT_EQ(this->Replaced("abcab\nab\n", "ab", ""), "c\n\n");
  EXPECT_EQ(this->changes, 3u);
}

TYPED_TEST(FindPass, ReplacementIsLiteral) {
  EXPECT_EQ(this->Replaced("abc", "b", "$&\\1\\n$1"), "a$&\\1\\n$1c");
  EXPECT_EQ(this->Wildcard("abc", "b?", "$&\\1$0"), "a$&\\1$0");
}

TYPED_TEST(FindPass, ReplacementOfTheSameTextCounts) {
  EXPECT_EQ(this->Replaced("aba", "a", "a"), "aba");
  EXPECT_EQ(this->changes, 2u);
}

TYPED_TEST(FindPass, LaterPassesSeeTheTextOfTheFile) {
  this->Load("abcd");
  this->Run("b", "d");
  this->Run("d", "x");
  EXPECT_EQ(Written(*this->document), "adcx");
  EXPECT_EQ(this->document->changeCount, 2u);
}

TYPED_TEST(FindPass, MatchInTextThatAnEarlierPassReplacedIsNotFound) {
  for (const char* find : {"b", "bc", "cd", "ab", "abcd"}) {
    this->Load("xabcdx");
    this->Run("bc", "-");
    EXPECT_EQ(DataError([&] { this->Run(find, "!"); }), kPartNotFound) << find;
  }
}

TYPED_TEST(FindPass, RemovedLinesAreNotSearched) {
  for (const std::uint32_t matching : {+kMatchPlain, +kMatchWildcard}) {
    for (const bool ignoreCase : {false, true}) {
      this->Load("x\na\nba\n");
      this->document->ReplaceRange({{0, 0}, {2, 1}}, *MakeLines<TypeParam>("y\nz"));
      this->Run("a", "-", ignoreCase, matching);
      EXPECT_EQ(Written(*this->document), "y\nz-\n");
      EXPECT_EQ(this->document->changeCount, 2u);
    }
  }
}

// --- wildcards

TYPED_TEST(FindPass, Wildcards) {
  EXPECT_EQ(this->Wildcard("xabcx\nabc", "a?c", "-"), "x-x\n-");
  EXPECT_EQ(this->changes, 2u);
  EXPECT_EQ(this->Wildcard("xabcabc\nxa", "a*", "-"), "x-\nx-");
  EXPECT_EQ(this->changes, 2u);
  EXPECT_EQ(this->Wildcard("abc a.c", "a.c", "-"), "abc -");
  EXPECT_EQ(this->Wildcard("xABCabc", "a?c", "-"), "xABC-");
  EXPECT_EQ(this->Wildcard("xABCabc", "a?c", "-", kIgnoreCase), "x--");
  EXPECT_EQ(this->Wildcard("abab", "?", "-"), "----");
}

TYPED_TEST(FindPass, WildcardIgnoringCaseGoesBackUnlikeThePlainScan) {
  EXPECT_EQ(this->Wildcard("aaab", "aab", "-", kIgnoreCase), "a-");
}

TYPED_TEST(FindPass, PatternTakesNoLength) {
  this->Load("abcd");
  const auto find = In<TypeParam>("b?d");
  const auto replace = In<TypeParam>("-");
  FindAndReplaceInLines<TypeParam>(*this->document, find.c_str(), 1, replace.c_str(), 1, false,
                                   kMatchWildcard, nullptr);
  EXPECT_EQ(Written(*this->document), "a-");
}

TYPED_TEST(FindPass, StarAloneFailsOnTheFirstLine) {
  for (const char* text : {"abc", "abc\ndef\n", "\nabc", "\n"}) {
    for (const char* find : {"*", "**"}) {
      this->Load(text);
      EXPECT_EQ(DataError([&] { this->Run(find, "x", kWithCase, kMatchWildcard); }), kPartNotFound);
    }
  }
  EXPECT_EQ(this->Wildcard("", "*", "x"), "") << "without a line there is nothing to fail on";
}

TYPED_TEST(FindPass, EmptyMatchIsRefusedInsideALineToo) {
  this->Load("abc");
  EXPECT_EQ(DataError([&] { this->Run("x{0}", "y", kWithCase, kMatchWildcard); }), kPartNotFound);
  this->Load("abc");
  EXPECT_EQ(DataError([&] { this->Run("x{0}", "", kWithCase, kMatchWildcard); }), kPartNotFound);
}

TYPED_TEST(FindPass, EmptyMatchOfAMeasuredTextIsRefused) {
  const auto text = In<TypeParam>("bc");
  for (const bool ignoreCase : {false, true}) {
    this->Load("abcd");
    EXPECT_EQ(DataError([&] {
                FindAndReplaceInLines<TypeParam>(*this->document, text.c_str(), 0, text.c_str(), 0,
                                                 ignoreCase, kMatchPlain, nullptr);
              }),
              kPartNotFound);
    this->Load("abd\nb\nc");
    FindAndReplaceInLines<TypeParam>(*this->document, text.c_str(), 0, text.c_str(), 0, ignoreCase,
                                     kMatchPlain, nullptr);
    EXPECT_EQ(this->document->changeCount, 0u);
  }
}

TYPED_TEST(FindPass, PatternIsCompiledOnceForADocument) {
  this->Wildcard("abc\nabc\nabc", "a?", "-");
  EXPECT_THAT(this->document->regexCache, SizeIs(1));
}

TYPED_TEST(FindPass, BadPatternIsRefusedWhenTheFirstLineIsSearched) {
  this->Load("abc");
  EXPECT_THROW(this->Run("a{2", "x", kWithCase, kMatchWildcard), std::regex_error);
  EXPECT_EQ(this->Wildcard("", "a{2", "x"), "") << "without a line no pattern is compiled";
  EXPECT_EQ(this->Replaced("xa{2x", "a{2", "-"), "x-x");
}

TYPED_TEST(FindPass, OtherMatchingOptionsAreRefused) {
  for (const std::uint32_t matching : {0u, 3u, 4u, 0xFFFFFFFFu}) {
    for (const char* text : {"abc", ""}) {
      this->Load(text);
      EXPECT_EQ(DataError([&] { this->Run("a", "x", kWithCase, matching); }),
                (Thrown{ERROR_INVALID_PARAMETER, "Unsupported line matching options"}));
    }
  }
}

// --- size

TYPED_TEST(FindPass, ManyMatchesInOneLongLine) {
  constexpr std::uint32_t kMatches = 30000;
  std::string text, expected;
  for (std::uint32_t i = 0; i < kMatches; ++i) {
    text += "ab";
    expected += "xyb";
  }
  this->Load(text, 100000);
  this->Run("a", "xy");
  EXPECT_EQ(this->document->changeCount, kMatches);
  EXPECT_EQ(Written(*this->document), expected);

  this->Load(std::string(kMatches, 'a'), 100000);
  this->Run("A", "", kIgnoreCase);
  EXPECT_EQ(this->document->changeCount, kMatches);
  EXPECT_EQ(Written(*this->document), "");

  this->Load(std::string(kMatches, 'a'), 100000);
  this->Run("?", "b", kWithCase, kMatchWildcard);
  EXPECT_EQ(Written(*this->document), std::string(kMatches, 'b'));
}

TYPED_TEST(FindPass, TwoPassesOfManyMatchesInOneLongLine) {
  constexpr std::uint32_t kMatches = 30000;
  std::string text, expected;
  for (std::uint32_t i = 0; i < kMatches; ++i) {
    text += "ab";
    expected += "BA";
  }
  this->Load(text, 100000);
  this->Run("b", "A");
  this->Run("a", "B");
  EXPECT_EQ(this->document->changeCount, 2 * kMatches);
  EXPECT_EQ(Written(*this->document), expected);
}
