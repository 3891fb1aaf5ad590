#include "host/xml/xml_text.h"

#include <algorithm>
#include <optional>

#include "host/xml/xml_encoding.h"
#include "host/xml/xml_parser.h"

namespace QxHost {
namespace {

struct Entity {
  std::string_view name;
  char character;
};

constexpr Entity kEntities[] = {{"amp", '&'}, {"lt", '<'}, {"gt", '>'}, {"quot", '"'}, {"apos", '\''}};

const Entity* EntityOfName(std::string_view name) {
  const auto* const found = std::find_if(std::begin(kEntities), std::end(kEntities),
                                         [name](const Entity& entity) { return entity.name == name; });
  return found == std::end(kEntities) ? nullptr : found;
}

// Returns the text between "&" and ";" of the reference at the beginning of `text`; std::nullopt if it is not
// terminated.
std::optional<std::string_view> ReferenceAt(std::string_view text) {
  const std::size_t end = text.find_first_of(";&<\"' \t\r\n", 1);
  if (end == std::string_view::npos || text[end] != ';') return std::nullopt;
  return text.substr(1, end - 1);
}

// Returns the character of "#10" or "#xA"; std::nullopt if XML does not allow it.
std::optional<char32_t> NumberedCharacter(std::string_view reference) {
  if (!reference.starts_with('#')) return std::nullopt;
  const bool isHex = reference.starts_with("#x");
  reference.remove_prefix(isHex ? 2 : 1);
  if (reference.empty()) return std::nullopt;
  char32_t number = 0;
  for (const char digit : reference) {
    unsigned value = 16;
    if (digit >= '0' && digit <= '9') value = static_cast<unsigned>(digit - '0');
    if (isHex && digit >= 'a' && digit <= 'f') value = static_cast<unsigned>(digit - 'a' + 10);
    if (isHex && digit >= 'A' && digit <= 'F') value = static_cast<unsigned>(digit - 'A' + 10);
    if (value == 16) return std::nullopt;
    number = number * (isHex ? 16 : 10) + value;
    if (number > 0x10FFFF) return std::nullopt;
  }
  return IsXmlCharacter(number) ? std::optional(number) : std::nullopt;
}

enum class References { kResolved, kNone };

std::string Meaning(std::string_view raw, char lineEnd, char tab, References references) {
  const bool resolves = references == References::kResolved;
  std::string text;
  text.reserve(raw.size());
  for (std::size_t at = 0; at < raw.size(); ++at) {
    const char character = raw[at];
    if (character == '\r') {
      if (at + 1 < raw.size() && raw[at + 1] == '\n') ++at;
      text += lineEnd;
    } else if (character == '\n') {
      text += lineEnd;
    } else if (character == '\t') {
      text += tab;
    } else if (const auto reference =
                   resolves && character == '&' ? ReferenceAt(raw.substr(at)) : std::nullopt) {
      if (const Entity* const entity = EntityOfName(*reference)) {
        text += entity->character;
      } else if (const std::optional<char32_t> numbered = NumberedCharacter(*reference)) {
        AppendUtf8(text, *numbered);
      } else {
        text += raw.substr(at, reference->size() + 2);
      }
      at += reference->size() + 1;
    } else {
      text += character;
    }
  }
  return text;
}

// Returns the text in UTF-8 with each character in `special` replaced by a reference.
std::string Escape(WStringView text, std::string_view special) {
  static constexpr std::string_view kReplacement = "\xEF\xBF\xBD";
  std::string result;
  for (const char character : ToUtf8(text)) {
    const auto code = static_cast<unsigned char>(character);
    if (special.find(character) != std::string_view::npos) {
      result += "&#" + std::to_string(code) + ";";
    } else if (!IsXmlCharacter(code)) {
      result += kReplacement;
    } else {
      const auto* const entity = std::find_if(std::begin(kEntities), std::end(kEntities),
                                              [&](const Entity& e) { return e.character == character; });
      const bool isPlain = entity == std::end(kEntities) || character == '\'';
      result += isPlain ? std::string(1, character) : "&" + std::string(entity->name) + ";";
    }
  }
  // U+FFFE and U+FFFF are the only multi-byte characters that XML does not allow.
  for (const std::string_view none : {"\xEF\xBF\xBE", "\xEF\xBF\xBF"}) {
    for (std::size_t at = 0; (at = result.find(none, at)) != std::string::npos;) {
      result.replace(at, none.size(), kReplacement);
    }
  }
  return result;
}

}  // namespace

bool AreReferencesRight(std::string_view text, bool mayBeDeclared) {
  for (std::size_t at = 0; (at = text.find('&', at)) != std::string_view::npos; ++at) {
    const std::optional<std::string_view> reference = ReferenceAt(text.substr(at));
    if (!reference) return false;
    if (NumberedCharacter(*reference) || EntityOfName(*reference)) continue;
    if (!mayBeDeclared || !IsXmlName(*reference)) return false;
  }
  return true;
}

std::string TextMeaning(std::string_view raw) { return Meaning(raw, '\n', '\t', References::kResolved); }
std::string AttributeMeaning(std::string_view raw) { return Meaning(raw, ' ', ' ', References::kResolved); }

std::string CdataMeaning(std::string_view section) {
  section.remove_prefix(std::string_view("<![CDATA[").size());
  section.remove_suffix(std::string_view("]]>").size());
  return Meaning(section, '\n', '\t', References::kNone);
}

std::string XmlOfText(WStringView text) { return Escape(text, "\r"); }
std::string XmlOfAttribute(WStringView text) { return Escape(text, "\r\n\t"); }

}  // namespace QxHost
