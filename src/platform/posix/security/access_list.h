// Lists of access entries as bytes: reading them within their bounds, building them, and what they grant.
#pragma once

#include <functional>
#include <optional>
#include <span>
#include <vector>

#include "platform/posix/security/account.h"
#include "platform/posix/security/security_types.h"

namespace Platform {

// One entry of a list, within it.
struct AccessEntry {
  ACE_HEADER header;
  std::size_t offset;  // from the beginning of the list
  ACCESS_MASK mask = 0;
  std::optional<Account> account;  // nothing, and no mask, for an entry that neither allows nor denies
};

// The entries of a list, in order. Nothing for one that is null, of a revision that there is not, or whose
// entries leave it.
std::optional<std::vector<AccessEntry>> EntriesOf(const ACL* list);

// Where the entries of a list end, from its beginning; nothing as above.
std::optional<std::size_t> BytesInUse(const ACL* list);

// The rights that the list grants to one who is all of `accounts`: each bit as the first entry that speaks of
// it says. Entries that are only there to be inherited say nothing. A null list grants everything.
ACCESS_MASK GrantedTo(const ACL* list, std::span<const Account> accounts);

// A list that is built entry by entry.
class AccessListBuilder {
 public:
  AccessListBuilder();
  // Leaves out an entry without rights.
  void Add(BYTE type, ACCESS_MASK mask, const Account& account);
  const std::vector<BYTE>& Bytes() const { return bytes_; }

 private:
  std::vector<BYTE> bytes_;
};

}  // namespace Platform
