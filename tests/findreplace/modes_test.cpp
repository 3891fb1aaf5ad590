// How the modes apply a find text and a replace text, except for Multiline.
#include "findreplace/engine/modes.h"

#include <gmock/gmock.h>

#include <regex>

#include "findreplace/applied.h"
#include "platform/windows_api.h"

using namespace QXFindAndReplace;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

namespace {

const Thrown kTooShort = {87, "Find match are too short. Atleast one character need"};
const Thrown kTooFew = {87, "To few find items. Atleast one must be set"};
const Thrown kDoNotMatch = {87, "Find and Replace item do not match"};

template <typename CharT>
class Modes : public AppliedModes<CharT> {};
TYPED_TEST_SUITE(Modes, BothWidths);

}  // namespace

// --- One

TYPED_TEST(Modes, OneReplacesTheFirstLineByTheFirstLine) {
  EXPECT_EQ(this->Apply(ModeOne, "xaby\nab", "ab", "-"), "x-y\n-");
  EXPECT_EQ(this->changes, 2u);
  EXPECT_EQ(this->Apply(ModeOne, "a b", "a\nb", "-"), "- b");
  EXPECT_EQ(this->Apply(ModeOne, "a b", "a\r\n", "-\r\nx"), "- b");
  EXPECT_EQ(this->Apply(ModeOne, "a b", "a", "-\nx"), "- b");
  EXPECT_EQ(this->Apply(ModeOne, "a b", "a\rb", "-\rx"), "- b");
}

TYPED_TEST(Modes, OneWithAnEmptyReplaceTextDeletes) {
  EXPECT_EQ(this->Apply(ModeOne, "abab", "a", ""), "bb");
  EXPECT_EQ(this->Apply(ModeOne, "abab", "a", "\nx"), "bb");
}

TYPED_TEST(Modes, OneWithoutAFindTextButWithAReplaceTextDoesNothing) {
  EXPECT_EQ(this->Apply(ModeOne, "abc", "", "x"), "abc");
  EXPECT_EQ(this->changes, 0u);
  EXPECT_EQ(this->Apply(ModeOne, "abc", "", "\n"), "abc");
  EXPECT_EQ(this->changes, 0u);
}

TYPED_TEST(Modes, OneWithoutCharactersToFindIsRefused) {
  EXPECT_EQ(this->ErrorOf(ModeOne, "abc", "", ""), kTooShort);
  EXPECT_EQ(this->ErrorOf(ModeOne, "abc", "\nb", "x"), kTooShort);
  EXPECT_EQ(this->ErrorOf(ModeOne, "abc", "\n", ""), kTooShort);
  EXPECT_EQ(this->ErrorOf(ModeOne, "abc", "\r", "x"), kTooShort);
  EXPECT_EQ(this->ErrorOf(ModeOne | Wildcard, "abc", "\na*", "x"), kTooShort);
  EXPECT_EQ(this->ErrorOf(ModeOne, "", "", ""), kTooShort) << "on an empty document too";
}

TYPED_TEST(Modes, OneHonoursCaseAndWildcards) {
  EXPECT_EQ(this->Apply(ModeOne, "aA", "A", "-"), "a-");
  EXPECT_EQ(this->Apply(ModeOne | IgnoreCase, "aA", "A", "-"), "--");
  EXPECT_EQ(this->Apply(ModeOne, "abc a?c", "a?c", "-"), "abc -");
  EXPECT_EQ(this->Apply(ModeOne | Wildcard, "abc a?c", "a?c", "-"), "- -");
  EXPECT_EQ(this->Apply(ModeOne | Wildcard, "abcx", "a?c\nx", "-"), "-x") << "the first line alone";
  EXPECT_EQ(this->Apply(ModeOne | Wildcard, "ABC", "a?c", "-"), "ABC");
  EXPECT_EQ(this->Apply(ModeOne | Wildcard | IgnoreCase, "ABC", "a?c", "-"), "-");
}

