// File masks.
#pragma once

#include <string>
#include <string_view>

namespace Platform {

// A mask with "*" for any characters and "?" for one, blind to case. ".*" at the end may also match nothing,
// so "*.*" is every name and "a.*" finds "a".
class NameMask {
 public:
  explicit NameMask(std::u16string_view mask);

  // In time that grows with the size of the name times that of the mask at most.
  bool Matches(std::u16string_view name) const;

 private:
  std::u16string mask_;  // upper case
};

inline bool HasWildcard(std::u16string_view text) { return text.find_first_of(u"*?") != text.npos; }

}  // namespace Platform
