#include "security/descriptor_bounds.h"

#include <cstdint>

namespace {

constexpr std::size_t kSidHeaderBytes = 8;
constexpr std::size_t kSubAuthorityBytes = 4;
constexpr std::size_t kSubAuthorityCount = 1;  // where a SID says how many there are

// The bytes from `place` on; none if it does not lie among them.
std::span<const BYTE> BytesFrom(std::span<const BYTE> bytes, const void* place) {
  const auto begin = reinterpret_cast<std::uintptr_t>(bytes.data());
  const auto at = reinterpret_cast<std::uintptr_t>(place);
  if (at < begin || at - begin > bytes.size()) return {};
  return bytes.subspan(at - begin);
}

}  // namespace

bool HoldsSid(std::span<const BYTE> bytes, const void* sid) {
  const std::span<const BYTE> rest = BytesFrom(bytes, sid);
  return rest.size() >= kSidHeaderBytes &&
         rest.size() >= kSidHeaderBytes + rest[kSubAuthorityCount] * kSubAuthorityBytes;
}

bool HoldsList(std::span<const BYTE> bytes, const ACL* list) {
  const std::span<const BYTE> rest = BytesFrom(bytes, list);
  return rest.size() >= sizeof(ACL) && list->AclSize >= sizeof(ACL) && rest.size() >= list->AclSize;
}

bool HoldsEntry(const ACL* list, DWORD used, const ACE_HEADER* entry) {
  const std::span<const BYTE> bytes(reinterpret_cast<const BYTE*>(list), used);
  const std::span<const BYTE> rest = BytesFrom(bytes, entry);
  return rest.size() >= sizeof(ACE_HEADER) && entry->AceSize >= sizeof(ACE_HEADER) &&
         rest.size() >= entry->AceSize;
}