TYPED_TEST(Modes, RegExpFlagIsNeverRead) {
  EXPECT_EQ(this->Apply(ModeOne | RegExp, "abc a.c", "a.c", "-"), "abc -");
  EXPECT_EQ(this->Apply(ModeMany | RegExp, "abc a.c", "a.c", "-"), "abc -");
}

TYPED_TEST(Modes, StarAloneFailsWithTheLineAlreadyReplaced) {
  EXPECT_EQ(this->ErrorOf(ModeOne | Wildcard, "abc\n", "*", "x"), kPartNotFound);
  EXPECT_EQ(this->ErrorOf(ModeMany | Wildcard, "abc\n", "*", "x"), kPartNotFound);
  EXPECT_EQ(this->ErrorOf(ModeManySame | Wildcard, "\n", "*", "x"), kPartNotFound);
}

TYPED_TEST(Modes, BadPatternIsRefusedOnceThereIsALine) {
  for (const std::uint32_t mode : {ModeOne, ModeMany, ModeManySame}) {
    EXPECT_THROW(this->Apply(mode | Wildcard, "abc", "a{2", "x"), std::regex_error);
    EXPECT_EQ(this->Apply(mode | Wildcard, "", "a{2", "x"), "");
    EXPECT_EQ(this->changes, 0u);
    EXPECT_EQ(this->Apply(mode, "a{2", "a{2", "x"), "x");
  }
}

// --- Many

TYPED_TEST(Modes, ManyPairsTheListsByPosition) {
  EXPECT_EQ(this->Apply(ModeMany, "abc\ncab", "a\nb\nc", "1\n2\n3"), "123\n312");
  EXPECT_EQ(this->changes, 6u);
  EXPECT_EQ(this->Apply(ModeMany, "abc", "a\r\nc\r\n", "1\n\n"), "1b");
}

TYPED_TEST(Modes, ManySeesTheTextOfTheFileInEachPass) {
  EXPECT_EQ(this->Apply(ModeMany, "ab", "a\nb", "b\nc"), "bc");
  EXPECT_EQ(this->changes, 2u);
}

TYPED_TEST(Modes, ManyFailsWhereAnItemMatchesTextThatAnEarlierOneReplaced) {
  EXPECT_EQ(this->ErrorOf(ModeMany, "abc", "ab\nbc", "x\ny"), kPartNotFound);
  EXPECT_EQ(this->ErrorOf(ModeMany, "abc", "bc\nab", "x\ny"), kPartNotFound) << "it ends in replaced text";
  EXPECT_EQ(this->ErrorOf(ModeMany, "abc", "b\nabc", "b\ny"), kPartNotFound);
  EXPECT_EQ(this->ErrorOf(ModeMany, "abc", "b\nb", "x\ny"), kPartNotFound);
}

TYPED_TEST(Modes, ManyRefusesListsThatDoNotFit) {
  EXPECT_EQ(this->ErrorOf(ModeMany, "abc", "", ""), kTooFew);
  EXPECT_EQ(this->ErrorOf(ModeMany, "abc", "", "x"), kTooFew);
  EXPECT_EQ(this->ErrorOf(ModeMany, "abc", "a\nb\nc", "1\n2"), kDoNotMatch);
  EXPECT_EQ(this->ErrorOf(ModeMany, "abc", "a\nb", "1\n2\n3"), kDoNotMatch);
  EXPECT_EQ(this->ErrorOf(ModeMany, "abc", "a", ""), kDoNotMatch);
  EXPECT_EQ(this->ErrorOf(ModeMany, "", "a\nb", "1"), kDoNotMatch);
}

TYPED_TEST(Modes, LineBreakAtTheEndOfAListIsNoItem) {
  EXPECT_EQ(this->Apply(ModeMany, "ab", "a\nb\n", "1\n2"), "12");
  EXPECT_EQ(this->Apply(ModeMany, "ab", "a\nb", "1\n2\r\n"), "12");
  EXPECT_EQ(this->ErrorOf(ModeMany, "ab", "a\nb\n\n", "1\n2\n"), kDoNotMatch);
}

