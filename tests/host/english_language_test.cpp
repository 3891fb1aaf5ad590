// The English language table beside the program has a text for every id that the module requests.
#include <gmock/gmock.h>

#include <algorithm>
#include <set>

#include "filetools/control_panel_items.h"
#include "frame/menu_tree.h"
#include "frame/script_commands.h"
#include "frame/services/message_texts.h"
#include "host/services/language_table.h"
#include "host/services/module_registry.h"
#include "host/system/system_places.h"
#include "host/system/whole_file.h"
#include "multirename/form/panel_controls.h"

using namespace Velmora::SDK;
using QxHost::LanguageTable;
using QxHost::LanguageText;
using testing::IsEmpty;

namespace {

constexpr std::string_view kFileUtils = "QXUtils";
constexpr std::string_view kMultiRename = "QXMultiRename";

// Fails if two of the texts have the same access key. Texts without an access key are ignored.
void ExpectDifferentKeys(const std::vector<WString>& texts) {
  std::set<WCHAR> keys;
  for (const WString& text : texts) {
    const std::size_t mark = text.find(W('&'));
    if (mark == WString::npos) continue;
    ASSERT_LT(mark + 1, text.size()) << ToUtf8(text);
    const WCHAR key = text[mark + 1] < W('a') ? static_cast<WCHAR>(text[mark + 1] + 32) : text[mark + 1];
    EXPECT_TRUE(keys.insert(key).second) << ToUtf8(text);
  }
}

class EnglishLanguage : public testing::Test {
 protected:
  void SetUp() override {
    std::string bytes;
    ASSERT_EQ(QxHost::ReadWholeFile(QxHost::ProgramFolder() + W("\\english.language"), bytes), 0u);
    table_ = LanguageTable::Parse(bytes, warnings_);
  }

  WString First(TextId id, std::string_view section = kFileUtils) const {
    const LanguageText* const text = table_.Find(section, id);
    return text ? text->first : WString();
  }

  void ExpectText(TextId id) const { EXPECT_NE(First(id), W("")) << std::hex << "0x" << id; }
  void ExpectTip(TextId id) const {
    const LanguageText* const text = table_.Find(kFileUtils, id);
    EXPECT_TRUE(text && !text->second.empty()) << std::hex << "0x" << id;
  }

