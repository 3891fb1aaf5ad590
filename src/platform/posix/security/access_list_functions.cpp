// The Windows functions that read and change access lists, and GetEffectiveRightsFromAclW.

#include <algorithm>
#include <cstring>

#include "platform/posix/files/fault_gate.h"
#include "platform/posix/last_error.h"
#include "platform/posix/security/access_list.h"
#include "platform/posix/security/security_functions.h"

namespace {

using Platform::AccessEntry;
using Platform::FailWith;

constexpr std::size_t kSidOffset = offsetof(ACCESS_ALLOWED_ACE, SidStart);
constexpr std::u16string_view kCurrentUser = u"CURRENT_USER";

BYTE* BytesOf(ACL* list) { return reinterpret_cast<BYTE*>(list); }

// Inserts `count` complete entries at `offset` of a list of which `used` bytes are in use. Returns false if
// the list has no room for them.
bool Insert(ACL& list, std::size_t used, std::size_t offset, std::span<const BYTE> entries, WORD count) {
  if (entries.size() > list.AclSize - used) return false;
  BYTE* const place = BytesOf(&list) + offset;
  std::memmove(place + entries.size(), place, used - offset);
  std::memcpy(place, entries.data(), entries.size());
  list.AceCount = static_cast<WORD>(list.AceCount + count);
  return true;
}

// Returns the number of entries in `bytes`; std::nullopt if they do not fill it exactly.
std::optional<WORD> CountEntries(std::span<const BYTE> bytes) {
  WORD count = 0;
  while (!bytes.empty()) {
    ACE_HEADER header;
    if (bytes.size() < sizeof header) return std::nullopt;
    std::memcpy(&header, bytes.data(), sizeof header);
    if (header.AceSize < sizeof header || header.AceSize > bytes.size()) return std::nullopt;
    bytes = bytes.subspan(header.AceSize);
    ++count;
  }
  return count;
}

}  // namespace

DWORD GetLengthSid(PSID sid) {
  if (Platform::FaultFires("GetLengthSid")) return 0;
  return static_cast<DWORD>(Platform::SidSize(sid));
}

BOOL InitializeAcl(PACL list, DWORD size, DWORD revision) {
  if (Platform::FaultFires("InitializeAcl")) return FALSE;
  if (!list || revision != ACL_REVISION || size > 0xFFFF) return FailWith(ERROR_INVALID_PARAMETER);
  if (size < sizeof(ACL)) return FailWith(ERROR_INSUFFICIENT_BUFFER);
  *list = {
      .AclRevision = ACL_REVISION, .Sbz1 = 0, .AclSize = static_cast<WORD>(size), .AceCount = 0, .Sbz2 = 0};
  return TRUE;
}

BOOL GetAclInformation(PACL list, void* information, DWORD size, ACL_INFORMATION_CLASS kind) {
  if (Platform::FaultFires("GetAclInformation")) return FALSE;
  const auto used = Platform::BytesInUse(list);
  if (!used || !information || kind != AclSizeInformation) return FailWith(ERROR_INVALID_PARAMETER);
  if (size < sizeof(ACL_SIZE_INFORMATION)) return FailWith(ERROR_INSUFFICIENT_BUFFER);
  const ACL_SIZE_INFORMATION answer{.AceCount = list->AceCount,
                                    .AclBytesInUse = static_cast<DWORD>(*used),
                                    .AclBytesFree = static_cast<DWORD>(list->AclSize - *used)};
  std::memcpy(information, &answer, sizeof answer);
  return TRUE;
}

BOOL GetAce(PACL list, DWORD index, void** entry) {
  if (Platform::FaultFires("GetAce")) return FALSE;
  const auto entries = Platform::EntriesOf(list);
  if (!entries || !entry || index >= entries->size()) return FailWith(ERROR_INVALID_PARAMETER);
  *entry = BytesOf(list) + (*entries)[index].offset;
  return TRUE;
}