TYPED_TEST(Modes, EmptyFindItemNeverMatches) {
  for (const std::uint32_t flags : {0u, +IgnoreCase}) {
    EXPECT_EQ(this->Apply(ModeMany | flags, "ab\n\nb\n", "a\n\nb", "1\n2\n3"), "13\n\n3\n");
    EXPECT_EQ(this->changes, 3u);
    EXPECT_EQ(this->Apply(ModeManySame | flags, "ab\n\nb\n", "\nb\n", "-"), "a-\n\n-\n");
    EXPECT_EQ(this->Apply(ModeMany | flags, "\nb\n", "\nb", "1\n2"), "\n2\n");
    EXPECT_EQ(this->Apply(ModeManySame | flags, "\n\n", "\n", "-"), "\n\n");
  }
}

TYPED_TEST(Modes, EmptyReplaceItemDeletes) {
  EXPECT_EQ(this->Apply(ModeMany, "abc", "a\nb\nc", "1\n\n3"), "13");
}

// The pattern extends to the end of the list, and no line contains its line breaks.
TYPED_TEST(Modes, OfAListWithWildcardsOnlyTheLastItemCanMatch) {
  EXPECT_EQ(this->Apply(ModeMany | Wildcard, "ax\nbx\ncx\n", "a?\nb?\nc?", "1\n2\n3"), "ax\nbx\n3\n");
  EXPECT_EQ(this->changes, 1u);
  EXPECT_EQ(this->Apply(ModeManySame | Wildcard, "ax\nbx\ncx\n", "a?\nb?\nc?", "-"), "ax\nbx\n-\n");
  EXPECT_EQ(this->Apply(ModeMany | Wildcard, "ab", "a\nb", "1\n2"), "a2");
  EXPECT_EQ(this->Apply(ModeManySame | Wildcard, "ab\nb\n", "a*\nb*", "-"), "a-\n-\n");
}

TYPED_TEST(Modes, OfAListWithWildcardsAndALineBreakAtItsEndNoItemMatches) {
  EXPECT_EQ(this->Apply(ModeMany | Wildcard, "ax\nbx\n", "a?\nb?\n", "1\n2"), "ax\nbx\n");
  EXPECT_EQ(this->Apply(ModeManySame | Wildcard, "ax\nbx\n", "b?\r\n", "-"), "ax\nbx\n");
}

TYPED_TEST(Modes, OfAListOnlyTheItemThatCanMatchIsKeptAsAPattern) {
  const auto document = MakeDocument<TypeParam>("ab\nab\n");
  FindAndReplaceOptions options;
  options.flags = ModeManySame | Wildcard;
  this->ApplyTo(*document, options, "a?x\nb", "-");
  ASSERT_THAT(document->regexCache, SizeIs(1));
  EXPECT_EQ(Narrow<TypeParam>(document->regexCache[0].text), "b");
}

// --- ManySame

TYPED_TEST(Modes, ManySameReplacesEveryItemByTheFirstReplaceLine) {
  EXPECT_EQ(this->Apply(ModeManySame, "abc\ncab", "a\nc", "-"), "-b-\n--b");
  EXPECT_EQ(this->changes, 4u);
  EXPECT_EQ(this->Apply(ModeManySame, "abc", "a\nc", "-\nx\ny"), "-b-");
}

TYPED_TEST(Modes, ManySameWithAnEmptyReplaceTextDeletesEveryOccurrenceOfEveryItem) {
  EXPECT_EQ(this->Apply(ModeManySame, "abcabc\nbb", "a\nbb\nc", ""), "bb\n");
  EXPECT_EQ(this->changes, 5u);
}

TYPED_TEST(Modes, ManySameRefusesAnEmptyList) {
  EXPECT_EQ(this->ErrorOf(ModeManySame, "abc", "", "x"), kTooFew);
  EXPECT_EQ(this->ErrorOf(ModeManySame, "", "", ""), kTooFew);
}

