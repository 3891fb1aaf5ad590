#include "security/descriptor_bounds.h"

#include <cstring>

#include "security/memory_bounds.h"

namespace {

constexpr std::size_t kDescriptorHeaderBytes = 20;
constexpr std::size_t kSidHeaderBytes = 8;
constexpr std::size_t kSubAuthorityBytes = 4;
constexpr std::size_t kSubAuthorityCount = 1;  // offset of the count in a SID

// Returns whether `bytes` contains, at `place`, a complete part whose header stores its size in `size`.
// `place` need not be aligned.
template <typename Header, typename Size>
bool ContainsPart(std::span<const BYTE> bytes, const void* place, Size Header::*size) {
  const std::span<const std::byte> rest = MemoryFrom(std::as_bytes(bytes), place);
  Header header;
  if (rest.size() < sizeof header) return false;
  std::memcpy(&header, rest.data(), sizeof header);
  return header.*size >= sizeof header && rest.size() >= header.*size;
}

}  // namespace

bool ContainsDescriptor(std::span<const BYTE> bytes) { return bytes.size() >= kDescriptorHeaderBytes; }

bool ContainsSid(std::span<const BYTE> bytes, const void* sid) {
  const std::span<const std::byte> rest = MemoryFrom(std::as_bytes(bytes), sid);
  return rest.size() >= kSidHeaderBytes &&
         rest.size() >=
             kSidHeaderBytes + std::to_integer<std::size_t>(rest[kSubAuthorityCount]) * kSubAuthorityBytes;
}

bool ContainsList(std::span<const BYTE> bytes, const ACL* list) {
  return ContainsPart(bytes, list, &ACL::AclSize);
}

bool ContainsEntry(const ACL* list, DWORD used, const ACE_HEADER* entry) {
  return ContainsPart({reinterpret_cast<const BYTE*>(list), used}, entry, &ACE_HEADER::AceSize);
}
