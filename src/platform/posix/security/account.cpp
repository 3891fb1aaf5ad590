#include "platform/posix/security/account.h"

#include <grp.h>
#include <pwd.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <chrono>
#include <climits>
#include <cstring>
#include <limits>
#include <map>
#include <memory>
#include <mutex>

#include "platform/ascii_case.h"
#include "platform/posix/files/name_encoding.h"

namespace Platform {

namespace {

constexpr BYTE kSidRevision = 1;
constexpr std::size_t kSidHeaderBytes = 8;
constexpr BYTE kMaxSubAuthorities = 15;
constexpr BYTE kWorldAuthority = 1;
constexpr BYTE kUnixAuthority = 22;
constexpr std::uint32_t kUnixUser = 1;
constexpr std::uint32_t kUnixGroup = 2;
constexpr std::u16string_view kEveryoneName = u"Everyone";

// Calls `look`, a function of the account database such as getpwuid_r, with a growing buffer, and passes the
// entry that it finds to `use`. Returns false if there is no entry.
template <typename Entry, typename Look, typename Use>
bool WithEntry(Look look, Use use) {
  constexpr std::size_t kMaxBytes = 1 << 20;
  Entry entry;
  Entry* found = nullptr;
  for (std::vector<char> buffer(1024);; buffer.resize(buffer.size() * 2)) {
    const int error = look(&entry, buffer.data(), buffer.size(), &found);
    if (error == ERANGE && buffer.size() < kMaxBytes) continue;
    if (found) use(*found);
    return found != nullptr;
  }
}

template <typename Use>
bool WithUser(uid_t id, Use use) {
  return WithEntry<passwd>([id](auto... rest) { return getpwuid_r(id, rest...); }, use);
}

// Caches names for a few seconds: each look-up opens and reads the account database again, and callers
// usually look up the same name several times. Windows caches names too, for minutes.
class RecentNames {
 public:
  std::optional<std::u16string> Find(const Account& account) {
    const std::lock_guard lock(mutex_);
    const auto found = names_.find(account);
    if (found == names_.end() || std::chrono::steady_clock::now() - found->second.asked > kKept)
      return std::nullopt;
    return found->second.name;
  }
  void Store(const Account& account, const std::u16string& name) {
    const std::lock_guard lock(mutex_);
    if (names_.size() >= kMaxNames) names_.clear();
    names_[account] = {name, std::chrono::steady_clock::now()};
  }

 private:
  static constexpr std::chrono::seconds kKept{5};
  static constexpr std::size_t kMaxNames = 1000;

  struct Kept {
    std::u16string name;
    std::chrono::steady_clock::time_point asked;
  };

