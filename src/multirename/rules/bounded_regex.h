// Regular expressions of the standard library (ECMAScript) that can neither hang nor overflow the stack,
// whatever a user types.
//
// The library's matcher calls itself for each character and may try paths without number. It runs here over
// an iterator that counts the matcher's steps and looks at the stack. Expressions whose compilation would
// call itself too deeply or grow without bound are refused before the library sees them.
//
// Letters and classes of characters are those of the "C" locale.
#pragma once

#include <optional>
#include <regex>
#include <string>

#include "multirename/rules/simple_expression.h"
#include "platform/text.h"

namespace Velmora::SDK {

// The most that one Replace may take. Both are beyond any search that a person waits for.
constexpr std::uint32_t kMostRegexSteps = 1'000'000;
constexpr std::size_t kMostRegexStack = 256 * 1024;  // bytes

// An expression that is refused before it is compiled: too long, too deeply nested, too many repeats.
class RegexRefusal final : public std::regex_error {
 public:
  explicit RegexRefusal(const char* text)
      : std::regex_error(std::regex_constants::error_complexity), text_(text) {}
  const char* what() const noexcept override { return text_; }

 private:
  const char* text_;  // a literal
};

// What the library may be given for this expression: the expression itself, but for back references, which
// get a look-ahead at nothing before them so that each of their attempts is a step that is counted. Throws
// RegexRefusal for more than 1024 characters, 50 groups in one another, a count of more than 5 digits, 200
// alternatives, or 10,000 states. A character or a set counts as one state, an escape as 2, a back reference
// as 8, "|" as 3, a group as 4 more than what is in it. A repeated atom counts as often as it may be there,
// or once more than it must be if that is more or there is no limit, and as 3 more each time; so do
// alternatives.
std::wstring CheckedExpression(WStringView expression);

class BoundedRegex {
 public:
  // kFast matches simple expressions (simple_expression.h) without the library's matcher, with the same
  // results; it pays where one expression meets many texts.
  enum class Matcher { kLibrary, kFast };

  // Throws std::regex_error with the library's text for what is no expression, and RegexRefusal.
  BoundedRegex(WStringView expression, bool ignoreCase, Matcher matcher = Matcher::kLibrary);

  // Replaces every match by `format` ($&, $1 to $99, $`, $', $$) and stores the whole in `result`, cut at
  // `most` characters. False, with `result` of no meaning, if there is no match. Throws std::regex_error,
  // error_complexity or error_stack, for what takes too many steps or too much stack. With kFast for one
  // thread at a time.
  bool Replace(WStringView text, const std::wstring& format, std::size_t most, WString& result) const;

 private:
  bool ReplaceByLibrary(WStringView text, const std::wstring& format, std::size_t most,
                        WString& result) const;

  std::wregex regex_;
  std::optional<SimpleExpression> simple_;
};

}  // namespace Velmora::SDK
