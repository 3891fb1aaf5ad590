#include "window/english_texts.h"

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <iterator>

#include "frame/services/message_texts.h"
#include "host/services/language_table.h"
#include "multirename/form/panel_controls.h"
#include "window/program_folder.h"

namespace {

QxHost::LanguageTable ReadTable() {
  std::ifstream file(std::filesystem::path(ProgramFolder() + W("\\english.language")), std::ios::binary);
  EXPECT_TRUE(file) << "english.language must stand beside the program";
  const std::string bytes(std::istreambuf_iterator<char>(file), {});
  std::vector<std::string> warnings;
  return QxHost::LanguageTable::Parse(bytes, warnings);
}

using Texts = std::map<Velmora::SDK::TextId, WString>;

// Returns the first or second texts of these ids in a section of the table.
template <typename Ids>
Texts ReadTexts(const char* section, const Ids& ids, WString QxHost::LanguageText::*which) {
  const QxHost::LanguageTable table = ReadTable();
  Texts texts;
  for (const Velmora::SDK::TextId id : ids) {
    const QxHost::LanguageText* text = table.Find(section, id);
    EXPECT_NE(text, nullptr) << std::hex << id;
    if (text) texts[id] = text->*which;
  }
  return texts;
}

Texts Titles() { return ReadTexts("QXUtils", Velmora::SDK::kMessageTitles, &QxHost::LanguageText::second); }

Texts CommonTexts() {
  return ReadTexts("common",
                   std::array{Velmora::SDK::kCommonTextCancel, Velmora::SDK::kCommonTextDescription},
                   &QxHost::LanguageText::first);
}

// The longest text that counts as a word or two; translations of these grow most.
constexpr std::size_t kMaxShortChars = 30;

Texts RenameTitles() {
  std::vector<Velmora::SDK::TextId> ids;
  for (const Velmora::SDK::ControlTextRow& row : Velmora::SDK::kPanelTips) ids.push_back(row.text);
  return ReadTexts("QXMultiRename", ids, &QxHost::LanguageText::second);
}

Texts Lengthened(Texts texts) {
  for (auto& [id, text] : texts) {
    // Words of six letters.
    const std::size_t longer = text.size() <= kMaxShortChars ? text.size() : (text.size() * 2 + 4) / 5;
    for (std::size_t more = longer; more > 0; --more) text += more % 7 == 0 ? W(' ') : W('n');
  }
  return texts;
}

}  // namespace

Texts EnglishTexts() {
  return ReadTexts("QXUtils", Velmora::SDK::kMessageTexts, &QxHost::LanguageText::first);
}

Texts LongTexts() { return Lengthened(EnglishTexts()); }

void SpeakEnglish(FakeHost& host) {
  host.texts = EnglishTexts();
  host.titles = Titles();
  host.commonTexts = CommonTexts();
}

void SpeakAtLength(FakeHost& host) {
  host.texts = LongTexts();
  host.titles = Lengthened(Titles());
  host.commonTexts = Lengthened(CommonTexts());
}

void SpeakRenameEnglish(FakeHost& host) {
  host.texts = ReadTexts("QXMultiRename", Velmora::SDK::kRenameTexts, &QxHost::LanguageText::first);
  host.titles = RenameTitles();
  host.commonTexts = ReadTexts("common", Velmora::SDK::kRenameCommonTexts, &QxHost::LanguageText::first);
}

void SpeakRenameAtLength(FakeHost& host) {
  SpeakRenameEnglish(host);
  for (Texts* const texts : {&host.texts, &host.titles, &host.commonTexts}) *texts = Lengthened(*texts);
}