  std::vector<std::string> warnings_;
  LanguageTable table_;
};

TEST_F(EnglishLanguage, HasNoLineThatIsNone) { EXPECT_THAT(warnings_, IsEmpty()); }

TEST_F(EnglishLanguage, HasTextAndTipOfEveryMenuEntry) {
  ExpectText(kRootMenuText);
  ASSERT_FALSE(FileUtilsSubMenus().empty());
  for (const SubMenu& menu : FileUtilsSubMenus()) {
    ExpectText(menu.textId);
    for (const MenuEntry& entry : menu.entries) {
      if (entry.command == 0) continue;
      ExpectText(entry.textId);
      ExpectTip(entry.textId);
    }
  }
}

TEST_F(EnglishLanguage, HasTheControlPanelWithItsNames) {
  ExpectText(0x0A28006D);
  EXPECT_EQ(First(0x00C8006D, QxHost::kSystemModuleId), W("System"));
  ASSERT_EQ(ControlPanelCategories().size(), 9u);
  for (const ControlPanelCategory& category : ControlPanelCategories()) ExpectText(category.textId);
  ASSERT_EQ(ControlPanelItems().size(), 62u);
  for (const ControlPanelItem& item : ControlPanelItems()) EXPECT_EQ(First(item.textId), item.name);
}

TEST_F(EnglishLanguage, HasTheTextsOfQuestionsAndDialogs) {
  for (const MessageText id : kMessageTexts) ExpectText(id);
  for (const MessageText id : kMessageTitles) ExpectTip(id);
  EXPECT_NE(First(kCommonTextCancel, "common"), W(""));
}

TEST_F(EnglishLanguage, HasTheDescriptionsOfScriptCommands) {
  ASSERT_EQ(ScriptCommands().size(), 3u);
  for (const ScriptCommand& command : ScriptCommands()) {
    ExpectText(command.description);
    for (const ScriptParameter& parameter : command.parameters) ExpectText(parameter.description);
  }
}

TEST_F(EnglishLanguage, TheRenameQuestionHasExactlyOneCount) {
  const WString question = First(kTextRenameQuestion);
  EXPECT_NE(question.find(W("%d")), WString::npos);
  EXPECT_EQ(question.find(W('%')), question.rfind(W('%')));
}

TEST_F(EnglishLanguage, TheClosingTextsOfASortHaveExactlyOneCount) {
  for (const MessageText id : {kTextSortDone, kTextSortFailed}) {
    const WString text = First(id);
    EXPECT_EQ(text.find(W('%')), text.rfind(W('%'))) << std::hex << id;
    EXPECT_EQ(text.find(W('%')), text.find(id == kTextSortDone ? W("%s") : W("%d"))) << std::hex << id;
    EXPECT_NE(text.find(W('%')), WString::npos) << std::hex << id;
  }
}

TEST_F(EnglishLanguage, TheClosingTextsOfFindAndReplaceHaveTheirCounts) {
  for (const auto& [id, count] : {std::pair{kTextFindChanges, 1}, std::pair{kTextFindChangesIn, 2}}) {
    const WString text = First(id);
    EXPECT_EQ(std::ranges::count(text, W('%')), count) << std::hex << id;
    EXPECT_EQ(text.find(W('%')), text.find(W("%s"))) << std::hex << id;
    EXPECT_EQ(text.rfind(W('%')), text.rfind(W("%s"))) << std::hex << id;
  }
}

TEST_F(EnglishLanguage, ThePlaceOfAMatchHasFourNumbers) {
  WString text = First(kTextConfirmRange);
  EXPECT_EQ(std::ranges::count(text, W('%')), 4);
  for (int number = 0; number < 4; ++number) {
    const std::size_t at = text.find(W("%d"));
    ASSERT_NE(at, WString::npos);
    text.erase(at, 2);
  }
}

TEST_F(EnglishLanguage, TheKeysOfADialogDoNotClash) {
  const std::vector<std::vector<WString>> dialogs = {
      {First(kTextReplaceOk), First(kTextReplaceCancel), First(kTextReplaceFindLabel),
       First(kTextReplaceWithLabel), First(kTextReplacePartLabel)},
      {First(kTextSaveAs), First(kTextFileName), First(kTextIgnoreCase), First(kTextSortDlgOk),
       First(kTextSortDlgCancel)},
      {First(kTextSaveAs), First(kTextFileName), First(kTextIgnoreCase), First(kTextFindDlgFind),
       First(kTextFindDlgReplace), First(kTextFindDlgWildcard), First(kTextFindDlgForceUtf8),
       First(kTextFindDlgSilent), First(kTextFindDlgStart), First(kCommonTextCancel, "common")},
      {First(kTextConfirmReplace), First(kTextConfirmReplaceAll), First(kTextConfirmFindNext),
       First(kTextConfirmSwitch), First(kCommonTextCancel, "common")},
  };
  for (const std::vector<WString>& texts : dialogs) ExpectDifferentKeys(texts);
}

TEST_F(EnglishLanguage, HasTheTextsOfMultiRename) {
  for (const RenameTextId id : kRenameTexts)
    EXPECT_NE(First(id, kMultiRename), W("")) << std::hex << "0x" << id;
  for (const RenameCommonText id : kRenameCommonTexts)
    EXPECT_NE(First(id, "common"), W("")) << std::hex << "0x" << id;
  for (const ControlTextRow& tip : kPanelTips) {
    const LanguageText* const text = table_.Find(kMultiRename, tip.text);
    EXPECT_TRUE(text && !text->second.empty()) << std::hex << "0x" << tip.text;
  }
}

TEST_F(EnglishLanguage, TheFormatsOfMultiRenameHaveWhatIsFilledIn) {
  for (const auto& [id, conversion, count] :
       {std::tuple{kRenameTextRows, W("%d"), 1}, std::tuple{kRenameTextSelectedRows, W("%d"), 2},
        std::tuple{kRenameTextDeleteProfile, W("%s"), 1}}) {
    WString text = First(id, kMultiRename);
    EXPECT_EQ(std::ranges::count(text, W('%')), count) << std::hex << id;
    for (int number = 0; number < count; ++number) {
      const std::size_t at = text.find(conversion);
      ASSERT_NE(at, WString::npos) << std::hex << id;
      text.erase(at, 2);
    }
  }
}

TEST_F(EnglishLanguage, TheKeysOfMultiRenamesWindowsDoNotClash) {
  const auto of = [this](std::initializer_list<RenameTextId> ids) {
    std::vector<WString> texts;
    for (const RenameTextId id : ids) {
      texts.push_back(First(id, kMultiRename));
      EXPECT_NE(texts.back().find(W('&')), WString::npos) << ToUtf8(texts.back());
    }
    return texts;
  };
  std::vector<WString> panel =
      of({kRenameTextName, kRenameTextExtension, kRenameTextCase, kRenameTextStartAt, kRenameTextStepBy,
          kRenameTextDigits, kRenameTextRegex, kRenameTextReplaceAll, kRenameTextCaseSensitive,
          kRenameTextSaveUndo, kRenameTextLivePreview, kRenameTextReset, kRenameTextUndo, kRenameTextStart,
          kRenameTextClose});
  panel.push_back(First(kRenameCommonAdd, "common"));
  ExpectDifferentKeys(panel);
  std::vector<WString> tags =
      of({kRenameTextAddTagProperty, kRenameTextAddTagChosen, kRenameTextAddTagStart, kRenameTextAddTagLength,
          kRenameTextAddTagComplete, kRenameTextAddTagSubString, kRenameTextAddTagInsert});
  tags.push_back(First(kRenameCommonCancel, "common"));
  ExpectDifferentKeys(tags);
  std::vector<WString> pairs = of({kRenameTextPairsLabel});
  pairs.push_back(First(kRenameCommonOk, "common"));
  pairs.push_back(First(kRenameCommonCancel, "common"));
  ExpectDifferentKeys(pairs);
  ExpectDifferentKeys(
      of({kRenameTextUndoSessions, kRenameTextUndoDate, kRenameTextUndoFiles, kRenameTextUndoDelete,
          kRenameTextUndoDeleteAll, kRenameTextUndoLoad, kRenameTextUndoClose}));
}

TEST_F(EnglishLanguage, NoMenuTextHasTheSeparatorOfPaths) {
  for (const SubMenu& menu : FileUtilsSubMenus()) {
    EXPECT_EQ(First(menu.textId).find(W('/')), WString::npos);
    for (const MenuEntry& entry : menu.entries) EXPECT_EQ(First(entry.textId).find(W('/')), WString::npos);
  }
  for (const ControlPanelItem& item : ControlPanelItems()) {
    EXPECT_EQ(First(item.textId).find(W('/')), WString::npos);
  }
}

}  // namespace
