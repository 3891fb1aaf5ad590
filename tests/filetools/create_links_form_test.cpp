// The fields of the Create Link dialog: which are enabled, the description and status of each kind, and the
// names of shortcuts.
#include "filetools/create_links_form.h"

#include <gmock/gmock.h>

#include <climits>

#include "frame/services/message_texts.h"

using namespace Velmora::SDK;

namespace {

struct Selection {
  const char* what;
  bool multiple;
  bool targetIsFolder;
  bool anyFolder;
  bool anyFile;
};

constexpr Selection kOneFile = {"one file", false, false, false, false};
constexpr Selection kOneFolder = {"one folder", false, true, false, false};
constexpr Selection kFiles = {"several files", true, false, false, true};
constexpr Selection kFolders = {"several folders", true, false, true, false};
constexpr Selection kMixed = {"files and folders", true, false, true, true};

CreateLinksForm FormOf(const Selection& selection, const WString& link, const WString& target) {
  CreateLinksForm form;
  form.linkName = link;
  form.targetName = target;
  form.targetIsFolder = selection.targetIsFolder;
  form.multiple = selection.multiple;
  form.anyFolder = selection.anyFolder;
  form.anyFile = selection.anyFile;
  return form;
}

void Choose(CreateLinksForm& form, int kind) {
  form.linkKind = kind;
  UpdateForKind(form);
}

// Returns the form of a dialog that opened with one file and this kind.
CreateLinksForm OpenedOn(int kind) {
  CreateLinksForm form = FormOf(kOneFile, W("C:\\links\\a.txt"), W("C:\\view\\a.txt"));
  form.linkKind = kind;
  StartForm(form);
  return form;
}

// The status of the kinds 1 to 4; if there is one, OK is disabled.
struct StatusRow {
  Selection selection;
  const WCHAR* link;
  const WCHAR* target;
  bool symlinksSupported;
  TextId status[4];
};

constexpr const WCHAR* kLink = W("C:\\links\\x");
constexpr const WCHAR* kTarget = W("C:\\view\\x");
constexpr const WCHAR* kFarTarget = W("D:\\view\\x");

constexpr StatusRow kStatusRows[] = {
    {kOneFile, kLink, kTarget, true, {0, kTextLinkJunctionFile, 0, 0}},
    {kOneFolder, kLink, kTarget, true, {kTextLinkHardFolder, 0, 0, 0}},
    {kFiles, kLink, kTarget, true, {0, kTextLinkJunctionFile, 0, 0}},
    {kFolders, kLink, kTarget, true, {kTextLinkHardFolder, 0, 0, 0}},
    {kMixed, kLink, kTarget, true, {kTextLinkHardMixed, kTextLinkJunctionMixed, 0, 0}},
    {kOneFile, kLink, kFarTarget, true, {kTextLinkHardDrives, kTextLinkJunctionFile, 0, 0}},
    {kOneFolder, kLink, kFarTarget, true, {kTextLinkHardFolder, 0, 0, 0}},
    {kFiles, kLink, kFarTarget, true, {kTextLinkHardDrives, kTextLinkJunctionFile, 0, 0}},
    {kFolders, kLink, kFarTarget, true, {kTextLinkHardFolder, 0, 0, 0}},
    {kMixed, kLink, kFarTarget, true, {kTextLinkHardMixed, kTextLinkJunctionMixed, 0, 0}},
    {kOneFile, kLink, kTarget, false, {0, kTextLinkJunctionFile, kTextLinkNoSymbolic, 0}},
    {kOneFolder, kLink, kTarget, false, {kTextLinkHardFolder, 0, kTextLinkNoSymbolic, 0}},
    {kFiles, kLink, kTarget, false, {0, kTextLinkJunctionFile, kTextLinkNoSymbolic, 0}},
    {kFolders, kLink, kTarget, false, {kTextLinkHardFolder, 0, kTextLinkNoSymbolic, 0}},
    {kMixed, kLink, kFarTarget, false, {kTextLinkHardMixed, kTextLinkJunctionMixed, kTextLinkNoSymbolic, 0}},
};

}  // namespace

