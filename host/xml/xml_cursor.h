// A place in the text of an XML document that moves on as the text is understood.
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

  // Moves behind the token if it stands here.
  bool Take(std::string_view token);

  // Moves behind the next such token, and answers what stands before it. Nothing if there is none.
  std::optional<std::string_view> TakeUntil(std::string_view token);

  // What stands before the first of these characters, or all that is left.
  std::string_view TakeUpTo(std::string_view stops);

  // False if there are none.
  bool TakeBlanks();

  // Empty if no name stands here.
  std::string_view TakeName();

  // A name, "=" and a value in quotes.
  struct Pair {
    std::string_view name;
    std::string_view value;
    char quote;
  };
  std::optional<Pair> TakePair();

 private:
  std::string_view text_;
  std::size_t at_ = 0;
};

}  // namespace QxHost
