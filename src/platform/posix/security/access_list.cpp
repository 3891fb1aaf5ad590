#include "platform/posix/security/access_list.h"

#include <algorithm>
#include <cstring>

namespace Platform {

namespace {

constexpr BYTE kLowestRevision = 2;
constexpr BYTE kHighestRevision = 4;
constexpr std::size_t kSidOffset = offsetof(ACCESS_ALLOWED_ACE, SidStart);

// The file rights that each generic right stands for.
struct GenericRow {
  ACCESS_MASK generic;
  ACCESS_MASK rights;
};
constexpr GenericRow kGenericRows[] = {
    {0x80000000, FILE_GENERIC_READ},
    {0x40000000, FILE_GENERIC_WRITE},
    {GENERIC_EXECUTE, FILE_GENERIC_EXECUTE},
    {GENERIC_ALL, FILE_ALL_ACCESS},
};

ACCESS_MASK FileRights(ACCESS_MASK mask) {
  for (const GenericRow& row : kGenericRows) {
    if ((mask & row.generic) != 0) mask = (mask & ~row.generic) | row.rights;
  }
  return mask;
}

AccessEntry ReadEntry(std::span<const BYTE> bytes, std::size_t offset) {
  AccessEntry entry{.header = {}, .offset = offset, .mask = 0, .account = {}};
  std::memcpy(&entry.header, bytes.data(), sizeof entry.header);
  const bool isKnown =
      entry.header.AceType == ACCESS_ALLOWED_ACE_TYPE || entry.header.AceType == ACCESS_DENIED_ACE_TYPE;
  if (!isKnown || bytes.size() < kSidOffset) return entry;
  std::memcpy(&entry.mask, bytes.data() + offsetof(ACCESS_ALLOWED_ACE, Mask), sizeof entry.mask);
  entry.account = AccountOfSid(bytes.subspan(kSidOffset));
  return entry;
}

}  // namespace

std::optional<std::vector<AccessEntry>> EntriesOf(const ACL* list) {
  if (!list || list->AclRevision < kLowestRevision || list->AclRevision > kHighestRevision ||
      list->AclSize < sizeof(ACL))
    return std::nullopt;
  const std::span<const BYTE> bytes(reinterpret_cast<const BYTE*>(list), list->AclSize);
  std::vector<AccessEntry> entries;
  std::size_t offset = sizeof(ACL);
  for (WORD index = 0; index < list->AceCount; ++index) {
    ACE_HEADER header;
    if (bytes.size() - offset < sizeof header) return std::nullopt;
    std::memcpy(&header, bytes.data() + offset, sizeof header);
    if (header.AceSize < sizeof header || header.AceSize > bytes.size() - offset) return std::nullopt;
    entries.push_back(ReadEntry(bytes.subspan(offset, header.AceSize), offset));
    offset += header.AceSize;
  }
  return entries;
}

std::optional<std::size_t> BytesInUse(const ACL* list) {
  const auto entries = EntriesOf(list);
  if (!entries) return std::nullopt;
  return entries->empty() ? sizeof(ACL) : entries->back().offset + entries->back().header.AceSize;
}

ACCESS_MASK GrantedTo(const ACL* list, std::span<const Account> accounts) {
  if (!list) return FILE_ALL_ACCESS;
  ACCESS_MASK granted = 0;
  ACCESS_MASK denied = 0;
  const auto entries = EntriesOf(list);
  if (!entries) return 0;
  for (const AccessEntry& entry : *entries) {
    if ((entry.header.AceFlags & INHERIT_ONLY_ACE) != 0 || !entry.account) continue;
    if (std::find(accounts.begin(), accounts.end(), *entry.account) == accounts.end()) continue;
    const bool allows = entry.header.AceType == ACCESS_ALLOWED_ACE_TYPE;
    ACCESS_MASK& said = allows ? granted : denied;
    said |= FileRights(entry.mask) & ~(allows ? denied : granted);
  }
  return granted;
}

AccessListBuilder::AccessListBuilder() : bytes_(sizeof(ACL)) {
  const ACL empty{.AclRevision = ACL_REVISION, .Sbz1 = 0, .AclSize = sizeof(ACL), .AceCount = 0, .Sbz2 = 0};
  std::memcpy(bytes_.data(), &empty, sizeof empty);
}

void AccessListBuilder::Add(BYTE type, ACCESS_MASK mask, const Account& account) {
  if (mask == 0) return;
  const std::vector<BYTE> sid = SidOf(account);
  const ACE_HEADER header{
      .AceType = type, .AceFlags = 0, .AceSize = static_cast<WORD>(kSidOffset + sid.size())};
  const std::size_t at = bytes_.size();
  bytes_.resize(at + header.AceSize);
  std::memcpy(bytes_.data() + at, &header, sizeof header);
  std::memcpy(bytes_.data() + at + offsetof(ACCESS_ALLOWED_ACE, Mask), &mask, sizeof mask);
  std::memcpy(bytes_.data() + at + kSidOffset, sid.data(), sid.size());
  ACL list;
  std::memcpy(&list, bytes_.data(), sizeof list);
  list.AclSize = static_cast<WORD>(bytes_.size());
  ++list.AceCount;
  std::memcpy(bytes_.data(), &list, sizeof list);
}

}  // namespace Platform
