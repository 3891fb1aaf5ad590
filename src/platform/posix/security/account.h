// Users, groups and everyone, and the SIDs that stand for them.
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

struct Account {
  enum Kind { kUser, kGroup, kEveryone };
  Kind kind = kEveryone;
  std::uint32_t id = 0;  // 0 for everyone

  friend auto operator<=>(const Account&, const Account&) = default;
};

inline Account UserAccount(uid_t id) { return {Account::kUser, id}; }
inline Account GroupAccount(gid_t id) { return {Account::kGroup, id}; }
inline constexpr Account kEveryoneAccount{};

// The bytes of a SID: the revision, the count of the numbers, six bytes of authority, the numbers.
std::vector<BYTE> SidOf(const Account& account);

// The size of the SID at the beginning of `bytes`; 0 if there is no whole one.
std::size_t SidSize(std::span<const BYTE> bytes);

// The size of a SID of which nothing is known but its address; 0 for null and for what is no SID.
std::size_t SidSize(const void* sid);

// Nothing for a SID that is none of the three kinds.
std::optional<Account> AccountOfSid(std::span<const BYTE> sid);

// The account and all that it is a member of: of a user its groups and everyone, of a group everyone.
std::vector<Account> WithMemberships(const Account& account);

// The effective user of the process with its groups, and everyone.
std::vector<Account> CurrentAccounts();

// The account's name, or its number if it has none; for some seconds the same, whatever the database says.
std::u16string NameOf(const Account& account);

// The user of this name; where there is none, the group; a number that is no name is the user of that id;
// "Everyone" in any case.
std::optional<Account> AccountOfName(std::u16string_view name);

}  // namespace Platform