TYPED_TEST(Modes, ManySameFailsOnTextThatAnEarlierItemReplaced) {
  EXPECT_EQ(this->ErrorOf(ModeManySame, "abc", "ab\nbc", "x"), kPartNotFound);
}

// --- choosing the mode

TYPED_TEST(Modes, WithoutAModeNothingIsDone) {
  for (const std::uint32_t flags : {0u, +IgnoreCase, Wildcard | ReplaceAll, 0xFFFFFFF0u}) {
    EXPECT_EQ(this->Apply(flags, "abc", "a", "x"), "abc");
    EXPECT_EQ(this->changes, 0u);
    EXPECT_EQ(this->Apply(flags, "abc", "", ""), "abc");
  }
}

TYPED_TEST(Modes, FirstModeInTheOrderMultilineManyManySameOneIsRun) {
  const auto result = [this](std::uint32_t modes) {
    return this->Apply(modes, "a\nb\nc b", "a\nb", "x\ny\n");
  };
  EXPECT_EQ(result(ModeOne), "x\nb\nc b");
  EXPECT_EQ(result(ModeManySame), "x\nx\nc x");
  EXPECT_EQ(result(ModeMany), "x\ny\nc y");
  EXPECT_EQ(result(ModeMultiline), "x\ny\nc b");
  EXPECT_EQ(result(ModeOne | ModeManySame), "x\nx\nc x");
  EXPECT_EQ(result(ModeOne | ModeManySame | ModeMany), "x\ny\nc y");
  EXPECT_EQ(result(ModeOne | ModeMany), "x\ny\nc y");
  EXPECT_EQ(result(ModeOne | ModeManySame | ModeMany | ModeMultiline), "x\ny\nc b");
  EXPECT_EQ(result(ModeOne | ModeMultiline), "x\ny\nc b");
}

TYPED_TEST(Modes, ChangesOfTheDocumentAreReturned) {
  const auto document = MakeDocument<TypeParam>("abc");
  document->changeCount = 5;
  FindAndReplaceOptions options;
  options.flags = ModeOne;
  EXPECT_EQ(this->ApplyTo(*document, options, "a", "x"), 6u);
  FindAndReplaceOptions others;
  others.flags = ModeOne;
  EXPECT_EQ(this->ApplyTo(*document, others, "", "x"), 6u);
}

// --- the texts are split once

TYPED_TEST(Modes, SplitTextsAreKeptForTheEncodingOfTheDocument) {
  using Pointer = std::shared_ptr<Lines> FindAndReplaceOptions::*;
  struct Case {
    WQDR::TextFormat format;
    Pointer find;
    Pointer replace;
  };
  using Options = FindAndReplaceOptions;
  const std::vector<Case> narrow = {
      {WQDR::TextFormat::Ansi, &Options::findLinesAnsi, &Options::replaceLinesAnsi},
      {WQDR::TextFormat::Utf8, &Options::findLinesUtf8, &Options::replaceLinesUtf8}};
  const std::vector<Case> wide = {
      {WQDR::TextFormat::Utf16, &Options::findLinesWide, &Options::replaceLinesWide}};
  const std::vector<Pointer> all = {&Options::findLinesAnsi,    &Options::findLinesUtf8,
                                    &Options::findLinesWide,    &Options::replaceLinesAnsi,
                                    &Options::replaceLinesUtf8, &Options::replaceLinesWide};
  for (const Case& one : sizeof(TypeParam) == 1 ? narrow : wide) {
    for (const std::uint32_t mode : {ModeOne, ModeMany, ModeManySame}) {
      const auto document = MakeDocument<TypeParam>("abc");
      document->format = one.format;
      Options options;
      options.flags = mode;
      this->ApplyTo(*document, options, "a\nb", "1\n2");
      for (const Pointer pointer : all) {
        EXPECT_EQ(options.*pointer != nullptr, pointer == one.find || pointer == one.replace);
      }
      ASSERT_TRUE(options.*one.find);
      EXPECT_THAT((options.*one.find)->items, SizeIs(2));
      const std::shared_ptr<Lines> kept = options.*one.find;
      const auto next = MakeDocument<TypeParam>("abc");
      next->format = one.format;
      this->ApplyTo(*next, options, "c", "3");
      EXPECT_EQ(options.*one.find, kept) << "not split again";
    }
  }
}

