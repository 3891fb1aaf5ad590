// The form of the Sort Lines dialog: the effects of a change.
#include "linesorter/tool/sort_lines_form.h"

#include <gmock/gmock.h>

#include "linesorter/sort_lines_forms.h"

namespace WQLineSorter {
namespace {

using testing::ElementsAre;

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

TEST(SortLinesForm, FromItemToSubstringSeparatorAndItemStayEnabledByDesign) {
  SortLinesForm form = FormWith(0x14);
  ChooseSortBy(form, SortBySubstring);
  EXPECT_THAT(SubstringState(form), ElementsAre(true, true, true));
  EXPECT_THAT(ItemState(form), ElementsAre(true, true));
  ChooseSortBy(form, SortByLine);
  EXPECT_THAT(ItemState(form), ElementsAre(false, false));
}

TEST(SortLinesForm, StartedWithSubstringSeparatorAndItemAreEnabledByDesign) {
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

TEST(SortLinesForm, ALengthOfZeroCountsAsFilledByDesign) {
  EXPECT_THAT(SubstringState(FormWith(0x12)), ElementsAre(true, false, false));
}

TEST(SortLinesForm, WithLengthAndEndCharacterFilledNothingChangesByDesign) {
  SortLinesForm form = FormWith(0x400012, StoredCharacter(u';'));
  EXPECT_THAT(SubstringState(form), ElementsAre(true, true, true));
  EnterLength(form, W("77"));
  EXPECT_THAT(SubstringState(form), ElementsAre(true, true, true));
  ClickEndAtWhitespace(form);
  EXPECT_THAT(SubstringState(form), ElementsAre(false, false, true));
  ClickEndAtWhitespace(form);
  EXPECT_THAT(SubstringState(form), ElementsAre(false, false, true));
}

TEST(SortLinesForm, OutOfBothFilledTheOneThatIsLeftDecides) {
  SortLinesForm form = FormWith(0x400012, StoredCharacter(u';'));
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
  for (const int key : {int{SortByLine}, int{SortByItem}}) {
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

}  // namespace
}  // namespace WQLineSorter
