// The form of the Sort Lines dialog: how it shows the options, the names that it suggests, its date formats.
#include "linesorter/tool/sort_lines_form.h"

#include <gmock/gmock.h>

#include "linesorter/sort_lines_forms.h"

namespace WQLineSorter {
namespace {

using testing::ElementsAre;

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

TEST(SortLinesForm, SubstringShowsItsLengthEvenIfThatIsZeroByDesign) {
  EXPECT_EQ(FormWith(0x12).length, W("0"));
  EXPECT_EQ(FormWith(0x12, StoredLength(5)).length, W("5"));
}

TEST(SortLinesForm, StoredLengthThatTheFieldDoesNotTakeIsShownAsTheLargestItDoes) {
  const auto formOf = [](std::uint32_t length) { return FormWith(0x12, StoredLength(length)); };
  EXPECT_EQ(formOf(999999999).length, W("999999999"));
  EXPECT_EQ(formOf(1000000000).length, W("999999999"));
  EXPECT_EQ(formOf(4294967295).length, W("999999999"));
  EXPECT_EQ(ReadOptions(formOf(4294967295)).subStringLen, 999999999u);
}

TEST(SortLinesForm, SubstringShowsTheEndCharacterWithTheLengthByDesign) {
  const SortLinesForm form = FormWith(0x400012, StoredCharacter(u';', 4));
  EXPECT_EQ(form.endCharacter, W(";"));
  EXPECT_EQ(form.length, W("4"));
  EXPECT_EQ(form.separator, W(""));
}

TEST(SortLinesForm, SubstringWithoutTheEndCharacterBitShowsNone) {
  EXPECT_EQ(FormWith(0x12, StoredCharacter(u';')).endCharacter, W(""));
}

TEST(SortLinesForm, AnEndCharacterOfZeroIsNone) { EXPECT_EQ(FormWith(0x400012).endCharacter, W("")); }

TEST(SortLinesForm, SubstringToWhitespaceChecksTheBoxAndShowsNoLength) {
  const SortLinesForm form = FormWith(0x200012, StoredLength(4));
  EXPECT_TRUE(form.endAtWhitespace);
  EXPECT_EQ(form.length, W(""));
}

TEST(SortLinesForm, EndCharacterIsShownWithTheCheckedWhitespaceBoxByDesign) {
  const SortLinesForm form = FormWith(0x600012, StoredCharacter(u';', 4));
  EXPECT_EQ(form.endCharacter, W(";"));
  EXPECT_TRUE(form.endAtWhitespace);
  EXPECT_EQ(form.length, W(""));
}

TEST(SortLinesForm, TheWhitespaceBitOfAnotherKeyIsNotShown) {
  EXPECT_FALSE(FormWith(0x200011).endAtWhitespace);
  EXPECT_FALSE(FormWith(0x200014).endAtWhitespace);
}

TEST(SortLinesForm, ItemShowsTheSeparatorAndNothingOfTheSubstring) {
  const SortLinesForm form = FormWith(0x400014, StoredCharacter(u',', 4));
  EXPECT_EQ(form.separator, W(","));
  EXPECT_EQ(form.endCharacter, W(""));
  EXPECT_EQ(form.length, W(""));
}

TEST(SortLinesForm, LineShowsNeitherSeparatorNorSubstring) {
  const SortLinesForm form = FormWith(0x600011, StoredCharacter(u',', 4));
  EXPECT_EQ(form.separator, W(""));
  EXPECT_EQ(form.endCharacter, W(""));
  EXPECT_EQ(form.length, W(""));
}

TEST(SortLinesForm, DateFormatIsShownForDatesOnly) {
  EXPECT_EQ(FormWith(0x201, StoreDayFormat).dateFormat, W("%d"));
  EXPECT_EQ(FormWith(0x301, StoreDayFormat).dateFormat, W("%d"));
  EXPECT_EQ(FormWith(0x101, StoreDayFormat).dateFormat, W(""));
}

TEST(SortLinesForm, WithMethodTextAStoredFormatIsNotShownByDesign) {
  EXPECT_EQ(FormWith(0x011, StoreDayFormat).dateFormat, W(""));
  EXPECT_EQ(FormWith(0x211, StoreDayFormat).dateFormat, W(""));
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

}  // namespace
}  // namespace WQLineSorter
