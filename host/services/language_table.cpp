#include "host/services/language_table.h"

#include <charconv>
#include <optional>

namespace QxHost {
namespace {

using Velmora::SDK::TextId;

std::string_view TakeUpTo(std::string_view& rest, char end) {
  const std::size_t at = rest.find(end);
  const std::string_view taken = rest.substr(0, at);
  rest = at == std::string_view::npos ? std::string_view() : rest.substr(at + 1);
  return taken;
}

std::optional<TextId> ParseId(std::string_view text) {
  while (text.ends_with(' ')) text.remove_suffix(1);
  if (!text.starts_with("0x") && !text.starts_with("0X")) return std::nullopt;
  text.remove_prefix(2);
  TextId id = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), id, 16);
  if (error != std::errc() || end != text.data() + text.size()) return std::nullopt;
  return id;
}

// Resolves the escapes of a text. Returns std::nullopt for an invalid one, and for a text with a zero
// character, which would end it early.
std::optional<WString> ParseText(std::string_view text) {
  std::string plain;
  for (std::size_t at = 0; at < text.size(); ++at) {
    if (text[at] == '\0') return std::nullopt;
    if (text[at] != '\\') {
      plain += text[at];
      continue;
    }
    const char escaped = ++at < text.size() ? text[at] : '\0';
    switch (escaped) {
      case 'n':
        plain += '\n';
        break;
      case 't':
        plain += '\t';
        break;
      case '\\':
        plain += '\\';
        break;
      default:
        return std::nullopt;
    }
  }
  return FromUtf8(plain);
}

}  // namespace

LanguageTable LanguageTable::Parse(std::string_view bytes, std::vector<std::string>& warnings) {
  LanguageTable table;
  Section* section = nullptr;
  if (bytes.starts_with("\xEF\xBB\xBF")) bytes.remove_prefix(3);
  for (std::size_t number = 1; !bytes.empty(); ++number) {
    std::string_view line = TakeUpTo(bytes, '\n');
    if (line.ends_with('\r')) line.remove_suffix(1);
    const auto warn = [&](const char* what) { warnings.push_back(std::to_string(number) + ": " + what); };

    if (line.empty() || line.front() == '#') continue;
    if (line.front() == '[') {
      if (line.back() != ']' || line.size() == 2) {
        warn("a heading is a name in brackets");
        section = nullptr;  // ignore the texts of an invalid section rather than add them to the wrong module
        continue;
      }
      section = &table.sections_[std::string(line.substr(1, line.size() - 2))];
      continue;
    }
    if (!section) {
      warn("this text is not below a heading");
      continue;
    }
    const std::optional<TextId> id = ParseId(TakeUpTo(line, '\t'));
    if (!id) {
      warn("a line begins with an id such as 0x0834006D and a tab");
      continue;
    }
    const std::optional<WString> first = ParseText(TakeUpTo(line, '\t'));
    const std::optional<WString> second = ParseText(TakeUpTo(line, '\t'));
    if (!first || !second || !line.empty()) {
      warn("a line has one or two texts, and in them only the escapes \\n, \\t and \\\\");
      continue;
    }
    if (!section->emplace(*id, LanguageText{*first, *second}).second) {
      warn("this id has its text already");
    }
  }
  return table;
}

const LanguageText* LanguageTable::Find(std::string_view section, TextId id) const {
  const auto found = sections_.find(section);
  if (found == sections_.end()) return nullptr;
  const auto text = found->second.find(id);
  return text == found->second.end() ? nullptr : &text->second;
}

}  // namespace QxHost
