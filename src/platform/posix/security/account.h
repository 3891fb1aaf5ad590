// Users, groups and everyone, and their SIDs.
#pragma once

#include <sys/types.h>

#include <array>
#include <compare>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

#include "platform/posix/security/security_types.h"

namespace Platform {

// A user, a group, or everyone.
struct Account {
  enum Kind { kUser, kGroup, kEveryone };
  Kind kind = kEveryone;
  std::uint32_t id = 0;  // 0 for everyone

  friend auto operator<=>(const Account&, const Account&) = default;
};

inline Account UserAccount(uid_t id) { return {Account::kUser, id}; }
inline Account GroupAccount(gid_t id) { return {Account::kGroup, id}; }
inline constexpr Account kEveryoneAccount{};

// Returns the bytes of the account's SID: the revision, the number of sub-authorities, six bytes of
// authority, the sub-authorities.
std::vector<BYTE> SidOf(const Account& account);

// Returns the size of the SID at the beginning of `bytes`; 0 if there is no complete SID.
std::size_t SidSize(std::span<const BYTE> bytes);

// Returns the size of the SID at `sid`, from its header; 0 for null and for an invalid header. Cannot check
// that the memory is large enough.
std::size_t SidSize(const void* sid);

// Returns the account of a SID; std::nullopt if the SID is not that of a user, a group or everyone.
std::optional<Account> AccountOfSid(std::span<const BYTE> sid);

// Returns the account and all groups that it is a member of: for a user its groups and everyone, for a group
// everyone.
std::vector<Account> WithMemberships(const Account& account);

// Returns the effective user of the process, its groups, and everyone.
std::vector<Account> CurrentAccounts();

// Returns the account's name, or its number if it has no name. The result is cached for some seconds, so it
// may be out of date.
std::u16string NameOf(const Account& account);

// Returns the account of a name: everyone for "Everyone" in any letter case, else the user of that name, else
// the group, else, for a decimal number, the user with that id.
std::optional<Account> AccountOfName(std::u16string_view name);

}  // namespace Platform
