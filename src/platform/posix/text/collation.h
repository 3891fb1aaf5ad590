// The order of texts in a language: ICU's, with a short cut for ASCII.
#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "platform/posix/text/unaligned_text.h"
#include "platform/posix/windows_functions.h"

struct UCollator;

namespace Platform {

// What decides about an order of texts, besides the language.
struct CollationRules {
  bool ignoresCase = false;
  bool digitsAsNumbers = false;
};

// Made once and kept for good. Thread-safe.
class QX_PLATFORM_API Collation {
 public:
  // `locale` is a name of ICU's, "de_DE".
  Collation(const char* locale, const CollationRules& rules);
  Collation(const Collation&) = delete;
  Collation& operator=(const Collation&) = delete;
  ~Collation();

  // False if ICU could not make it; it is not to be used then.
  bool IsOpen() const { return collator_ != nullptr; }

  // Below 0, 0 or above 0. CompareAscii answers nothing where ASCII alone does not decide: it knows neither
  // secondary differences nor what letters become together. CharT is char or WCHAR.
  template <typename CharT>
  std::optional<int> CompareAscii(const UnalignedText<CharT>& lhs, const UnalignedText<CharT>& rhs) const;
  int Compare(const UnalignedText<WCHAR>& lhs, const UnalignedText<WCHAR>& rhs) const;

 private:
  static constexpr unsigned kAscii = 128;

  // The order of the numbers that begin at `begin` in both, the same before it.
  template <typename CharT>
  std::optional<int> CompareNumbers(const UnalignedText<CharT>& lhs, const UnalignedText<CharT>& rhs,
                                    std::size_t begin) const;

  // Fills the places; none if the language orders ASCII in a way that places do not tell.
  void PlaceAscii();

  UCollator* collator_ = nullptr;
  bool digitsAsNumbers_ = false;
  // The place of each ASCII character among them, the same for both cases of a letter; 0 for one that has
  // none.
  std::array<std::uint8_t, kAscii> places_{};
};

// The collation of the user's language; null if there is none. All texts of the process are ordered by the
// language that its environment named at the first call.
const Collation* UserCollation(const CollationRules& rules);

}  // namespace Platform
