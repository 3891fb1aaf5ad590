// The fields of the Find and Replace dialog.
#include "findreplace/tool/find_and_replace_form.h"

#include <gtest/gtest.h>

namespace QXFindAndReplace {
namespace {

FindAndReplaceForm FormOf(std::uint32_t flags, const WString& startName = W("a.txt"),
                          std::uint32_t fileCount = 1) {
  FindAndReplaceForm form;
  form.options.flags = flags;
  form.startName = startName;
  form.fileCount = fileCount;
  form.suffix = W("_x");
  StartForm(form);
  return form;
}

// Returns the name that is suggested for a new file.
WString Suggested(const WString& startName, std::uint32_t fileCount = 1) {
  return FormOf(SaveAsNew, startName, fileCount).targetName;
}

void ChooseSaveMode(FindAndReplaceForm& form, int mode) {
  const FindAndReplaceForm before = form;
  form.saveMode = mode;
  UpdateForChanges(form, before);
}

TEST(FindAndReplaceForm, DefaultFlagsShowTheFileItselfWithABackup) {
  const FindAndReplaceForm form = FormOf(0x20000101);
  EXPECT_EQ(form.findMode, 1);
  EXPECT_EQ(form.saveMode, 0x20000000);
  EXPECT_TRUE(form.ignoreCase);
  EXPECT_EQ(form.targetName, W("a.txt"));
  EXPECT_FALSE(form.targetNameEnabled);
  EXPECT_FALSE(form.regExp || form.wildcard || form.forceUtf8 || form.silent || form.replaceAll);
}

TEST(FindAndReplaceForm, EachBoxIsItsFlag) {
  const std::pair<std::uint32_t, bool FindAndReplaceForm::*> boxes[] = {
      {0x100, &FindAndReplaceForm::ignoreCase}, {0x200, &FindAndReplaceForm::replaceAll},
      {0x400, &FindAndReplaceForm::regExp},     {0x800, &FindAndReplaceForm::forceUtf8},
      {0x1000, &FindAndReplaceForm::silent},    {0x2000, &FindAndReplaceForm::wildcard},
  };
  for (const auto& [flag, box] : boxes) {
    const FindAndReplaceForm form = FormOf(flag);
    for (const auto& [otherFlag, other] : boxes) EXPECT_EQ(form.*other, otherFlag == flag) << flag;
    EXPECT_EQ(ReadOptions(form).flags, 0x10000001 | flag) << flag;
  }
}

TEST(FindAndReplaceForm, OfSeveralSaveModesTheFirstIsChosen) {
  EXPECT_EQ(FormOf(0x70000000).saveMode, 0x10000000);
  EXPECT_EQ(FormOf(0x60000000).saveMode, 0x20000000);
  EXPECT_EQ(FormOf(0x40000000).saveMode, 0x40000000);
  EXPECT_EQ(FormOf(0).saveMode, 0x10000000);
}

TEST(FindAndReplaceForm, OfSeveralFindModesTheFirstIsChosen) {
  EXPECT_EQ(FormOf(0xF).findMode, 1);
  EXPECT_EQ(FormOf(0xE).findMode, 2);
  EXPECT_EQ(FormOf(0xC).findMode, 4);
  EXPECT_EQ(FormOf(0x8).findMode, 8);
  EXPECT_EQ(FormOf(0).findMode, 1);
}

TEST(FindAndReplaceForm, NewFileHasTheSuffixBeforeItsLastDot) {
  EXPECT_EQ(Suggested(W("a.txt")), W("a_x.txt"));
  EXPECT_EQ(Suggested(W("a.b.txt")), W("a.b_x.txt"));
  EXPECT_EQ(Suggested(W(".profile")), W("_x.profile"));
  EXPECT_EQ(Suggested(W("a.")), W("a_x."));
}

TEST(FindAndReplaceForm, NewFileWithoutADotHasTheSuffixAtItsEnd) {
  EXPECT_EQ(Suggested(W("readme")), W("readme_x"));
  EXPECT_EQ(Suggested(W("")), W("_x"));
}

TEST(FindAndReplaceForm, SuggestedNameHasNoFolder) {
  EXPECT_EQ(Suggested(W("Z:\\some.folder\\a.txt")), W("a_x.txt"));
  EXPECT_EQ(Suggested(W("some.folder\\readme")), W("readme_x"));
}

TEST(FindAndReplaceForm, SeveralNewFilesAreSuggestedAsAPattern) {
  EXPECT_EQ(Suggested(W("*.*"), 3), W("*_x.*"));
  EXPECT_EQ(Suggested(W("*.*"), 2), W("*_x.*"));
  EXPECT_EQ(Suggested(W("a.txt"), 0), W("a_x.txt"));
}

TEST(FindAndReplaceForm, SaveModeSaysWhetherTheNameIsEntered) {
  FindAndReplaceForm form = FormOf(SaveAsNew);
  EXPECT_TRUE(form.targetNameEnabled);
  form.targetName = W("mine.txt");
  for (const int mode : {0x20000000, 0x40000000}) {
    ChooseSaveMode(form, mode);
    EXPECT_FALSE(form.targetNameEnabled);
    EXPECT_EQ(form.targetName, W("a.txt"));
  }
  ChooseSaveMode(form, 0x10000000);
  EXPECT_TRUE(form.targetNameEnabled);
  EXPECT_EQ(form.targetName, W("a_x.txt"));
}

TEST(FindAndReplaceForm, ReplacedFilesShowTheStartNameOfSeveralToo) {
  const FindAndReplaceForm form = FormOf(ReplaceFile, W("*.*"), 3);
  EXPECT_EQ(form.targetName, W("*.*"));
  EXPECT_FALSE(form.targetNameEnabled);
}

TEST(FindAndReplaceForm, NameThatIsEnteredStaysWhenOtherFieldsChange) {
  FindAndReplaceForm form = FormOf(SaveAsNew);
  form.targetName = W("mine.txt");
  const FindAndReplaceForm before = form;
  form.findMode = ModeMany;
  form.silent = true;
  UpdateForChanges(form, before);
  EXPECT_EQ(form.targetName, W("mine.txt"));
}

TEST(FindAndReplaceForm, OverwritingIsNotStoredByDesign) {
  EXPECT_EQ(ReadOptions(FormOf(0x90000101)).flags, 0x10000101u);
  EXPECT_EQ(ReadOptions(FormOf(0xFFFFFFFF)).flags, 0x10003F01u);
}

TEST(FindAndReplaceForm, OkTakesChoicesBoxesAndTexts) {
  FindAndReplaceForm form = FormOf(0x20000101);
  form.findMode = ModeMultiline;
  form.saveMode = ReplaceFile;
  form.ignoreCase = false;
  form.wildcard = true;
  form.find = W("a\r\nb");
  form.replace = W("c");
  const FindAndReplaceOptions options = ReadOptions(form);
  EXPECT_EQ(options.flags, 0x40002008u);
  EXPECT_EQ(options.find, W("a\r\nb"));
  EXPECT_EQ(options.replace, W("c"));
}

TEST(FindAndReplaceForm, StoredTextsAreShownInTheFields) {
  FindAndReplaceForm form;
  form.options.find = W("x\r\ny");
  form.options.replace = W("z");
  StartForm(form);
  EXPECT_EQ(form.find, W("x\r\ny"));
  EXPECT_EQ(form.replace, W("z"));
}

TEST(FindAndReplaceForm, LongTextsAreTruncatedWithoutAMessageByDesign) {
  FindAndReplaceForm form = FormOf(SaveAsNew);
  form.find = WString(1023, W('f')) + W("!");
  form.replace = WString(1023, W('r')) + W("!!");
  form.targetName = WString(1023, W('n')) + W("!!!");
  EXPECT_EQ(ReadOptions(form).find, WString(1023, W('f')));
  EXPECT_EQ(ReadOptions(form).replace, WString(1023, W('r')));
  EXPECT_EQ(ReadTargetName(form), WString(1023, W('n')));
}

TEST(FindAndReplaceForm, TextsOfTheMostCharactersStayWhole) {
  FindAndReplaceForm form = FormOf(SaveAsNew);
  form.find = WString(1023, W('f'));
  form.targetName = WString(1023, W('n'));
  EXPECT_EQ(ReadOptions(form).find, WString(1023, W('f')));
  EXPECT_EQ(ReadTargetName(form), WString(1023, W('n')));
}

}  // namespace
}  // namespace QXFindAndReplace
