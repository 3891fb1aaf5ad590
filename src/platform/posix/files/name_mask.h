// File masks.
#pragma once

#include <string>
#include <string_view>

namespace Platform {

// A case-insensitive mask: "*" matches any sequence of characters and "?" exactly one. ".*" at the end may
// also match nothing, so "*.*" matches every name and "a.*" matches "a".
class NameMask {
 public:
  explicit NameMask(std::u16string_view mask);

  // Takes time proportional to the size of the name times that of the mask at worst.
  bool Matches(std::u16string_view name) const;

 private:
  std::u16string mask_;  // upper case
};

inline bool HasWildcard(std::u16string_view text) { return text.find_first_of(u"*?") != text.npos; }

}  // namespace Platform