TEST(CreateLinksForm, EachSelectionHasItsKindsAndTheFirstRuleThatFitsSaysWhyNot) {
  for (const StatusRow& row : kStatusRows) {
    for (int kind = 1; kind <= 4; ++kind) {
      SCOPED_TRACE(std::string(row.selection.what) + " to " + ToUtf8(row.target) + ", kind " +
                   std::to_string(kind) + (row.symlinksSupported ? "" : ", before Vista"));
      CreateLinksForm form = FormOf(row.selection, row.link, row.target);
      form.symlinksSupported = row.symlinksSupported;
      form.linkKind = kind;
      StartForm(form);
      const TextId status = row.status[kind - 1];
      EXPECT_EQ(form.status, status);
      EXPECT_EQ(form.okEnabled, status == 0);
    }
  }
}

TEST(CreateLinksForm, RulesFollowEachChangeOfTheKind) {
  CreateLinksForm form = OpenedOn(2);
  EXPECT_EQ(form.status, 0x00CB0065u);
  EXPECT_FALSE(form.okEnabled);
  Choose(form, 3);
  EXPECT_EQ(form.status, 0u);
  EXPECT_TRUE(form.okEnabled);
  Choose(form, 2);
  EXPECT_EQ(form.status, 0x00CB0065u);
  EXPECT_FALSE(form.okEnabled);
  Choose(form, 1);
  EXPECT_EQ(form.status, 0u);
  EXPECT_TRUE(form.okEnabled);
}

TEST(CreateLinksForm, DrivesInBothCasesAreTwoDrivesByDesign) {
  for (const auto& [link, target] :
       {std::pair{W("C:\\l\\a.txt"), W("c:\\v\\a.txt")}, std::pair{W("c:\\l\\a.txt"), W("C:\\v\\a.txt")}}) {
    CreateLinksForm form = FormOf(kOneFile, link, target);
    form.linkKind = 1;
    StartForm(form);
    EXPECT_EQ(form.status, 0x00CD0065u);
    EXPECT_FALSE(form.okEnabled);
  }
}

TEST(CreateLinksForm, DrivesAreThoseOfTheOpeningWhateverTheFieldsSayNowByDesign) {
  CreateLinksForm form = OpenedOn(1);
  form.linkText = W("D:\\links\\a.txt");
  Choose(form, 3);
  Choose(form, 1);
  EXPECT_EQ(form.status, 0u);
  EXPECT_TRUE(form.okEnabled);

  form = FormOf(kOneFile, W("D:\\links\\a.txt"), W("C:\\view\\a.txt"));
  form.linkKind = 1;
  StartForm(form);
  form.linkText = W("C:\\links\\a.txt");
  Choose(form, 3);
  Choose(form, 1);
  EXPECT_EQ(form.status, 0x00CD0065u);
  EXPECT_FALSE(form.okEnabled);
}

TEST(CreateLinksForm, PathsOfServersBeginAlikeAndAreOneDrive) {
  CreateLinksForm form = FormOf(kOneFile, W("\\\\one\\share\\a"), W("\\\\other\\share\\a"));
  form.linkKind = 1;
  StartForm(form);
  EXPECT_TRUE(form.okEnabled);
}

TEST(CreateLinksForm, OfOneItemTheTargetCanBeChangedForASymbolicLinkAlone) {
  for (const Selection& selection : {kOneFile, kOneFolder}) {
    CreateLinksForm form = FormOf(selection, kLink, kTarget);
    StartForm(form);
    for (const int kind : {1, 3, 2, 3, 4}) {
      Choose(form, kind);
      EXPECT_TRUE(form.linkEnabled) << selection.what << " " << kind;
      EXPECT_EQ(form.targetEnabled, kind == 3) << selection.what << " " << kind;
    }
  }
}

TEST(CreateLinksForm, OfSeveralItemsNeitherNameCanBeChanged) {
  for (const Selection& selection : {kFiles, kFolders, kMixed}) {
    CreateLinksForm form = FormOf(selection, W("C:\\links\\*"), W("C:\\view\\*"));
    StartForm(form);
    for (const int kind : {1, 2, 3, 4}) {
      Choose(form, kind);
      EXPECT_FALSE(form.linkEnabled) << selection.what << " " << kind;
      EXPECT_FALSE(form.targetEnabled) << selection.what << " " << kind;
    }
  }
}

TEST(CreateLinksForm, ATargetThatIsNotKnownCanBeTypedForEveryKind) {
  CreateLinksForm form = FormOf(kOneFile, kLink, W(""));
  StartForm(form);
  for (const int kind : {1, 2, 3, 4}) {
    Choose(form, kind);
    EXPECT_TRUE(form.targetEnabled) << kind;
  }
}

