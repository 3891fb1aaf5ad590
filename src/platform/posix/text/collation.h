// The order of texts in a language: ICU's collation, with a fast path for ASCII.
#pragma once

#include <array>
#include <cstdint>
#include <optional>

#include "platform/posix/text/unaligned_text.h"
#include "platform/posix/windows_functions.h"

struct UCollator;

namespace Platform {

// The options of an order of texts.
struct CollationRules {
  bool ignoresCase = false;
  bool digitsAsNumbers = false;
};

// An ICU collator with given options. Thread-safe.
class QX_PLATFORM_API Collation {
 public:
  // `locale` is an ICU locale name, such as "de_DE".
  Collation(const char* locale, const CollationRules& rules);
  Collation(const Collation&) = delete;
  Collation& operator=(const Collation&) = delete;
  ~Collation();

  // Returns false if ICU could not create the collator. Then no other function may be called.
  bool IsOpen() const { return collator_ != nullptr; }

  // Compare two texts. Return a number below 0, 0 or above 0. CompareAscii is the fast path: it returns
  // std::nullopt if it cannot decide, because it knows neither secondary differences nor contractions. CharT
  // is char or WCHAR.
  template <typename CharT>
  std::optional<int> CompareAscii(const UnalignedText<CharT>& lhs, const UnalignedText<CharT>& rhs) const;
  int Compare(const UnalignedText<WCHAR>& lhs, const UnalignedText<WCHAR>& rhs) const;

 private:
  static constexpr unsigned kAscii = 128;

  // Compares the numbers that begin at `begin` in both texts, which compare equal before it.
  template <typename CharT>
  std::optional<int> CompareNumbers(const UnalignedText<CharT>& lhs, const UnalignedText<CharT>& rhs,
                                    std::size_t begin) const;

  // Fills `places_`; leaves it empty if places cannot express how the language orders ASCII.
  void PlaceAscii();

  UCollator* collator_ = nullptr;
  bool digitsAsNumbers_ = false;
  // The rank of each ASCII character in the order of all of them, from 1; the same for both cases of a
  // letter; 0 for a character without a rank.
  std::array<std::uint8_t, kAscii> places_{};
};

// Returns the collation of the user's language, which lives until the process ends; null if ICU cannot create
// it. The language is that of the environment at the first call.
const Collation* UserCollation(const CollationRules& rules);

}  // namespace Platform
