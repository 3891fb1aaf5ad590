// The settings store: which values are read back, and that no file is ever lost.
#include "host/services/settings.h"

#include <gmock/gmock.h>

#include <array>
#include <optional>

#include "host/services/lists.h"
#include "support/scratch_folder.h"

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

namespace QxHost {
namespace {

class SettingsTest : public testing::Test {
 protected:
  // Opens the store as the next run does.
  Settings& Open(std::string module = "QXUtils") {
    files_.emplace(scratch_.Path(W("config")), [this](const std::string& text) { warnings_ += text + "\n"; });
    return settings_.emplace(*files_, std::move(module));
  }

  std::optional<WString> Text(const WCHAR* section, const WCHAR* key) {
    std::array<WCHAR, 64> buffer{};
    if (!settings_->GetString(1, section, key, buffer.data(), 64)) return std::nullopt;
    return WString(buffer.data());
  }

  std::vector<WString> History(const WCHAR* key) {
    StringList* const list = StringList::Lend();
    list->Add(W("left over from before"));
    settings_->LoadStringList(key, list);
    std::vector<WString> texts = TextsOf(*list);
    list->Release();
    return texts;
  }

  void SaveHistory(const WCHAR* key, const std::vector<WString>& texts, u32 maximum) {
    StringList* const list = StringList::Lend();
    for (const WString& text : texts) list->Add(text.c_str());
    settings_->SaveStringList(key, list, maximum);
    list->Release();
  }