TEST(CreateLinksForm, FieldsBeginWithTheTwoNames) {
  const CreateLinksForm form = OpenedOn(1);
  EXPECT_EQ(form.linkText, W("C:\\links\\a.txt"));
  EXPECT_EQ(form.targetText, W("C:\\view\\a.txt"));
  EXPECT_EQ(form.baseLinkName, W("C:\\links\\a.txt"));
}

TEST(CreateLinksForm, OpensOnTheKindThatWasUsedLast) {
  for (const int kind : {1, 2, 3, 4}) EXPECT_EQ(OpenedOn(kind).linkKind, kind);
}

TEST(CreateLinksForm, OpensOnTheJunctionWhereNoneWasUsedYet) {
  for (const int kind : {0, -1, INT_MIN}) EXPECT_EQ(OpenedOn(kind).linkKind, 2) << kind;
}

TEST(CreateLinksForm, OpensOnNoRowWithoutALastKindByDesign) {
  for (const int kind : {5, 7, INT_MAX}) {
    const CreateLinksForm form = OpenedOn(kind);
    EXPECT_EQ(form.linkKind, -1) << kind;
    EXPECT_EQ(form.description, 0u);
    EXPECT_EQ(form.status, 0u);
    EXPECT_TRUE(form.okEnabled);
    EXPECT_TRUE(form.linkEnabled);
    EXPECT_FALSE(form.targetEnabled);
    EXPECT_EQ(form.linkText, W("C:\\links\\a.txt"));
  }
}

TEST(CreateLinksForm, WithoutARowNoRuleIsAppliedEvenToSeveralItemsByDesign) {
  CreateLinksForm form = FormOf(kMixed, W("C:\\links\\*"), W("C:\\view\\*"));
  form.linkKind = 7;
  StartForm(form);
  EXPECT_TRUE(form.linkEnabled);
  EXPECT_FALSE(form.targetEnabled);
  EXPECT_TRUE(form.okEnabled);
}

TEST(CreateLinksForm, WhereTheSelectionGoesTheRulesOfTheLastKindStay) {
  CreateLinksForm form = OpenedOn(2);
  ASSERT_FALSE(form.okEnabled);
  Choose(form, CreateLinksForm::kNoKind);
  EXPECT_FALSE(form.okEnabled);
  EXPECT_EQ(form.status, 0x00CB0065u);
  EXPECT_EQ(form.description, 0u);
}

TEST(CreateLinksForm, DescriptionIsThatOfTheKindAndAShortcutHasNone) {
  CreateLinksForm form = OpenedOn(1);
  EXPECT_EQ(form.description, 0x01390064u);
  Choose(form, 2);
  EXPECT_EQ(form.description, 0x013A0064u);
  Choose(form, 3);
  EXPECT_EQ(form.description, 0x013B0064u);
  Choose(form, 4);
  EXPECT_EQ(form.description, 0u);
}

namespace {

WString ShortcutOf(const Selection& selection, const WString& link) {
  CreateLinksForm form = FormOf(selection, link, W("C:\\view\\x"));
  form.linkKind = 4;
  StartForm(form);
  EXPECT_EQ(form.baseLinkName, link);
  EXPECT_EQ(form.nameShownAsShortcut, form.linkText != link) << ToUtf8(link);
  return form.linkText;
}

}  // namespace

TEST(CreateLinksForm, AFilesExtensionGivesWayToThatOfAShortcut) {
  EXPECT_EQ(ShortcutOf(kOneFile, W("C:\\l\\a.txt")), W("C:\\l\\a.lnk"));
  EXPECT_EQ(ShortcutOf(kOneFile, W("C:\\l\\a.tar.gz")), W("C:\\l\\a.tar.lnk"));
  EXPECT_EQ(ShortcutOf(kOneFile, W("C:\\l.d\\a.b")), W("C:\\l.d\\a.lnk"));
  EXPECT_EQ(ShortcutOf(kOneFile, W("C:\\l\\.profile")), W("C:\\l\\.lnk"));
  EXPECT_EQ(ShortcutOf(kOneFile, W("C:\\l\\a.")), W("C:\\l\\a.lnk"));
  EXPECT_EQ(ShortcutOf(kOneFile, W("a.txt")), W("a.lnk"));
}

