// Regular expressions of the standard library (ECMAScript) with bounded time and stack use, for expressions
// that a user enters.
//
// The library's matcher recurses for each character and may try exponentially many paths. Here it runs over
// an iterator that counts the matcher's steps and checks the stack. Expressions whose compilation would
// recurse too deeply or create too many states are refused before the library compiles them.
//
// Letters and character classes are those of the "C" locale.
#pragma once

#include <optional>
#include <regex>
#include <string>

#include "multirename/rules/simple_expression.h"
#include "platform/text.h"

namespace Velmora::SDK {

// The limits of one Replace. Any search for which a user would wait stays below both.
constexpr std::uint32_t kMaxRegexSteps = 1'000'000;
constexpr std::size_t kMaxRegexStack = 256 * 1024;  // bytes

// Thrown for an expression that is refused before it is compiled: too long, too deeply nested, or with too
// many repetitions.
class RegexRefusal final : public std::regex_error {
 public:
  explicit RegexRefusal(const char* text)
      : std::regex_error(std::regex_constants::error_complexity), text_(text) {}
  const char* what() const noexcept override { return text_; }

 private:
  const char* text_;  // a literal
};

// Returns the text to compile for this expression: the expression itself, with an empty look-ahead inserted
// before each back reference so that every attempt to match the reference counts as a step. Throws
// std::regex_error for the number of a back reference with more than 5 digits. Throws RegexRefusal for more
// than 1024 characters, more than 50 nested groups, a count with more than 5 digits, more than 200
// alternatives, or more than 10,000 states.
//
// A character or a set counts as one state, an escape as 2, a back reference as 8, "|" as 3, and a group as
// its contents and 4 more. A repeated atom with s states counts as t * (s + 3) states, where t is n for {n},
// n + 1 for {n,}, the greater of n + 1 and m for {n,m}, and 1 for "*", "+" and "?". The number of
// alternatives in a repeated atom is multiplied by t as well.
std::wstring CheckedExpression(WStringView expression);

class BoundedRegex {
 public:
  // kFast matches simple expressions (simple_expression.h) without the library's matcher, with the same
  // results. Use it if one expression is applied to many texts.
  enum class Matcher { kLibrary, kFast };

  // Throws std::regex_error with the library's text for an invalid expression, and RegexRefusal.
  BoundedRegex(WStringView expression, bool ignoreCase, Matcher matcher = Matcher::kLibrary);

  // Replaces every match by `format` ($&, $1 to $99, $`, $', $$) and stores the whole text in `result`, cut
  // at `most` characters. Returns false, with `result` unspecified, if there is no match. Throws
  // std::regex_error with error_complexity or error_stack if the search exceeds the limits. With kFast, only
  // one thread may call it at a time.
  bool Replace(WStringView text, const std::wstring& format, std::size_t most, WString& result) const;

 private:
  bool ReplaceByLibrary(WStringView text, const std::wstring& format, std::size_t most,
                        WString& result) const;

  std::wregex regex_;
  std::optional<SimpleExpression> simple_;
};

}  // namespace Velmora::SDK
