#include "window/english_texts.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>

#include "frame/services/message_texts.h"
#include "host/language_table.h"
#include "window/program_folder.h"

namespace {

QxHost::LanguageTable ReadTable() {
  std::ifstream file(std::filesystem::path(ProgramFolder() + W("\\english.language")), std::ios::binary);
  EXPECT_TRUE(file) << "english.language must stand beside the program";
  const std::string bytes(std::istreambuf_iterator<char>(file), {});
  std::vector<std::string> warnings;
  return QxHost::LanguageTable::Parse(bytes, warnings);
}

}  // namespace

std::map<Velmora::SDK::TextId, WString> EnglishTexts() {
  const QxHost::LanguageTable table = ReadTable();
  std::map<Velmora::SDK::TextId, WString> texts;
  for (const Velmora::SDK::MessageText id : Velmora::SDK::kMessageTexts) {
    const QxHost::LanguageText* text = table.Find("QXUtils", id);
    EXPECT_NE(text, nullptr) << std::hex << id;
    if (text) texts[id] = text->first;
  }
  return texts;
}

std::map<Velmora::SDK::TextId, WString> LongTexts() {
  std::map<Velmora::SDK::TextId, WString> texts = EnglishTexts();
  for (auto& [id, text] : texts) {
    // Words of six letters.
    for (std::size_t more = (text.size() * 2 + 4) / 5; more > 0; --more)
      text += more % 7 == 0 ? W(' ') : W('n');
  }
  return texts;
}
