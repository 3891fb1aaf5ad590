// The form of the Sort Lines dialog: options in, rules, options out.
#include "linesorter/sort_lines_form.h"

#include <gmock/gmock.h>

#include <stdexcept>

namespace WQLineSorter {
namespace {

using testing::ElementsAre;

using Change = std::function<void(SortLinesForm&)>;

// A form for `a.txt` alone, started with these bits.
SortLinesForm FormWith(std::uint32_t bits, const std::function<void(SortLinesOptions&)>& more = {}) {
  SortLinesForm form;
  form.fileCount = 1;
  form.firstName = W("a.txt");
  form.newFileSuffix = W("_new");
  form.options.options = bits;
  if (more) more(form.options);
  StartForm(form);
  return form;
}

// A user's change and what follows from it.
void Edit(SortLinesForm& form, const Change& change) {
  const SortLinesForm before = form;
  change(form);
  FollowChanges(form, before);
}

void ChooseSortBy(SortLinesForm& form, int choice) {
  Edit(form, [choice](SortLinesForm& edited) { edited.sortBy = choice; });
}
void EnterLength(SortLinesForm& form, const WString& text) {
  Edit(form, [&](SortLinesForm& edited) { edited.length = text; });
}
void EnterEndCharacter(SortLinesForm& form, const WString& text) {
  Edit(form, [&](SortLinesForm& edited) { edited.endCharacter = text; });
}
void ClickEndAtWhitespace(SortLinesForm& form) {
  Edit(form, [](SortLinesForm& edited) { edited.endAtWhitespace = !edited.endAtWhitespace; });
}

// Whether length, end character and the whitespace box can be changed.
std::vector<bool> SubstringState(const SortLinesForm& form) {
  return {form.enabled.length, form.enabled.endCharacter, form.enabled.endAtWhitespace};
}
std::vector<bool> ItemState(const SortLinesForm& form) { return {form.enabled.separator, form.enabled.item}; }

std::uint32_t BitsOf(const SortLinesForm& form) { return ReadOptions(form).options; }

constexpr std::uint32_t kDefaultBits = 0x100011;  // line, text, without leading blanks

// The substring choice with nothing in its three fields.
SortLinesForm EmptySubstringForm() {
  SortLinesForm form = FormWith(kDefaultBits);
  ChooseSortBy(form, SortBySubstring);
  return form;
}

// Options in.

TEST(SortLinesForm, DefaultOptionsAreTheEntireLineAsTextIntoANewFile) {
  const SortLinesForm form = FormWith(kDefaultBits);
  EXPECT_EQ(form.sortBy, 0x1);
  EXPECT_EQ(form.sortMethod, 0x10);
  EXPECT_EQ(form.saveAs, 0x1000000);
  EXPECT_TRUE(form.skipLeadingSpace);
  EXPECT_FALSE(form.languageAware || form.ignoreCase || form.naturalNumbers || form.reverse ||
               form.removeDuplicates || form.removeBlank || form.endAtWhitespace);
  EXPECT_EQ(form.keepLinesTop, W("0"));
  EXPECT_EQ(form.keepLinesBottom, W("0"));
  EXPECT_EQ(form.startPosition, W("1"));
  EXPECT_EQ(form.length, W(""));
  EXPECT_EQ(form.endCharacter, W(""));
  EXPECT_EQ(form.separator, W(""));
  EXPECT_EQ(form.item, W("0"));
  EXPECT_EQ(form.dateFormat, W(""));
  EXPECT_EQ(form.targetName, W("a_new.txt"));
}

TEST(SortLinesForm, NumbersAreShownInDecimalAndThePositionOneHigher) {
  const SortLinesForm form = FormWith(0x11, [](SortLinesOptions& options) {
    options.keepLinesTop = 3;
    options.keepLinesBottom = 4294967295;
    options.lineOffset = 11;
    options.lineItem = 7;
  });
  EXPECT_EQ(form.keepLinesTop, W("3"));
  EXPECT_EQ(form.keepLinesBottom, W("4294967295"));
  EXPECT_EQ(form.startPosition, W("12"));
  EXPECT_EQ(form.item, W("7"));
}

TEST(SortLinesForm, LargestOffsetIsShownAsTheLastPosition) {
  const auto positionOf = [](std::uint32_t offset) {
    return FormWith(0x11, [offset](SortLinesOptions& options) { options.lineOffset = offset; }).startPosition;
  };
  EXPECT_EQ(positionOf(4294967294), W("4294967295"));
  EXPECT_EQ(positionOf(4294967295), W("4294967295"));
}

TEST(SortLinesForm, TextWinsAmongSortMethodsThenDateThenNumberAndWithNoneItIsText) {
  EXPECT_EQ(FormWith(0x310).sortMethod, 0x10);
  EXPECT_EQ(FormWith(0x300).sortMethod, 0x200);
  EXPECT_EQ(FormWith(0x200).sortMethod, 0x200);
  EXPECT_EQ(FormWith(0x100).sortMethod, 0x100);
  EXPECT_EQ(FormWith(0).sortMethod, 0x10);
}

TEST(SortLinesForm, NewFileWinsAmongTheWaysToSaveThenTheKeptBackup) {
  EXPECT_EQ(FormWith(0x7000000).saveAs, 0x1000000);
  EXPECT_EQ(FormWith(0x6000000).saveAs, 0x2000000);
  EXPECT_EQ(FormWith(0x4000000).saveAs, 0x4000000);
  EXPECT_EQ(FormWith(0).saveAs, 0x1000000);
}

TEST(SortLinesForm, LineWinsAmongTheKeysThenSubstringAndWithNoneNoneIsMarked) {
  EXPECT_EQ(FormWith(0x7).sortBy, 0x1);
  EXPECT_EQ(FormWith(0x6).sortBy, 0x2);
  EXPECT_EQ(FormWith(0x4).sortBy, 0x4);
  EXPECT_EQ(FormWith(0).sortBy, SortLinesForm::kNoChoice);
}

TEST(SortLinesForm, EachBoxShowsItsBitTheDisabledOneToo) {
  const std::pair<std::uint32_t, bool SortLinesForm::*> expected[] = {
      {0x100000, &SortLinesForm::skipLeadingSpace},
      {0x800, &SortLinesForm::languageAware},
      {0x2000, &SortLinesForm::ignoreCase},
      {0x8000, &SortLinesForm::naturalNumbers},
      {0x1000, &SortLinesForm::reverse},
      {0x20000, &SortLinesForm::removeDuplicates},
      {0x40000, &SortLinesForm::removeBlank},
  };
  for (const auto& [bit, box] : expected) {
    const SortLinesForm form = FormWith(bit);
    for (const auto& [otherBit, otherBox] : expected) {
      EXPECT_EQ(form.*otherBox, otherBit == bit) << std::hex << bit << " " << otherBit;
    }
  }
}

TEST(SortLinesForm, SubstringShowsItsLengthEvenIfThatIsZeroAsIsMeant) {
  EXPECT_EQ(FormWith(0x12).length, W("0"));
  EXPECT_EQ(FormWith(0x12, [](SortLinesOptions& options) { options.subStringLen = 5; }).length, W("5"));
}

TEST(SortLinesForm, StoredLengthThatTheFieldDoesNotTakeIsShownAsTheLargestItDoes) {
  const auto formOf = [](std::uint32_t length) {
    return FormWith(0x12, [length](SortLinesOptions& options) { options.subStringLen = length; });
  };
  EXPECT_EQ(formOf(999999999).length, W("999999999"));
  EXPECT_EQ(formOf(1000000000).length, W("999999999"));
  EXPECT_EQ(formOf(4294967295).length, W("999999999"));
  EXPECT_EQ(ReadOptions(formOf(4294967295)).subStringLen, 999999999u);
}

TEST(SortLinesForm, SubstringShowsTheEndCharacterBesideTheLengthAsIsMeant) {
  const SortLinesForm form = FormWith(0x400012, [](SortLinesOptions& options) {
    options.matchChar = u';';
    options.subStringLen = 4;
  });
  EXPECT_EQ(form.endCharacter, W(";"));
  EXPECT_EQ(form.length, W("4"));
  EXPECT_EQ(form.separator, W(""));
}

TEST(SortLinesForm, SubstringWithoutTheEndCharacterBitShowsNone) {
  EXPECT_EQ(FormWith(0x12, [](SortLinesOptions& options) { options.matchChar = u';'; }).endCharacter, W(""));
}

TEST(SortLinesForm, AnEndCharacterOfZeroIsNone) { EXPECT_EQ(FormWith(0x400012).endCharacter, W("")); }

TEST(SortLinesForm, SubstringToWhitespaceChecksTheBoxAndShowsNoLength) {
  const SortLinesForm form = FormWith(0x200012, [](SortLinesOptions& options) { options.subStringLen = 4; });
  EXPECT_TRUE(form.endAtWhitespace);
  EXPECT_EQ(form.length, W(""));
}

TEST(SortLinesForm, EndCharacterIsShownBesideTheCheckedWhitespaceBoxAsIsMeant) {
  const SortLinesForm form = FormWith(0x600012, [](SortLinesOptions& options) {
    options.matchChar = u';';
    options.subStringLen = 4;
  });
  EXPECT_EQ(form.endCharacter, W(";"));
  EXPECT_TRUE(form.endAtWhitespace);
  EXPECT_EQ(form.length, W(""));
}

TEST(SortLinesForm, TheWhitespaceBitOfAnotherKeyIsNotShown) {
  EXPECT_FALSE(FormWith(0x200011).endAtWhitespace);
  EXPECT_FALSE(FormWith(0x200014).endAtWhitespace);
}

TEST(SortLinesForm, ItemShowsTheSeparatorAndNothingOfTheSubstring) {
  const SortLinesForm form = FormWith(0x400014, [](SortLinesOptions& options) {
    options.matchChar = u',';
    options.subStringLen = 4;
  });
  EXPECT_EQ(form.separator, W(","));
  EXPECT_EQ(form.endCharacter, W(""));
  EXPECT_EQ(form.length, W(""));
}

TEST(SortLinesForm, LineShowsNeitherSeparatorNorSubstring) {
  const SortLinesForm form = FormWith(0x600011, [](SortLinesOptions& options) {
    options.matchChar = u',';
    options.subStringLen = 4;
  });
  EXPECT_EQ(form.separator, W(""));
  EXPECT_EQ(form.endCharacter, W(""));
  EXPECT_EQ(form.length, W(""));
}

void StoreDayFormat(SortLinesOptions& options) { std::copy_n("%d", 3, options.dateFormat); }

TEST(SortLinesForm, DateFormatIsShownForDatesOnly) {
  EXPECT_EQ(FormWith(0x201, StoreDayFormat).dateFormat, W("%d"));
  EXPECT_EQ(FormWith(0x301, StoreDayFormat).dateFormat, W("%d"));
  EXPECT_EQ(FormWith(0x101, StoreDayFormat).dateFormat, W(""));
}

TEST(SortLinesForm, WithMethodTextAStoredFormatIsNotShownAsIsMeant) {
  EXPECT_EQ(FormWith(0x011, StoreDayFormat).dateFormat, W(""));
  EXPECT_EQ(FormWith(0x211, StoreDayFormat).dateFormat, W(""));
}

// Rules.

TEST(SortLinesForm, DateFieldsAreForDatesOnly) {
  SortLinesForm form = FormWith(kDefaultBits);
  EXPECT_FALSE(form.enabled.dateFormat);
  Edit(form, [](SortLinesForm& edited) { edited.sortMethod = SortAsDate; });
  EXPECT_TRUE(form.enabled.dateFormat);
  Edit(form, [](SortLinesForm& edited) { edited.sortMethod = SortAsNumber; });
  EXPECT_FALSE(form.enabled.dateFormat);
  EXPECT_TRUE(FormWith(0x201).enabled.dateFormat);
}

TEST(SortLinesForm, NaturalOrderIsForLanguageAwareAndIgnoreCaseForTheOther) {
  SortLinesForm form = FormWith(kDefaultBits);
  EXPECT_TRUE(form.enabled.ignoreCase);
  EXPECT_FALSE(form.enabled.naturalNumbers);
  Edit(form, [](SortLinesForm& edited) { edited.languageAware = true; });
  EXPECT_FALSE(form.enabled.ignoreCase);
  EXPECT_TRUE(form.enabled.naturalNumbers);
  Edit(form, [](SortLinesForm& edited) { edited.languageAware = false; });
  EXPECT_TRUE(form.enabled.ignoreCase);
  EXPECT_FALSE(form.enabled.naturalNumbers);
  EXPECT_TRUE(FormWith(0x811).enabled.naturalNumbers);
}

TEST(SortLinesForm, GreyedIgnoreCaseStaysChecked) {
  EXPECT_TRUE(FormWith(0x2811).ignoreCase);
  SortLinesForm form = FormWith(0x2011);
  Edit(form, [](SortLinesForm& edited) { edited.languageAware = true; });
  EXPECT_FALSE(form.enabled.ignoreCase);
  EXPECT_TRUE(form.ignoreCase);
  Edit(form, [](SortLinesForm& edited) { edited.languageAware = false; });
  EXPECT_EQ(BitsOf(form), 0x1002011u);
}

TEST(SortLinesForm, DateFormatStaysWhileAnotherMethodIsChosen) {
  SortLinesForm form = FormWith(0x201, StoreDayFormat);
  Edit(form, [](SortLinesForm& edited) { edited.dateFormat = W("%Y"); });
  Edit(form, [](SortLinesForm& edited) { edited.sortMethod = SortAsText; });
  EXPECT_EQ(form.dateFormat, W("%Y"));
  Edit(form, [](SortLinesForm& edited) { edited.sortMethod = SortAsDate; });
  EXPECT_EQ(form.dateFormat, W("%Y"));
  EXPECT_STREQ(ReadOptions(form).dateFormat, "%Y");
}

TEST(SortLinesForm, SeparatorAndItemStayWhileAnotherKeyIsChosen) {
  SortLinesForm form = FormWith(0x14);
  Edit(form, [](SortLinesForm& edited) {
    edited.separator = W(";");
    edited.item = W("3");
  });
  ChooseSortBy(form, SortByLine);
  ChooseSortBy(form, SortByItem);
  EXPECT_EQ(form.separator, W(";"));
  EXPECT_EQ(form.item, W("3"));
  EXPECT_EQ(ReadOptions(form).matchChar, u';');
}

TEST(SortLinesForm, EntireLineDisablesTheFieldsOfTheOtherKeys) {
  const SortLinesForm form = FormWith(kDefaultBits);
  EXPECT_THAT(SubstringState(form), ElementsAre(false, false, false));
  EXPECT_THAT(ItemState(form), ElementsAre(false, false));
}

TEST(SortLinesForm, LineItemEnablesItsFieldsAlone) {
  SortLinesForm form = FormWith(kDefaultBits);
  ChooseSortBy(form, SortByItem);
  EXPECT_THAT(SubstringState(form), ElementsAre(false, false, false));
  EXPECT_THAT(ItemState(form), ElementsAre(true, true));
}

TEST(SortLinesForm, FromLineToSubstringTheItemStaysDisabled) {
  const SortLinesForm form = EmptySubstringForm();
  EXPECT_THAT(SubstringState(form), ElementsAre(true, true, true));
  EXPECT_THAT(ItemState(form), ElementsAre(false, false));
}

TEST(SortLinesForm, FromItemToSubstringSeparatorAndItemStayEnabledAsIsMeant) {
  SortLinesForm form = FormWith(0x14);
  ChooseSortBy(form, SortBySubstring);
  EXPECT_THAT(SubstringState(form), ElementsAre(true, true, true));
  EXPECT_THAT(ItemState(form), ElementsAre(true, true));
  ChooseSortBy(form, SortByLine);
  EXPECT_THAT(ItemState(form), ElementsAre(false, false));
}

TEST(SortLinesForm, StartedWithSubstringSeparatorAndItemAreEnabledAsIsMeant) {
  EXPECT_THAT(ItemState(FormWith(0x12)), ElementsAre(true, true));
}

TEST(SortLinesForm, StartedWithoutAKeyEverythingOfTheKeysIsEnabled) {
  const SortLinesForm form = FormWith(0x10);
  EXPECT_THAT(SubstringState(form), ElementsAre(true, true, true));
  EXPECT_THAT(ItemState(form), ElementsAre(true, true));
}

TEST(SortLinesForm, WithALengthEndCharacterAndBoxAreDisabled) {
  SortLinesForm form = EmptySubstringForm();
  EnterLength(form, W("3"));
  EXPECT_THAT(SubstringState(form), ElementsAre(true, false, false));
  EnterLength(form, W(""));
  EXPECT_THAT(SubstringState(form), ElementsAre(true, true, true));
}

TEST(SortLinesForm, WithAnEndCharacterLengthAndBoxAreDisabled) {
  SortLinesForm form = EmptySubstringForm();
  EnterEndCharacter(form, W(";"));
  EXPECT_THAT(SubstringState(form), ElementsAre(false, true, false));
  EnterEndCharacter(form, W(""));
  EXPECT_THAT(SubstringState(form), ElementsAre(true, true, true));
}

TEST(SortLinesForm, WithTheBoxLengthAndEndCharacterAreDisabled) {
  SortLinesForm form = EmptySubstringForm();
  ClickEndAtWhitespace(form);
  EXPECT_THAT(SubstringState(form), ElementsAre(false, false, true));
  ClickEndAtWhitespace(form);
  EXPECT_THAT(SubstringState(form), ElementsAre(true, true, true));
}

TEST(SortLinesForm, ALengthOfZeroCountsAsFilledAsIsMeant) {
  EXPECT_THAT(SubstringState(FormWith(0x12)), ElementsAre(true, false, false));
}

TEST(SortLinesForm, WithLengthAndEndCharacterFilledNothingChangesAsIsMeant) {
  SortLinesForm form = FormWith(0x400012, [](SortLinesOptions& options) { options.matchChar = u';'; });
  EXPECT_THAT(SubstringState(form), ElementsAre(true, true, true));
  EnterLength(form, W("77"));
  EXPECT_THAT(SubstringState(form), ElementsAre(true, true, true));
  ClickEndAtWhitespace(form);
  EXPECT_THAT(SubstringState(form), ElementsAre(false, false, true));
  ClickEndAtWhitespace(form);
  EXPECT_THAT(SubstringState(form), ElementsAre(false, false, true));
}

TEST(SortLinesForm, OutOfBothFilledTheOneThatIsLeftDecides) {
  SortLinesForm form = FormWith(0x400012, [](SortLinesOptions& options) { options.matchChar = u';'; });
  EnterLength(form, W(""));
  EXPECT_THAT(SubstringState(form), ElementsAre(false, true, false));
}

TEST(SortLinesForm, BackToSubstringItsFieldsAreAsTheirTextsSay) {
  SortLinesForm form = EmptySubstringForm();
  EnterLength(form, W("3"));
  ChooseSortBy(form, SortByItem);
  EXPECT_THAT(SubstringState(form), ElementsAre(false, false, false));
  ChooseSortBy(form, SortBySubstring);
  EXPECT_THAT(SubstringState(form), ElementsAre(true, false, false));
  EXPECT_EQ(form.length, W("3"));
}

TEST(SortLinesForm, OnlyTheFirstEndCharacterIsKept) {
  SortLinesForm form = EmptySubstringForm();
  EnterEndCharacter(form, W(",;"));
  EXPECT_EQ(form.endCharacter, W(","));
  EXPECT_THAT(SubstringState(form), ElementsAre(false, true, false));
}

TEST(SortLinesForm, ChosenKeyDecidesOverASubstringTextThatChangedWithIt) {
  for (const int key : {SortByLine, SortByItem}) {
    SortLinesForm form = EmptySubstringForm();
    Edit(form, [key](SortLinesForm& edited) {
      edited.length = W("3");
      edited.sortBy = key;
    });
    EXPECT_THAT(SubstringState(form), ElementsAre(false, false, false)) << key;
  }
}

TEST(SortLinesForm, NumberFieldsKeepTheirDigitsAlone) {
  for (WString SortLinesForm::*const number :
       {&SortLinesForm::keepLinesTop, &SortLinesForm::keepLinesBottom, &SortLinesForm::startPosition,
        &SortLinesForm::length, &SortLinesForm::item}) {
    SortLinesForm form = FormWith(kDefaultBits);
    Edit(form, [number](SortLinesForm& edited) { edited.*number = W("-5x 0\u0663"); });
    EXPECT_EQ(form.*number, W("50"));
    Edit(form, [number](SortLinesForm& edited) { edited.*number = W("x"); });
    EXPECT_EQ(form.*number, W(""));
    Edit(form, [number](SortLinesForm& edited) { edited.*number = W("/0123456789:"); });
    EXPECT_EQ((form.*number).substr(0, 9), W("012345678"));
  }
}

TEST(SortLinesForm, NumberFieldsKeepAsManyDigitsAsTheyTake) {
  SortLinesForm form = EmptySubstringForm();
  Edit(form, [](SortLinesForm& edited) {
    edited.keepLinesTop = edited.keepLinesBottom = edited.startPosition = edited.item = W("12345678901");
    edited.length = W("2147483648");
  });
  EXPECT_EQ(form.keepLinesTop, W("1234567890"));
  EXPECT_EQ(form.keepLinesBottom, W("1234567890"));
  EXPECT_EQ(form.startPosition, W("1234567890"));
  EXPECT_EQ(form.item, W("1234567890"));
  EXPECT_EQ(form.length, W("214748364"));
}

TEST(SortLinesForm, LengthWithoutADigitCountsAsEmpty) {
  SortLinesForm form = EmptySubstringForm();
  EnterLength(form, W("x"));
  EXPECT_THAT(SubstringState(form), ElementsAre(true, true, true));
  EXPECT_NO_THROW(ReadOptions(form));
}

// Target names.

TEST(SortLinesForm, SuggestedNameHasTheSuffixBeforeTheLastDot) {
  SortLinesForm form = FormWith(kDefaultBits);
  form.firstName = W("b.tar.gz");
  StartForm(form);
  EXPECT_EQ(form.targetName, W("b.tar_new.gz"));
  EXPECT_TRUE(form.enabled.targetName);
}

TEST(SortLinesForm, SuggestedNameOfAFileWithoutADotHasTheSuffixAtItsEnd) {
  SortLinesForm form = FormWith(kDefaultBits);
  form.firstName = W("Makefile");
  StartForm(form);
  EXPECT_EQ(form.targetName, W("Makefile_new"));
}

TEST(SortLinesForm, SuggestedNameOfAFileThatBeginsOrEndsWithItsDot) {
  SortLinesForm form = FormWith(kDefaultBits);
  form.firstName = W(".profile");
  StartForm(form);
  EXPECT_EQ(form.targetName, W("_new.profile"));
  form.firstName = W("end.");
  StartForm(form);
  EXPECT_EQ(form.targetName, W("end_new."));
}

TEST(SortLinesForm, SuggestedNameOfSeveralFilesIsAPattern) {
  SortLinesForm form = FormWith(kDefaultBits);
  form.fileCount = 2;
  StartForm(form);
  EXPECT_EQ(form.targetName, W("*_new.*"));
}

TEST(SortLinesForm, WithoutASuffixTheSuggestedNameIsStillNotTheFilesOwn) {
  SortLinesForm form = FormWith(kDefaultBits);
  form.newFileSuffix.clear();
  StartForm(form);
  EXPECT_EQ(form.targetName, W("a_sorted.txt"));
  form.fileCount = 2;
  StartForm(form);
  EXPECT_EQ(form.targetName, W("*_sorted.*"));
}

TEST(SortLinesForm, WithABackupTheNameIsTheFilesOwnAndCannotBeChanged) {
  for (const std::uint32_t way : {0x2000000u, 0x4000000u}) {
    const SortLinesForm form = FormWith(0x11 | way);
    EXPECT_EQ(form.targetName, W("a.txt"));
    EXPECT_FALSE(form.enabled.targetName);
  }
}

TEST(SortLinesForm, WithABackupSeveralFilesKeepTheirNames) {
  SortLinesForm form = FormWith(0x2000011);
  form.fileCount = 3;
  StartForm(form);
  EXPECT_EQ(form.targetName, W("*.*"));
}

TEST(SortLinesForm, AnotherWayToSaveSuggestsTheNameAnew) {
  SortLinesForm form = FormWith(kDefaultBits);
  Edit(form, [](SortLinesForm& edited) { edited.targetName = W("mine.txt"); });
  EXPECT_EQ(form.targetName, W("mine.txt"));
  Edit(form, [](SortLinesForm& edited) { edited.saveAs = SaveDeleteBackup; });
  EXPECT_EQ(form.targetName, W("a.txt"));
  EXPECT_FALSE(form.enabled.targetName);
  Edit(form, [](SortLinesForm& edited) { edited.saveAs = SaveAsNewFile; });
  EXPECT_EQ(form.targetName, W("a_new.txt"));
  EXPECT_TRUE(form.enabled.targetName);
}

// Ruler.

constexpr const WCHAR* kRuler =
    W("----+----1----+----2----+----3----+----4----+") W("----5----+----6----+----7----+----8----+----9");

WString RulerAt(const WString& position, int sortBy = SortByLine, const WString& length = {}) {
  SortLinesForm form;
  form.startPosition = position;
  form.sortBy = sortBy;
  form.length = length;
  return RulerText(form);
}

TEST(SortLinesForm, RulerHasNinetyCharacters) {
  EXPECT_EQ(RulerAt(W("")), kRuler);
  EXPECT_EQ(RulerAt(W("")).size(), 90u);
}

TEST(SortLinesForm, RulerIsMarkedAtThePosition) {
  EXPECT_EQ(RulerAt(W("7")).substr(0, 12), W("----+-*--1--"));
  EXPECT_EQ(RulerAt(W("10")).substr(0, 12), W("----+----*--"));
  EXPECT_EQ(RulerAt(W("90")).substr(80), W("----+----*"));
}

TEST(SortLinesForm, PositionsZeroAndOneMarkTheFirstCharacter) {
  EXPECT_EQ(RulerAt(W("0")).substr(0, 6), W("*---+-"));
  EXPECT_EQ(RulerAt(W("1")).substr(0, 6), W("*---+-"));
}

TEST(SortLinesForm, PositionBeyondTheRulerMarksNothing) {
  EXPECT_EQ(RulerAt(W("91")), kRuler);
  EXPECT_EQ(RulerAt(W("4294967295")), kRuler);
  EXPECT_EQ(RulerAt(W("99999999999999999999")), kRuler);
  EXPECT_EQ(RulerAt(W("91"), SortBySubstring, W("5")), kRuler);
}

TEST(SortLinesForm, LengthOfASubstringIsMarkedUpToTheRulersEnd) {
  EXPECT_EQ(RulerAt(W("3"), SortBySubstring, W("4")).substr(0, 10), W("--****---1"));
  EXPECT_EQ(RulerAt(W("88"), SortBySubstring, W("3")).substr(80), W("----+--***"));
  EXPECT_EQ(RulerAt(W("88"), SortBySubstring, W("100")).substr(80), W("----+--***"));
  EXPECT_EQ(RulerAt(W("88"), SortBySubstring, W("4294967295")).size(), 90u);
}

TEST(SortLinesForm, LengthOfZeroLeavesThePositionsOwnMark) {
  EXPECT_EQ(RulerAt(W("3"), SortBySubstring, W("0")).substr(0, 10), W("--*-+----1"));
}

TEST(SortLinesForm, LengthIsMarkedForSubstringsOnly) {
  EXPECT_EQ(RulerAt(W("3"), SortByItem, W("4")).substr(0, 10), W("--*-+----1"));
  EXPECT_EQ(RulerAt(W("3"), SortByLine, W("4")).substr(0, 10), W("--*-+----1"));
  EXPECT_EQ(RulerAt(W(""), SortBySubstring, W("4")), kRuler);
}

TEST(SortLinesForm, MarksOfOneRulerAreNotInTheNext) {
  RulerAt(W("1"), SortBySubstring, W("90"));
  EXPECT_EQ(RulerAt(W("")), kRuler);
}

// Date formats.

TEST(SortLinesForm, OffersEightDateFormatsByExample) {
  std::vector<std::pair<WString, WString>> presets;
  for (const DatePreset& preset : DatePresets()) presets.emplace_back(preset.text, preset.format);
  EXPECT_THAT(presets,
              ElementsAre(std::pair(W("2014-11-21"), W("%Y-%m-%d")),
                          std::pair(W("2014-11-21 13:44:48"), W("%Y-%m-%d %H:%M:%S")),
                          std::pair(W("23/11/14"), W("%d/%m/%y")), std::pair(W("23/11/2014"), W("%d/%m/%Y")),
                          std::pair(W("23/11/2014 1:44:48 pm"), W("%d/%m/%Y %I:%M:%S %p")),
                          std::pair(W("23 Nov 2014"), W("%d %b %Y")),
                          std::pair(W("Nov 11 13:44:48 2014"), W("%b %d %H:%M:%S %Y")),
                          std::pair(W("11 Nov 2014 13:44:48"), W("%d %b %Y %H:%M:%S"))));
}

// Options out.

TEST(SortLinesForm, UnchangedDefaultsComeOutWithTheWayToSave) {
  EXPECT_EQ(BitsOf(FormWith(kDefaultBits)), 0x1100011u);
}

TEST(SortLinesForm, BitsThatNoFieldShowsAreDropped) { EXPECT_EQ(BitsOf(FormWith(0x18080011)), 0x1000011u); }

TEST(SortLinesForm, WithNoKeyMarkedNoKeyIsStored) { EXPECT_EQ(BitsOf(FormWith(0x10)), 0x1000010u); }

TEST(SortLinesForm, ChoicesThatAreMissingSetNoBit) {
  SortLinesForm form = FormWith(kDefaultBits);
  form.sortMethod = form.saveAs = form.sortBy = -1;
  EXPECT_EQ(BitsOf(form), 0x100000u);
}

TEST(SortLinesForm, NumbersAreReadAndThePositionMadeZeroBased) {
  SortLinesForm form = FormWith(kDefaultBits);
  form.keepLinesTop = W("12");
  form.keepLinesBottom = W("4294967295");
  form.startPosition = W("8");
  const SortLinesOptions options = ReadOptions(form);
  EXPECT_EQ(options.keepLinesTop, 12u);
  EXPECT_EQ(options.keepLinesBottom, 4294967295u);
  EXPECT_EQ(options.lineOffset, 7u);
}

TEST(SortLinesForm, PositionsZeroAndOneAreBothTheFirstCharacter) {
  SortLinesForm form = FormWith(kDefaultBits);
  for (const WCHAR* position : {W("0"), W("1"), W("")}) {
    form.startPosition = position;
    EXPECT_EQ(ReadOptions(form).lineOffset, 0u) << ToUtf8(position);
  }
}

TEST(SortLinesForm, NumbersThatAreNoneAreZeroAndThoseTooLargeTheLargest) {
  SortLinesForm form = FormWith(kDefaultBits);
  form.keepLinesTop = W("x");
  form.keepLinesBottom = W("99999999999999999999");
  form.startPosition = W("-4");
  const SortLinesOptions options = ReadOptions(form);
  EXPECT_EQ(options.keepLinesTop, 0u);
  EXPECT_EQ(options.keepLinesBottom, 4294967295u);
  EXPECT_EQ(options.lineOffset, 0u);
}

TEST(SortLinesForm, EndCharacterIsStoredInBothWidths) {
  SortLinesForm form = EmptySubstringForm();
  EnterEndCharacter(form, W("\u20AC"));
  const SortLinesOptions options = ReadOptions(form);
  EXPECT_EQ(options.options, 0x1500012u);
  EXPECT_EQ(options.matchChar, 0x20AC);
  EXPECT_EQ(options.matchCharA, 0x80);
}

TEST(SortLinesForm, LengthIsStoredWithoutABit) {
  SortLinesForm form = EmptySubstringForm();
  EnterLength(form, W("15"));
  const SortLinesOptions options = ReadOptions(form);
  EXPECT_EQ(options.options, 0x1100012u);
  EXPECT_EQ(options.subStringLen, 15u);
}

TEST(SortLinesForm, WhitespaceBoxIsStored) {
  SortLinesForm form = EmptySubstringForm();
  ClickEndAtWhitespace(form);
  EXPECT_EQ(BitsOf(form), 0x1300012u);
}

TEST(SortLinesForm, EndCharacterWinsOverTheLengthWhichKeepsItsOldValueAsIsMeant) {
  SortLinesForm form = FormWith(0x400012, [](SortLinesOptions& options) {
    options.matchChar = u';';
    options.subStringLen = 4;
  });
  EnterLength(form, W("9"));
  const SortLinesOptions options = ReadOptions(form);
  EXPECT_EQ(options.options, 0x1400012u);
  EXPECT_EQ(options.subStringLen, 4u);
}

TEST(SortLinesForm, EndCharacterWinsOverTheCheckedWhitespaceBoxAsIsMeant) {
  SortLinesForm form = FormWith(0x400012, [](SortLinesOptions& options) { options.matchChar = u';'; });
  ClickEndAtWhitespace(form);
  EXPECT_EQ(BitsOf(form), 0x1400012u);
}

TEST(SortLinesForm, FilledLengthWinsOverTheCheckedWhitespaceBoxAsIsMeant) {
  SortLinesForm form = EmptySubstringForm();
  form.length = W("6");
  form.endAtWhitespace = true;
  const SortLinesOptions options = ReadOptions(form);
  EXPECT_EQ(options.options, 0x1100012u);
  EXPECT_EQ(options.subStringLen, 6u);
}

TEST(SortLinesForm, EmptySubstringFieldsLeaveTheOldLengthAsIsMeant) {
  SortLinesForm form = FormWith(0x12, [](SortLinesOptions& options) { options.subStringLen = 4; });
  EnterLength(form, W(""));
  EXPECT_EQ(ReadOptions(form).subStringLen, 4u);
  ClickEndAtWhitespace(form);
  EXPECT_EQ(ReadOptions(form).subStringLen, 4u);
}

TEST(SortLinesForm, LengthWithoutANumberEndsInTheRunTimesException) {
  SortLinesForm form = EmptySubstringForm();
  form.length = W("x");
  EXPECT_THROW(
      {
        try {
          ReadOptions(form);
        } catch (const std::invalid_argument& failure) {
          EXPECT_STREQ(failure.what(), "invalid stoi argument");
          throw;
        }
      },
      std::invalid_argument);
}

TEST(SortLinesForm, LengthBeyondThirtyTwoBitsEndsInTheRunTimesException) {
  SortLinesForm form = EmptySubstringForm();
  form.length = W("2147483648");
  EXPECT_THROW(
      {
        try {
          ReadOptions(form);
        } catch (const std::out_of_range& failure) {
          EXPECT_STREQ(failure.what(), "stoi argument out of range");
          throw;
        }
      },
      std::out_of_range);
}

TEST(SortLinesForm, LengthOfAnotherKeyIsNotRead) {
  SortLinesForm form = EmptySubstringForm();
  form.length = W("x");
  form.endCharacter = W(";");
  ChooseSortBy(form, SortByLine);
  const SortLinesOptions options = ReadOptions(form);
  EXPECT_EQ(options.options, 0x1100011u);
  EXPECT_EQ(options.matchChar, 0);
  EXPECT_EQ(options.subStringLen, 0u);
}

TEST(SortLinesForm, SeparatorAndItemAreStoredForItems) {
  SortLinesForm form = FormWith(0x14);
  form.separator = W(",;");
  form.item = W("3");
  const SortLinesOptions options = ReadOptions(form);
  EXPECT_EQ(options.options, 0x1000014u);
  EXPECT_EQ(options.matchChar, u',');
  EXPECT_EQ(options.matchCharA, 0x2C);
  EXPECT_EQ(options.lineItem, 3u);
}

TEST(SortLinesForm, ItemZeroIsReadAsZero) {
  SortLinesForm form = FormWith(0x14, [](SortLinesOptions& options) { options.lineItem = 5; });
  form.item = W("0");
  EXPECT_EQ(ReadOptions(form).lineItem, 0u);
}

TEST(SortLinesForm, EmptySeparatorLeavesTheOldOne) {
  SortLinesForm form = FormWith(0x14, [](SortLinesOptions& options) {
    options.matchChar = u'|';
    options.matchCharA = '|';
  });
  form.separator.clear();
  const SortLinesOptions options = ReadOptions(form);
  EXPECT_EQ(options.matchChar, u'|');
  EXPECT_EQ(options.matchCharA, '|');
}

TEST(SortLinesForm, ItemOfAnotherKeyIsNotRead) {
  SortLinesForm form = FormWith(0x14, [](SortLinesOptions& options) { options.lineItem = 5; });
  ChooseSortBy(form, SortByLine);
  form.item = W("8");
  form.separator = W("x");
  const SortLinesOptions options = ReadOptions(form);
  EXPECT_EQ(options.lineItem, 5u);
  EXPECT_EQ(options.matchChar, 0);
}

TEST(SortLinesForm, MethodAndWayToSaveAreStored) {
  SortLinesForm form = FormWith(kDefaultBits);
  form.sortMethod = SortAsNumber;
  form.saveAs = SaveKeepBackup;
  EXPECT_EQ(BitsOf(form), 0x2100101u);
  form.saveAs = SaveDeleteBackup;
  EXPECT_EQ(BitsOf(form), 0x4100101u);
}

TEST(SortLinesForm, DateFormatIsStoredForDatesUpToItsRoom) {
  SortLinesForm form = FormWith(kDefaultBits);
  form.sortMethod = SortAsDate;
  form.dateFormat = W("%d. %B \u00E4");
  SortLinesOptions options = ReadOptions(form);
  EXPECT_EQ(options.options, 0x1100201u);
  EXPECT_STREQ(options.dateFormat, "%d. %B \xE4");
  form.dateFormat = WString(128, W('x')) + W("y");
  options = ReadOptions(form);
  EXPECT_EQ(std::string(options.dateFormat), std::string(128, 'x'));
}

TEST(SortLinesForm, EmptyDateFormatIsStoredForDates) {
  SortLinesForm form = FormWith(0x201, StoreDayFormat);
  form.dateFormat.clear();
  EXPECT_STREQ(ReadOptions(form).dateFormat, "");
}

TEST(SortLinesForm, DateFormatOfAnotherMethodStaysWhatItWas) {
  SortLinesForm form = FormWith(0x201, StoreDayFormat);
  form.sortMethod = SortAsText;
  form.dateFormat = W("%Y");
  EXPECT_STREQ(ReadOptions(form).dateFormat, "%d");
}

TEST(SortLinesForm, BoxesAreStored) {
  SortLinesForm form = FormWith(0x11);
  form.languageAware = form.reverse = form.removeBlank = form.skipLeadingSpace = true;
  EXPECT_EQ(BitsOf(form), 0x1141811u);
}

TEST(SortLinesForm, NaturalOrderAndIgnoreCaseAreStoredWithoutLanguageAwareOnlyAsIsMeant) {
  SortLinesForm form = FormWith(0x11);
  form.naturalNumbers = form.ignoreCase = true;
  EXPECT_EQ(BitsOf(form), 0x100A011u);
  form.languageAware = true;
  EXPECT_EQ(BitsOf(form), 0x1000811u);
}

TEST(SortLinesForm, DisabledDuplicatesBoxKeepsItsBitAsIsMeant) {
  const SortLinesForm form = FormWith(0x20011);
  EXPECT_TRUE(form.removeDuplicates);
  EXPECT_EQ(BitsOf(form), 0x1020011u);
}

}  // namespace
}  // namespace WQLineSorter
