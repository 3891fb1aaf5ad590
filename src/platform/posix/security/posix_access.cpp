#include "platform/posix/security/posix_access.h"

#include <acl/libacl.h>
#include <sys/acl.h>
#include <sys/xattr.h>

#include <algorithm>
#include <cerrno>
#include <memory>

#include "platform/posix/security/access_list.h"

namespace Platform {

namespace {

struct FreeAcl {
  void operator()(void* memory) const { acl_free(memory); }
};
using OwnedAcl = std::unique_ptr<std::remove_pointer_t<acl_t>, FreeAcl>;

struct RightRow {
  mode_t bit;  // in the "others" class of a mode
  acl_perm_t permission;
  ACCESS_MASK rights;    // that an access list grants for the bit
  ACCESS_MASK required;  // that an access list must grant for the bit to be set
};

constexpr RightRow kRights[] = {
    {S_IROTH, ACL_READ, FILE_GENERIC_READ, FILE_READ_DATA},
    {S_IWOTH, ACL_WRITE, FILE_GENERIC_WRITE, FILE_WRITE_DATA | FILE_APPEND_DATA},
    {S_IXOTH, ACL_EXECUTE, FILE_GENERIC_EXECUTE, FILE_EXECUTE},
};

constexpr char kPosixListAttribute[] = "system.posix_acl_access";

// Returns whether the file has a POSIX access list besides its mode. Makes one system call, where libacl
// makes two.
bool HasPosixList(const std::string& path) {
  return getxattr(path.c_str(), kPosixListAttribute, nullptr, 0) > 0;
}

// Returns whether the file system does not support POSIX access lists.
bool HasOnlyMode(const std::string& path) {
  return getxattr(path.c_str(), kPosixListAttribute, nullptr, 0) < 0 && errno == EOPNOTSUPP;
}

constexpr int kOwnerShift = 6;
constexpr int kGroupShift = 3;

// Returns the rights of `bits`, which are bits of the "others" class.
ACCESS_MASK RightsOf(mode_t bits) {
  ACCESS_MASK rights = 0;
  for (const RightRow& row : kRights) {
    if ((bits & row.bit) != 0) rights |= row.rights;
  }
  return rights;
}

mode_t BitsOf(ACCESS_MASK granted) {
  mode_t bits = 0;
  for (const RightRow& row : kRights) {
    if ((granted & row.required) == row.required) bits |= row.bit;
  }
  return bits;
}

struct Grant {
  Account account;
  mode_t bits;