TEST(CreateLinksForm, AFileWithoutAnExtensionKeepsItsBareNameAsAShortcutByDesign) {
  EXPECT_EQ(ShortcutOf(kOneFile, W("C:\\l\\a")), W("C:\\l\\a"));
  EXPECT_EQ(ShortcutOf(kOneFile, W("a")), W("a"));
  EXPECT_EQ(ShortcutOf(kOneFile, W("")), W(""));
}

TEST(CreateLinksForm, ADotInAFolderIsNoExtension) {
  EXPECT_EQ(ShortcutOf(kOneFile, W("C:\\l.d\\a")), W("C:\\l.d\\a"));
  EXPECT_EQ(ShortcutOf(kOneFile, W("C:\\l.d\\")), W("C:\\l.d\\"));
}

TEST(CreateLinksForm, AShortcutToAShortcutHasItsNameAlready) {
  EXPECT_EQ(ShortcutOf(kOneFile, W("C:\\l\\a.lnk")), W("C:\\l\\a.lnk"));
  EXPECT_EQ(ShortcutOf(kOneFile, W("C:\\l\\a.LNK")), W("C:\\l\\a.lnk"));
}

TEST(CreateLinksForm, FoldersAndSeveralItemsKeepWhatLooksLikeAnExtension) {
  EXPECT_EQ(ShortcutOf(kOneFolder, W("C:\\l\\a")), W("C:\\l\\a.lnk"));
  EXPECT_EQ(ShortcutOf(kOneFolder, W("C:\\l\\a.b")), W("C:\\l\\a.b.lnk"));
  EXPECT_EQ(ShortcutOf(kOneFolder, W("C:\\l\\a.lnk")), W("C:\\l\\a.lnk.lnk"));
  EXPECT_EQ(ShortcutOf(kFiles, W("C:\\l\\*")), W("C:\\l\\*.lnk"));
  EXPECT_EQ(ShortcutOf(kMixed, W("C:\\l\\*")), W("C:\\l\\*.lnk"));
}

TEST(CreateLinksForm, LeavingTheShortcutPutsTheNameOfTheOpeningBack) {
  for (const int kind : {1, 2, 3, CreateLinksForm::kNoKind}) {
    CreateLinksForm form = OpenedOn(4);
    ASSERT_EQ(form.linkText, W("C:\\links\\a.lnk"));
    form.linkText = W("C:\\links\\edited.lnk");
    Choose(form, kind);
    EXPECT_EQ(form.linkText, W("C:\\links\\a.txt")) << kind;
    EXPECT_FALSE(form.nameShownAsShortcut) << kind;
  }
}

TEST(CreateLinksForm, NameThatWasEditedGivesWayToThatOfTheShortcut) {
  CreateLinksForm form = OpenedOn(3);
  form.linkText = W("C:\\links\\edited.txt");
  Choose(form, 4);
  EXPECT_EQ(form.linkText, W("C:\\links\\a.lnk"));
}

TEST(CreateLinksForm, NameThatWasEditedStaysWhereNoShortcutNameIsShown) {
  CreateLinksForm form = OpenedOn(3);
  form.linkText = W("C:\\links\\edited.txt");
  for (const int kind : {1, 2, 3}) {
    Choose(form, kind);
    EXPECT_EQ(form.linkText, W("C:\\links\\edited.txt")) << kind;
  }
  form = FormOf(kOneFile, W("C:\\links\\bare"), W("C:\\view\\bare"));
  StartForm(form);
  form.linkText = W("C:\\links\\edited");
  for (const int kind : {4, 1}) {
    Choose(form, kind);
    EXPECT_EQ(form.linkText, W("C:\\links\\edited")) << kind;
  }
}

TEST(CreateLinksForm, EndTakesBothFieldsAndLeavesTheKind) {
  CreateLinksForm form = OpenedOn(3);
  form.linkText = W("D:\\x");
  form.targetText = W("E:\\y");
  FinishForm(form);
  EXPECT_EQ(form.linkName, W("D:\\x"));
  EXPECT_EQ(form.targetName, W("E:\\y"));
  EXPECT_EQ(form.linkKind, 3);
}

TEST(CreateLinksForm, EndTakesTheNameOfTheShortcut) {
  CreateLinksForm form = OpenedOn(4);
  FinishForm(form);
  EXPECT_EQ(form.linkName, W("C:\\links\\a.lnk"));
  EXPECT_EQ(form.targetName, W("C:\\view\\a.txt"));
}