TYPED_TEST(Modes, KeptLinesAreUsedInsteadOfTheText) {
  FindAndReplaceOptions options;
  options.flags = ModeMany;
  const auto first = MakeDocument<TypeParam>("abc");
  this->ApplyTo(*first, options, "a\nb", "1\n2");
  const auto second = MakeDocument<TypeParam>("abc");
  this->ApplyTo(*second, options, "c", "3");
  EXPECT_EQ(Written(*second), "12c");
}

// --- questions

TYPED_TEST(Modes, ItemsOfAListAreAskedForWithTheirOwnReplacement) {
  ScriptedCallback<TypeParam> callback({ConfirmResult::Replace, ConfirmResult::Skip, ConfirmResult::Replace});
  EXPECT_EQ(this->Apply(ModeMany, "ab\nb", "a\nb", "one\ntwo!", &callback), "oneb\ntwo!");
  ASSERT_THAT(callback.questions, SizeIs(3));
  EXPECT_EQ(callback.questions[0].replacement, "one");
  EXPECT_EQ(callback.questions[0].replacementLength, 3u);
  EXPECT_EQ(callback.questions[1].replacement, "two!");
  EXPECT_EQ(callback.questions[1].replacementLength, 4u);
  EXPECT_THAT(callback.Matches(), ElementsAre("a", "b", "b"));
}

TYPED_TEST(Modes, ReplaceAllHoldsForTheItemsThatFollow) {
  ScriptedCallback<TypeParam> callback({ConfirmResult::ReplaceAll}, ConfirmResult::Cancel);
  EXPECT_EQ(this->Apply(ModeMany, "aba", "a\nb", "1\n2", &callback), "121");
  EXPECT_THAT(callback.questions, SizeIs(1));
  ScriptedCallback<TypeParam> again({ConfirmResult::ReplaceAll}, ConfirmResult::Cancel);
  EXPECT_EQ(this->Apply(ModeManySame, "aba", "a\nb", "-", &again), "---");
  EXPECT_THAT(again.questions, SizeIs(1));
}

TYPED_TEST(Modes, CancelEndsTheListToo) {
  for (const std::uint32_t mode : {ModeOne, ModeMany, ModeManySame}) {
    ScriptedCallback<TypeParam> callback({ConfirmResult::Cancel});
    EXPECT_EQ(this->ErrorOf(mode, "aba", "a\nb", "1\n2", &callback),
              (Thrown{ERROR_CANCELLED, "Operation cancelled by user"}));
    EXPECT_THAT(callback.questions, SizeIs(1));
  }
}

TYPED_TEST(Modes, FirstReplaceLineIsOfferedAlone) {
  ScriptedCallback<TypeParam> callback({});
  this->Apply(ModeOne, "a", "a\nb", "x\ny", &callback);
  this->Apply(ModeManySame, "a", "a\nb", "x\ny", &callback);
  this->Apply(ModeManySame, "a", "a\nb", "", &callback);
  ASSERT_THAT(callback.questions, SizeIs(3));
  EXPECT_EQ(callback.questions[0].replacement, "x");
  EXPECT_EQ(callback.questions[1].replacement, "x");
  EXPECT_EQ(callback.questions[2].replacement, "");
  EXPECT_EQ(callback.questions[2].replacementLength, 0u);
}

TYPED_TEST(Modes, RefusedTextsAskNothing) {
  ScriptedCallback<TypeParam> callback({});
  EXPECT_EQ(this->ErrorOf(ModeOne, "a", "\n", "x", &callback), kTooShort);
  EXPECT_EQ(this->ErrorOf(ModeMany, "a", "a\nb", "x", &callback), kDoNotMatch);
  EXPECT_THAT(callback.questions, IsEmpty());
}
