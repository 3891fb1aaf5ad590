#include "filetools/mime_header.h"

namespace {

constexpr std::string_view kFirstWords = "MIME-Version";
constexpr std::string_view kNameWords = "name=\"";

// The range of line numbers in which the empty line at the end of a header may be (C-426). In a header of
// this module it is the fifth line.
constexpr int kFirstEndLine = 4;
constexpr int kLastEndLine = 10;

std::optional<std::string_view> NameIn(std::string_view line) {
  const std::size_t words = line.find(kNameWords);
  if (words == line.npos) return std::nullopt;
  const std::string_view rest = line.substr(words + kNameWords.size());
  const std::size_t quote = rest.find('"');
  if (quote == rest.npos) return std::nullopt;
  return rest.substr(0, quote);
}

}  // namespace

std::optional<std::string_view> HeaderLines::Next() {
  if (isInvalid_ || offset_ >= text_.size()) return std::nullopt;
  const std::string_view rest = text_.substr(offset_);
  const std::size_t length = rest.find_first_of("\r\n");
  const std::string_view line = rest.substr(0, length);
  if (length == rest.npos) {
    offset_ = text_.size();
  } else if (rest[length] == '\n') {
    offset_ += length + 1;
  } else if (rest.substr(length).starts_with("\r\n")) {
    offset_ += length + 2;
  } else {
    isInvalid_ = true;
  }
  return line;
}

std::optional<std::string_view> FindEncodedName(std::string_view header) {
  HeaderLines lines(header);
  const std::optional<std::string_view> first = lines.Next();
  if (!first || first->find(kFirstWords) == first->npos) return std::nullopt;
  while (const std::optional<std::string_view> line = lines.Next()) {
    if (const std::optional<std::string_view> name = NameIn(*line)) return name;
  }
  return std::nullopt;
}

std::size_t FindHeaderEnd(std::string_view head) {
  HeaderLines lines(head);
  for (int number = 1; number <= kLastEndLine; ++number) {
    const std::optional<std::string_view> line = lines.Next();
    if (!line) return 0;
    if (line->empty() && number >= kFirstEndLine) return lines.Offset().value_or(0);
  }
  return 0;
}