  ScratchFolder scratch_;
  std::string warnings_;
  std::optional<SettingsFiles> files_;
  std::optional<Settings> settings_;
};

TEST_F(SettingsTest, WhatWasStoredComesBackInTheNextRun) {
  const std::array<unsigned char, 4> block = {0, 0x7F, 0x80, 0xFF};
  Open().SetString(1, W("Sect"), W("text"), W("a\u00E4\n\"\\\U0001F600"));
  settings_->SetInt(1, W("Sect"), W("number"), 0xFFFFFFFF);
  settings_->SetBlock(1, W("Sect"), W("block"), block.data(), 4);
  files_->Save();

  Open();
  EXPECT_EQ(Text(W("Sect"), W("text")), W("a\u00E4\n\"\\\U0001F600"));
  u32 number = 0;
  EXPECT_TRUE(settings_->GetInt(1, W("Sect"), W("number"), &number));
  EXPECT_EQ(number, 0xFFFFFFFF);
  std::array<unsigned char, 4> read{};
  EXPECT_TRUE(settings_->GetBlock(1, W("Sect"), W("block"), read.data(), 4));
  EXPECT_EQ(read, block);
  EXPECT_EQ(warnings_, "");
}

TEST_F(SettingsTest, TheFileCanBeReadByAPerson) {
  Open().SetString(1, W("Sect"), W("text"), W("value"));
  settings_->SetInt(1, W("Sect"), W("number"), 5);
  const unsigned char byte = 0xAB;
  settings_->SetBlock(1, W("Sect"), W("block"), &byte, 1);
  files_->Save();
  EXPECT_EQ(scratch_.Read(W("config\\settings.json")),
            "{\n"
            "  \"QXUtils\": {\n"
            "    \"Sect\": {\n"
            "      \"block\": {\n"
            "        \"block\": \"AB\"\n"
            "      },\n"
            "      \"number\": 5,\n"
            "      \"text\": \"value\"\n"
            "    }\n"
            "  }\n"
            "}\n");
}

TEST_F(SettingsTest, ATextThatIsNoWellFormedUtf16IsKeptAsItIs) {
  const WString lone = {W('a'), static_cast<WCHAR>(0xD800), W('b')};
  Open().SetString(1, W("S"), W("k"), lone.c_str());
  SaveHistory(W("H"), {lone}, 20);
  files_->Save();
  Open();
  EXPECT_EQ(Text(W("S"), W("k")), lone);
  EXPECT_THAT(History(W("H")), ElementsAre(lone));
}

TEST_F(SettingsTest, WhatIsNotStoredLeavesTheBufferAlone) {
  std::array<WCHAR, 4> buffer = {W('x'), W('y')};
  u32 number = 77;
  EXPECT_FALSE(Open().GetString(1, W("S"), W("k"), buffer.data(), 4));
  EXPECT_FALSE(settings_->GetInt(1, W("S"), W("k"), &number));
  EXPECT_FALSE(settings_->GetBlock(1, W("S"), W("k"), buffer.data(), 4));
  EXPECT_EQ(buffer[0], W('x'));
  EXPECT_EQ(number, 77u);
}

TEST_F(SettingsTest, AValueOfAnotherKindIsNotThere) {
  u32 number = 77;
  Open().SetString(1, W("S"), W("text"), W("5"));
  settings_->SetInt(1, W("S"), W("number"), 5);
  EXPECT_FALSE(settings_->GetInt(1, W("S"), W("text"), &number));
  EXPECT_EQ(Text(W("S"), W("number")), std::nullopt);
  EXPECT_FALSE(settings_->GetBlock(1, W("S"), W("text"), &number, 4));
}

TEST_F(SettingsTest, ABlockOfAnotherSizeIsNotThere) {
  const u32 block = 1;
  std::array<unsigned char, 8> buffer{};
  Open().SetBlock(1, W("S"), W("k"), &block, 4);
  EXPECT_FALSE(settings_->GetBlock(1, W("S"), W("k"), buffer.data(), 8));
  EXPECT_FALSE(settings_->GetBlock(1, W("S"), W("k"), buffer.data(), 2));
  EXPECT_TRUE(settings_->GetBlock(1, W("S"), W("k"), buffer.data(), 4));
}

TEST_F(SettingsTest, ATextIsCutToTheBufferAndTerminated) {
  std::array<WCHAR, 3> buffer{};
  Open().SetString(1, W("S"), W("k"), W("abcdef"));
  EXPECT_TRUE(settings_->GetString(1, W("S"), W("k"), buffer.data(), 3));
  EXPECT_EQ(WString(buffer.data()), W("ab"));
  EXPECT_FALSE(settings_->GetString(1, W("S"), W("k"), buffer.data(), 0));
}

TEST_F(SettingsTest, ModulesDoNotSeeOneAnother) {
  Open("One").SetString(1, W("S"), W("k"), W("one"));
  files_->Save();
  Open("Two");
  EXPECT_EQ(Text(W("S"), W("k")), std::nullopt);
  settings_->SetString(1, W("S"), W("k"), W("two"));
  files_->Save();
  Open("One");
  EXPECT_EQ(Text(W("S"), W("k")), W("one"));
}

TEST_F(SettingsTest, AHistoryKeepsTheFirstTextsAndReplacesTheList) {
  Open();
  SaveHistory(W("H"), {W("new"), W("older"), W("oldest")}, 2);
  files_->Save();
  Open();
  EXPECT_THAT(History(W("H")), ElementsAre(W("new"), W("older")));
  EXPECT_THAT(History(W("none")), IsEmpty());
  SaveHistory(W("H"), {W("x")}, 0);
  EXPECT_THAT(History(W("H")), IsEmpty());
}

TEST_F(SettingsTest, NothingIsWrittenBeforeSaveNorWithoutAChange) {
  Open().SetInt(1, W("S"), W("k"), 1);
  EXPECT_FALSE(scratch_.Exists(W("config")));
  files_->Save();
  EXPECT_THAT(scratch_.Names(W("config")), ElementsAre(W("settings.json")));
}

TEST_F(SettingsTest, ADamagedFileIsKeptAndTheRunBeginsEmpty) {
  for (const std::string damage :
       {"", "{", "null", "[1]", R"({"M": {"S": 5}})", R"({"M": {"S": {"k": -1}}})",
        R"({"M": {"S": {"k": 1.5}}})", R"({"M": {"S": {"k": 4294967296}}})",
        R"({"M": {"S": {"k": {"block": "0"}}}})", R"({"M": {"S": {"k": {"block": "xx"}}}})",
        R"({"M": {"S": {"k": {"utf16": "00"}}}})", R"({"M": {"S": {"k": {"block": "00", "utf16": "0000"}}}})",
        "{\"a\": \"\xFF\"}"}) {
    const ScratchFolder scratch;
    scratch.Write(W("settings.json"), damage);
    std::string warnings;
    SettingsFiles files(scratch.Path(), [&](const std::string& text) { warnings += text; });
    Settings settings(files, "M");
    u32 number = 0;
    EXPECT_FALSE(settings.GetInt(1, W("S"), W("k"), &number)) << damage;
    settings.SetInt(1, W("S"), W("k"), 1);
    files.Save();
    EXPECT_THAT(warnings, HasSubstr("damaged")) << damage;
    EXPECT_EQ(scratch.Read(W("settings.json.damaged")), damage);
    EXPECT_THAT(scratch.Names(), ElementsAre(W("settings.json"), W("settings.json.damaged")));
  }
}

TEST_F(SettingsTest, DeepNestingIsDamageAndNoCrash) {
  scratch_.MakeFolder(W("config"));
  scratch_.Write(W("config\\settings.json"), std::string(1000000, '['));
  Open();
  EXPECT_EQ(Text(W("S"), W("k")), std::nullopt);
  EXPECT_THAT(warnings_, HasSubstr("damaged"));
}

TEST_F(SettingsTest, AFileThatCannotBeReadIsNotWrittenOver) {
  scratch_.MakeFolder(W("config\\settings.json"));
  Open().SetInt(1, W("S"), W("k"), 1);
  files_->Save();
  EXPECT_THAT(warnings_, HasSubstr("nothing will be saved there"));
  EXPECT_THAT(scratch_.Names(W("config")), ElementsAre(W("settings.json")));
}

TEST_F(SettingsTest, FailedSaveIsReported) {
  scratch_.Write(W("config"), "a file where the folder should be");
  Open().SetInt(1, W("S"), W("k"), 1);
  files_->Save();
  EXPECT_THAT(warnings_, HasSubstr("cannot save"));
  EXPECT_EQ(scratch_.Read(W("config")), "a file where the folder should be");
}

}  // namespace
}  // namespace QxHost
