// Access lists (ACLs) as bytes: reads them with bounds checks, builds them, and computes the rights that they
// grant.
#pragma once

#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "platform/posix/security/account.h"
#include "platform/posix/security/security_types.h"

namespace Platform {

// One entry of a list.
struct AccessEntry {
  ACE_HEADER header;
  std::size_t offset;  // from the beginning of the list
  ACCESS_MASK mask = 0;
  std::optional<Account> account;  // std::nullopt, with mask 0, if the entry neither allows nor denies
};

// Returns the entries of a list, in order; std::nullopt if the list is null, has an unknown revision, or has
// entries that exceed its size.
std::optional<std::vector<AccessEntry>> EntriesOf(const ACL* list);

// Returns the offset of the end of the entries, in bytes from the beginning of the list; std::nullopt as
// above.
std::optional<std::size_t> BytesInUse(const ACL* list);

// Returns the rights that the list grants to a user who is a member of all of `accounts`: the first
// applicable entry that contains a right decides whether it is granted. Inherit-only entries are ignored. A
// null list grants everything.
ACCESS_MASK GrantedTo(const ACL* list, std::span<const Account> accounts);

// Builds a list entry by entry.
class AccessListBuilder {
 public:
  AccessListBuilder();
  // Adds an entry at the end of the list. Does nothing if `mask` is 0.
  void Add(BYTE type, ACCESS_MASK mask, const Account& account);
  const std::vector<BYTE>& Bytes() const { return bytes_; }

 private:
  std::vector<BYTE> bytes_;
};

}  // namespace Platform
