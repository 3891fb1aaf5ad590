#include "platform/posix/files/name_mask.h"

#include "platform/posix/text/upper_case.h"

namespace Platform {

namespace {

constexpr std::u16string_view kAnyExtension = u".*";

// Matches without the rule for ".*". On a mismatch it backtracks to the last "*" only, which then matches one
// character more.
bool MatchesMask(std::u16string_view mask, std::u16string_view name) {
  std::size_t maskAt = 0;
  std::size_t nameAt = 0;
  std::size_t star = mask.npos;
  std::size_t starName = 0;
  while (nameAt < name.size()) {
    if (maskAt < mask.size() && mask[maskAt] == u'*') {
      star = maskAt++;
      starName = nameAt;
    } else if (maskAt < mask.size() && (mask[maskAt] == u'?' || mask[maskAt] == UpperCase(name[nameAt]))) {
      ++maskAt;
      ++nameAt;
    } else if (star != mask.npos) {
      maskAt = star + 1;
      nameAt = ++starName;
    } else {
      return false;
    }
  }
  return mask.find_first_not_of(u'*', maskAt) == mask.npos;
}

}  // namespace

NameMask::NameMask(std::u16string_view mask) : mask_(mask) {
  for (char16_t& unit : mask_) unit = UpperCase(unit);
}

bool NameMask::Matches(std::u16string_view name) const {
  std::u16string_view mask = mask_;
  if (MatchesMask(mask, name)) return true;
  while (mask.size() > kAnyExtension.size() && mask.ends_with(kAnyExtension)) {
    mask.remove_suffix(kAnyExtension.size());
    if (MatchesMask(mask, name)) return true;
  }
  return false;
}

}  // namespace Platform
