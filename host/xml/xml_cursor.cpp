#include "host/xml/xml_cursor.h"

#include <algorithm>

#include "host/xml/xml_parser.h"

namespace QxHost {
namespace {

// Accepts all characters beyond ASCII in names, without checking that they are letters.
bool BeginsName(char character) {
  const auto byte = static_cast<unsigned char>(character);
  return (byte >= 'a' && byte <= 'z') || (byte >= 'A' && byte <= 'Z') || byte == '_' || byte == ':' ||
         byte >= 0x80;
}

bool IsInName(char character) {
  return BeginsName(character) || (character >= '0' && character <= '9') || character == '-' ||
         character == '.';
}

}  // namespace

bool IsXmlName(std::string_view name) {
  return !name.empty() && BeginsName(name.front()) && std::all_of(name.begin(), name.end(), IsInName);
}

bool XmlCursor::Take(std::string_view token) {
  if (!Sees(token)) return false;
  at_ += token.size();
  return true;
}

std::optional<std::string_view> XmlCursor::TakeUntil(std::string_view token) {
  const std::size_t found = text_.find(token, at_);
  if (found == std::string_view::npos) return std::nullopt;
  const std::string_view before = text_.substr(at_, found - at_);
  at_ = found + token.size();
  return before;
}

std::string_view XmlCursor::TakeUpTo(std::string_view stops) {
  const std::size_t begin = at_;
  at_ = std::min(text_.find_first_of(stops, at_), text_.size());
  return Since(begin);
}

bool XmlCursor::TakeBlanks() {
  const std::size_t begin = at_;
  at_ = std::min(text_.find_first_not_of(kXmlBlanks, at_), text_.size());
  return at_ != begin;
}

std::string_view XmlCursor::TakeName() {
  const std::size_t begin = at_;
  if (!BeginsName(Peek())) return {};
  while (!IsAtEnd() && IsInName(text_[at_])) ++at_;
  return Since(begin);
}

std::optional<XmlCursor::Pair> XmlCursor::TakePair() {
  const std::string_view name = TakeName();
  if (name.empty()) return std::nullopt;
  TakeBlanks();
  if (!Take("=")) return std::nullopt;
  TakeBlanks();
  const char quote = Peek();
  if (quote != '"' && quote != '\'') return std::nullopt;
  ++at_;
  const std::optional<std::string_view> value = TakeUntil({&quote, 1});
  if (!value) return std::nullopt;
  return Pair{name, *value, quote};
}

}  // namespace QxHost
