// The form of the Sort Lines dialog: reading the options from its fields.
#include "linesorter/tool/sort_lines_form.h"

#include <gmock/gmock.h>

#include <stdexcept>

#include "data/thrown.h"
#include "linesorter/sort_lines_forms.h"

namespace WQLineSorter {
namespace {

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

TEST(SortLinesForm, EndCharacterWinsOverTheLengthWhichKeepsItsOldValueByDesign) {
  SortLinesForm form = FormWith(0x400012, StoredCharacter(u';', 4));
  EnterLength(form, W("9"));
  const SortLinesOptions options = ReadOptions(form);
  EXPECT_EQ(options.options, 0x1400012u);
  EXPECT_EQ(options.subStringLen, 4u);
}

TEST(SortLinesForm, EndCharacterWinsOverTheCheckedWhitespaceBoxByDesign) {
  SortLinesForm form = FormWith(0x400012, StoredCharacter(u';'));
  ClickEndAtWhitespace(form);
  EXPECT_EQ(BitsOf(form), 0x1400012u);
}

TEST(SortLinesForm, FilledLengthWinsOverTheCheckedWhitespaceBoxByDesign) {
  SortLinesForm form = EmptySubstringForm();
  form.length = W("6");
  form.endAtWhitespace = true;
  const SortLinesOptions options = ReadOptions(form);
  EXPECT_EQ(options.options, 0x1100012u);
  EXPECT_EQ(options.subStringLen, 6u);
}

TEST(SortLinesForm, EmptySubstringFieldsLeaveTheOldLengthByDesign) {
  SortLinesForm form = FormWith(0x12, StoredLength(4));
  EnterLength(form, W(""));
  EXPECT_EQ(ReadOptions(form).subStringLen, 4u);
  ClickEndAtWhitespace(form);
  EXPECT_EQ(ReadOptions(form).subStringLen, 4u);
}

TEST(SortLinesForm, LengthWithoutANumberEndsInTheRunTimesException) {
  SortLinesForm form = EmptySubstringForm();
  form.length = W("x");
  EXPECT_EQ(TextThrownBy<std::invalid_argument>([&] { ReadOptions(form); }), "invalid stoi argument");
}

TEST(SortLinesForm, LengthBeyondThirtyTwoBitsEndsInTheRunTimesException) {
  SortLinesForm form = EmptySubstringForm();
  form.length = W("2147483648");
  EXPECT_EQ(TextThrownBy<std::out_of_range>([&] { ReadOptions(form); }), "stoi argument out of range");
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

TEST(SortLinesForm, NaturalOrderAndIgnoreCaseAreStoredWithoutLanguageAwareOnlyByDesign) {
  SortLinesForm form = FormWith(0x11);
  form.naturalNumbers = form.ignoreCase = true;
  EXPECT_EQ(BitsOf(form), 0x100A011u);
  form.languageAware = true;
  EXPECT_EQ(BitsOf(form), 0x1000811u);
}

TEST(SortLinesForm, DisabledDuplicatesBoxKeepsItsBitByDesign) {
  const SortLinesForm form = FormWith(0x20011);
  EXPECT_TRUE(form.removeDuplicates);
  EXPECT_EQ(BitsOf(form), 0x1020011u);
}

}  // namespace
}  // namespace WQLineSorter
