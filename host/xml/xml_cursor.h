// A position in the text of an XML document, which advances as the text is parsed.
#pragma once

#include <optional>
#include <string_view>

namespace QxHost {

class XmlCursor {
 public:
  explicit XmlCursor(std::string_view text) : text_(text) {}

  bool IsAtEnd() const { return at_ == text_.size(); }
  std::size_t At() const { return at_; }
  std::string_view Rest() const { return text_.substr(at_); }
  std::string_view Since(std::size_t begin) const { return text_.substr(begin, at_ - begin); }
  char Peek() const { return IsAtEnd() ? '\0' : text_[at_]; }
  bool Sees(std::string_view token) const { return Rest().starts_with(token); }

  // If the token is at this position, advances past it and returns true.
  bool Take(std::string_view token);

  // Advances past the next occurrence of the token and returns the text before it; std::nullopt if there is
  // none.
  std::optional<std::string_view> TakeUntil(std::string_view token);

  // Advances to the first of these characters, or to the end, and returns the text before it.
  std::string_view TakeUpTo(std::string_view stops);

  // Skips blanks. Returns false if no blank was skipped.
  bool TakeBlanks();

  // Advances past a name and returns it; empty if there is no name at this position.
  std::string_view TakeName();

  // A name and a quoted value, with "=" between them.
  struct Pair {
    std::string_view name;
    std::string_view value;
    char quote;
  };
  // Advances past a pair and returns it; std::nullopt if no pair begins at this position.
  std::optional<Pair> TakePair();

 private:
  std::string_view text_;
  std::size_t at_ = 0;
};

}  // namespace QxHost