BOOL AddAce(PACL list, DWORD revision, DWORD index, void* added, DWORD size) {
  if (Platform::FaultFires("AddAce")) return FALSE;
  const auto entries = Platform::EntriesOf(list);
  const auto used = Platform::BytesInUse(list);
  const std::span<const BYTE> bytes(static_cast<const BYTE*>(added), added ? size : 0);
  const auto count = CountEntries(bytes);
  if (!entries || !used || !count || *count == 0 || revision != ACL_REVISION)
    return FailWith(ERROR_INVALID_PARAMETER);
  const std::size_t offset = index < entries->size() ? (*entries)[index].offset : *used;
  return Insert(*list, *used, offset, bytes, *count) ? TRUE : FailWith(ERROR_ALLOTTED_SPACE_EXCEEDED);
}

BOOL AddAccessAllowedAceEx(PACL list, DWORD revision, DWORD flags, DWORD mask, PSID sid) {
  if (Platform::FaultFires("AddAccessAllowedAceEx")) return FALSE;
  const std::size_t sidSize = Platform::SidSize(sid);
  if (sidSize == 0) return FailWith(ERROR_INVALID_SID);
  const auto used = Platform::BytesInUse(list);
  if (!used) return FailWith(ERROR_INVALID_ACL);
  if (revision != ACL_REVISION) return FailWith(ERROR_INVALID_PARAMETER);
  const ACE_HEADER header{.AceType = ACCESS_ALLOWED_ACE_TYPE,
                          .AceFlags = static_cast<BYTE>(flags),
                          .AceSize = static_cast<WORD>(kSidOffset + sidSize)};
  std::vector<BYTE> entry(header.AceSize);
  std::memcpy(entry.data(), &header, sizeof header);
  std::memcpy(entry.data() + offsetof(ACCESS_ALLOWED_ACE, Mask), &mask, sizeof mask);
  std::memcpy(entry.data() + kSidOffset, sid, sidSize);
  return Insert(*list, *used, *used, entry, 1) ? TRUE : FailWith(ERROR_ALLOTTED_SPACE_EXCEEDED);
}

BOOL DeleteAce(PACL list, DWORD index) {
  if (Platform::FaultFires("DeleteAce")) return FALSE;
  const auto entries = Platform::EntriesOf(list);
  if (!entries || index >= entries->size()) return FailWith(ERROR_INVALID_PARAMETER);
  const AccessEntry& entry = (*entries)[index];
  const std::size_t end = *Platform::BytesInUse(list);
  const std::size_t next = entry.offset + entry.header.AceSize;
  std::memmove(BytesOf(list) + entry.offset, BytesOf(list) + next, end - next);
  --list->AceCount;
  return TRUE;
}

void BuildTrusteeWithNameW(TRUSTEE_W* trustee, WCHAR* name) {
  *trustee = {.pMultipleTrustee = nullptr,
              .MultipleTrusteeOperation = NO_MULTIPLE_TRUSTEE,
              .TrusteeForm = TRUSTEE_IS_NAME,
              .TrusteeType = TRUSTEE_IS_UNKNOWN,
              .ptstrName = name};
}

DWORD GetEffectiveRightsFromAclW(PACL list, TRUSTEE_W* trustee, ACCESS_MASK* mask) {
  if (Platform::FaultFires("GetEffectiveRightsFromAclW")) return GetLastError();
  if (!trustee || !mask) return ERROR_INVALID_PARAMETER;
  if (!Platform::EntriesOf(list)) return ERROR_INVALID_ACL;
  if (trustee->TrusteeForm != TRUSTEE_IS_NAME || !trustee->ptstrName || trustee->ptstrName != kCurrentUser)
    return ERROR_NONE_MAPPED;
  *mask = Platform::GrantedTo(list, Platform::CurrentAccounts());
  return ERROR_SUCCESS;
}