  std::mutex mutex_;
  std::map<Account, Kept> names_;
};

std::string DatabaseName(const Account& account) {
  std::string name;
  if (account.kind == Account::kUser) {
    WithUser(account.id, [&name](const passwd& entry) { name = entry.pw_name; });
  } else {
    WithEntry<group>([&](auto... rest) { return getgrgid_r(account.id, rest...); },
                     [&name](const group& entry) { name = entry.gr_name; });
  }
  return name;
}

std::uint32_t NumberAt(std::span<const BYTE> bytes, std::size_t offset) {
  std::uint32_t number;
  std::memcpy(&number, bytes.data() + offset, sizeof number);
  return number;
}

void AppendNumber(std::vector<BYTE>& bytes, std::uint32_t number) {
  const auto* const begin = reinterpret_cast<const BYTE*>(&number);
  bytes.insert(bytes.end(), begin, begin + sizeof number);
}

std::vector<Account> GroupsOfUser(uid_t id) {
  std::vector<Account> accounts;
  WithUser(id, [&accounts](const passwd& entry) {
    int count = 64;
    std::vector<gid_t> groups(static_cast<std::size_t>(count));
    while (getgrouplist(entry.pw_name, entry.pw_gid, groups.data(), &count) < 0 &&
           static_cast<std::size_t>(count) > groups.size()) {
      groups.resize(static_cast<std::size_t>(count));
    }
    groups.resize(std::min(groups.size(), static_cast<std::size_t>(count)));
    for (const gid_t group : groups) accounts.push_back(GroupAccount(group));
  });
  return accounts;
}

bool IsEveryone(std::u16string_view name) {
  return std::equal(name.begin(), name.end(), kEveryoneName.begin(), kEveryoneName.end(),
                    [](char16_t lhs, char16_t rhs) { return AsciiLower(lhs) == AsciiLower(rhs); });
}

}  // namespace

std::vector<BYTE> SidOf(const Account& account) {
  const bool isEveryone = account.kind == Account::kEveryone;
  std::vector<BYTE> sid = {
      kSidRevision, BYTE(isEveryone ? 1 : 2), 0, 0, 0, 0, 0, isEveryone ? kWorldAuthority : kUnixAuthority};
  if (!isEveryone) AppendNumber(sid, account.kind == Account::kUser ? kUnixUser : kUnixGroup);
  AppendNumber(sid, account.id);
  return sid;
}

std::size_t SidSize(std::span<const BYTE> bytes) {
  if (bytes.size() < kSidHeaderBytes || bytes[0] != kSidRevision || bytes[1] > kMaxSubAuthorities) return 0;
  const std::size_t size = kSidHeaderBytes + bytes[1] * sizeof(std::uint32_t);
  return size <= bytes.size() ? size : 0;
}

std::size_t SidSize(const void* sid) {
  if (!sid) return 0;
  const auto* const header = static_cast<const BYTE*>(sid);
  if (header[0] != kSidRevision || header[1] > kMaxSubAuthorities) return 0;
  return kSidHeaderBytes + header[1] * sizeof(std::uint32_t);
}

std::optional<Account> AccountOfSid(std::span<const BYTE> sid) {
  if (SidSize(sid) == 0 || std::any_of(sid.begin() + 2, sid.begin() + 7, [](BYTE byte) { return byte != 0; }))
    return std::nullopt;
  if (sid[7] == kWorldAuthority && sid[1] == 1 && NumberAt(sid, kSidHeaderBytes) == 0)
    return kEveryoneAccount;
  if (sid[7] != kUnixAuthority || sid[1] != 2) return std::nullopt;
  const std::uint32_t id = NumberAt(sid, kSidHeaderBytes + sizeof(std::uint32_t));
  switch (NumberAt(sid, kSidHeaderBytes)) {
    case kUnixUser:
      return UserAccount(id);
    case kUnixGroup:
      return GroupAccount(id);
    default:
      return std::nullopt;
  }
}

std::vector<Account> WithMemberships(const Account& account) {
  std::vector<Account> accounts;
  if (account.kind == Account::kUser) accounts = GroupsOfUser(account.id);
  accounts.push_back(account);
  if (account != kEveryoneAccount) accounts.push_back(kEveryoneAccount);
  return accounts;
}

std::vector<Account> CurrentAccounts() {
  std::vector<Account> accounts = {UserAccount(geteuid()), GroupAccount(getegid()), kEveryoneAccount};
  std::vector<gid_t> groups(NGROUPS_MAX);
  const int count = getgroups(NGROUPS_MAX, groups.data());
  groups.resize(static_cast<std::size_t>(std::max(count, 0)));
  for (const gid_t group : groups) accounts.push_back(GroupAccount(group));
  return accounts;
}

std::u16string NameOf(const Account& account) {
  if (account.kind == Account::kEveryone) return std::u16string(kEveryoneName);
  // Never destroyed: threads may still look up names at the end of the process.
  static RecentNames& recent = *std::make_unique<RecentNames>().release();
  if (std::optional<std::u16string> known = recent.Find(account)) return *std::move(known);
  const std::string name = DatabaseName(account);
  std::u16string shown = WideName(name.empty() ? std::to_string(account.id) : name);
  recent.Store(account, shown);
  return shown;
}

std::optional<Account> AccountOfName(std::u16string_view name) {
  if (IsEveryone(name)) return kEveryoneAccount;
  const std::optional<std::string> native = NativeName(name);
  if (!native || native->empty() || native->find('\0') != std::string::npos) return std::nullopt;
  std::optional<Account> account;
  WithEntry<passwd>([&](auto... rest) { return getpwnam_r(native->c_str(), rest...); },
                    [&account](const passwd& entry) { account = UserAccount(entry.pw_uid); });
  if (account) return account;
  WithEntry<group>([&](auto... rest) { return getgrnam_r(native->c_str(), rest...); },
                   [&account](const group& entry) { account = GroupAccount(entry.gr_gid); });
  if (account) return account;
  // The highest number is not an id: to chown it means that the owner does not change.
  std::uint32_t id = 0;
  const char* const end = native->data() + native->size();
  const auto [last, error] = std::from_chars(native->data(), end, id);
  const bool isId = error == std::errc() && last == end && id != std::numeric_limits<std::uint32_t>::max();
  return isId ? std::optional(UserAccount(id)) : std::nullopt;
}

}  // namespace Platform