  friend auto operator<=>(const Grant&, const Grant&) = default;
};

// The permission bits of each class.
struct Classes {
  mode_t owner = 0;
  std::vector<Grant> users;
  std::vector<Grant> groups;  // the file's own first
  mode_t others = 0;
};

Classes ClassesOfMode(const struct stat& status) {
  const auto bits = [&status](int shift) { return (status.st_mode >> shift) & 07u; };
  return {bits(kOwnerShift), {}, {{GroupAccount(status.st_gid), bits(kGroupShift)}}, bits(0)};
}

mode_t BitsOf(acl_entry_t entry) {
  acl_permset_t permissions;
  mode_t bits = 0;
  if (acl_get_permset(entry, &permissions) != 0) return bits;
  for (const RightRow& row : kRights) {
    if (acl_get_perm(permissions, row.permission) == 1) bits |= row.bit;
  }
  return bits;
}

void TakeEntry(acl_entry_t entry, const struct stat& status, Classes& classes, mode_t& mask) {
  acl_tag_t tag;
  if (acl_get_tag_type(entry, &tag) != 0) return;
  const mode_t bits = BitsOf(entry);
  const auto id = [entry] {
    const std::unique_ptr<void, FreeAcl> qualifier(acl_get_qualifier(entry));
    return qualifier ? *static_cast<const id_t*>(qualifier.get()) : id_t{};
  };
  switch (tag) {
    case ACL_USER_OBJ:
      classes.owner = bits;
      break;
    case ACL_USER:
      classes.users.push_back({UserAccount(id()), bits});
      break;
    case ACL_GROUP_OBJ:
      classes.groups.insert(classes.groups.begin(), {GroupAccount(status.st_gid), bits});
      break;
    case ACL_GROUP:
      classes.groups.push_back({GroupAccount(id()), bits});
      break;
    case ACL_MASK:
      mask = bits;
      break;
    case ACL_OTHER:
      classes.others = bits;
      break;
    default:
      break;
  }
}

Classes ReadClasses(const std::string& path, const struct stat& status) {
  if (!HasPosixList(path)) return ClassesOfMode(status);
  const OwnedAcl acl(acl_get_file(path.c_str(), ACL_TYPE_ACCESS));
  if (!acl) return ClassesOfMode(status);
  Classes classes;
  mode_t mask = S_IRWXO;
  acl_entry_t entry;
  for (int which = ACL_FIRST_ENTRY; acl_get_entry(acl.get(), which, &entry) == 1; which = ACL_NEXT_ENTRY) {
    TakeEntry(entry, status, classes, mask);
  }
  for (Grant& grant : classes.users) grant.bits &= mask;
  for (Grant& grant : classes.groups) grant.bits &= mask;
  return classes;
}

bool AddEntry(acl_t& acl, acl_tag_t tag, std::uint32_t id, mode_t bits) {
  acl_entry_t entry;
  acl_permset_t permissions;
  if (acl_create_entry(&acl, &entry) != 0 || acl_set_tag_type(entry, tag) != 0 ||
      acl_get_permset(entry, &permissions) != 0)
    return false;
  const id_t qualifier = id;
  if ((tag == ACL_USER || tag == ACL_GROUP) && acl_set_qualifier(entry, &qualifier) != 0) return false;
  for (const RightRow& row : kRights) {
    if ((bits & row.bit) != 0 && acl_add_perm(permissions, row.permission) != 0) return false;
  }
  return true;
}

bool AddEntries(acl_t& acl, acl_tag_t tag, std::span<const Grant> grants) {
  return std::all_of(grants.begin(), grants.end(),
                     [&](const Grant& grant) { return AddEntry(acl, tag, grant.account.id, grant.bits); });
}

// Sets mode and POSIX access list from the classes. Returns 0 or an errno value.
int WriteClasses(const std::string& path, const struct stat& status, const Classes& classes) {
  const std::span<const Grant> namedGroups = std::span(classes.groups).subspan(1);
  acl_t acl = acl_init(static_cast<int>(5 + classes.users.size() + classes.groups.size()));
  if (!acl) return errno;
  const bool isBuilt =
      AddEntry(acl, ACL_USER_OBJ, 0, classes.owner) && AddEntries(acl, ACL_USER, classes.users) &&
      AddEntry(acl, ACL_GROUP_OBJ, 0, classes.groups.front().bits) &&
      AddEntries(acl, ACL_GROUP, namedGroups) && AddEntry(acl, ACL_OTHER, 0, classes.others) &&
      ((classes.users.empty() && namedGroups.empty()) || acl_calc_mask(&acl) == 0);
  const int buildError = errno;
  const OwnedAcl owned(acl);
  if (!isBuilt) return buildError;
  if (acl_set_file(path.c_str(), ACL_TYPE_ACCESS, acl) == 0) return 0;
  if (errno != EOPNOTSUPP) return errno;
  // The file system does not support POSIX access lists: set the mode.
  const mode_t mode = (status.st_mode & static_cast<mode_t>(07000)) | (classes.owner << kOwnerShift) |
                      (classes.groups.front().bits << kGroupShift) | classes.others;
  return chmod(path.c_str(), mode) == 0 ? 0 : errno;
}

// Returns what a list grants to the owner, the group, everyone, and each user and group that it names.
Classes ClassesOfList(const ACL* list, const struct stat& status) {
  const std::vector<AccessEntry> entries = EntriesOf(list).value_or(std::vector<AccessEntry>());
  // Looking up the groups of users is slow and needed only if the list names groups.
  const bool namesGroups = std::ranges::any_of(entries, [](const AccessEntry& entry) {
    return entry.account && entry.account->kind == Account::kGroup;
  });
  const auto bits = [&](const Account& account) {
    const std::vector<Account> memberships =
        namesGroups ? WithMemberships(account) : std::vector<Account>{account, kEveryoneAccount};
    return BitsOf(GrantedTo(list, memberships));
  };
  const Account group = GroupAccount(status.st_gid);
  Classes classes{bits(UserAccount(status.st_uid)), {}, {{group, bits(group)}}, bits(kEveryoneAccount)};
  for (const AccessEntry& entry : entries) {
    if (!entry.account || (entry.header.AceFlags & INHERIT_ONLY_ACE) != 0) continue;
    const Account& account = *entry.account;
    const bool isUser = account.kind == Account::kUser;
    if (account == kEveryoneAccount || account == UserAccount(status.st_uid)) continue;
    std::vector<Grant>& grants = isUser ? classes.users : classes.groups;
    if (std::ranges::find(grants, account, &Grant::account) != grants.end()) continue;
    grants.push_back({account, bits(account)});
  }
  return classes;
}

// Compares two Classes, ignoring the order of named users and groups, which the system does not preserve.
bool AreEqual(Classes first, Classes second) {
  for (Classes* const classes : {&first, &second}) {
    std::ranges::sort(classes->users);
    std::ranges::sort(classes->groups.begin() + 1, classes->groups.end());
  }
  return first.owner == second.owner && first.users == second.users && first.groups == second.groups &&
         first.others == second.others;
}

}  // namespace

std::string PosixAccess(const std::string& path) {
  if (!HasPosixList(path)) return {};
  const OwnedAcl acl(acl_get_file(path.c_str(), ACL_TYPE_ACCESS));
  const std::unique_ptr<char, FreeAcl> text(
      acl ? acl_to_any_text(acl.get(), nullptr, ',', TEXT_ABBREVIATE | TEXT_NUMERIC_IDS) : nullptr);
  return text ? text.get() : "";
}

std::vector<BYTE> ListOfPosixAccess(const std::string& path, const struct stat& status) {
  const Classes classes = ReadClasses(path, status);
  const ACCESS_MASK others = RightsOf(classes.others);
  ACCESS_MASK afterUsers = others;
  for (const Grant& grant : classes.groups) afterUsers |= RightsOf(grant.bits);
  ACCESS_MASK afterOwner = afterUsers;
  for (const Grant& grant : classes.users) afterOwner |= RightsOf(grant.bits);

  AccessListBuilder list;
  const auto addFinal = [&list](const Account& account, ACCESS_MASK granted, ACCESS_MASK later) {
    list.Add(ACCESS_ALLOWED_ACE_TYPE, granted, account);
    list.Add(ACCESS_DENIED_ACE_TYPE, later & ~granted, account);
  };
  addFinal(UserAccount(status.st_uid), RightsOf(classes.owner), afterOwner);
  for (const Grant& grant : classes.users) addFinal(grant.account, RightsOf(grant.bits), afterUsers);
  // A member of several groups has the rights of all of them, so all entries that grant come before those
  // that deny.
  for (const Grant& grant : classes.groups) {
    list.Add(ACCESS_ALLOWED_ACE_TYPE, RightsOf(grant.bits), grant.account);
  }
  for (const Grant& grant : classes.groups) {
    list.Add(ACCESS_DENIED_ACE_TYPE, others & ~RightsOf(grant.bits), grant.account);
  }
  list.Add(ACCESS_ALLOWED_ACE_TYPE, others, kEveryoneAccount);
  return list.Bytes();
}

bool IsPosixAccessOf(const std::string& path, const struct stat& status, const ACL* list) {
  Classes wanted = ClassesOfList(list, status);
  if (HasOnlyMode(path)) {
    wanted.users.clear();
    wanted.groups.resize(1);
  }
  const Classes current = ReadClasses(path, status);
  return !current.groups.empty() && AreEqual(std::move(wanted), current);
}

int SetPosixAccess(const std::string& path, const struct stat& status, const ACL* list) {
  return WriteClasses(path, status, ClassesOfList(list, status));
}

}  // namespace Platform
