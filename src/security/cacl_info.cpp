#include "security/cacl_info.h"

#include <vector>

#include "platform/security_api.h"
#include "security/descriptor_bounds.h"

namespace {

struct AccessLetter {
  WCHAR letter;
  DWORD rights;  // the letter needs all of them (C-503)
};

// clang-format off
constexpr AccessLetter kAccessLetters[] = {
  {W('R'), FILE_READ_DATA | FILE_READ_ATTRIBUTES},
  {W('W'), FILE_WRITE_DATA | FILE_APPEND_DATA | FILE_WRITE_EA | FILE_WRITE_ATTRIBUTES},
  {W('X'), FILE_EXECUTE | FILE_READ_DATA},
};
// clang-format on

// Reads the security descriptor of the file into `record` and returns its access list, which points into
// `record`; null if it has no list or on failure.
ACL* ReadAccessList(const WString& path, std::vector<BYTE>& record) {
  DWORD needed = 0;
  GetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, nullptr, 0, &needed);
  if (needed == 0) return nullptr;
  record.resize(needed);
  if (!GetFileSecurityW(path.c_str(), DACL_SECURITY_INFORMATION, record.data(), needed, &needed) ||
      !ContainsDescriptor(record))
    return nullptr;
  BOOL isPresent = FALSE;
  BOOL isDefaulted = FALSE;
  ACL* list = nullptr;
  if (!GetSecurityDescriptorDacl(record.data(), &isPresent, &list, &isDefaulted)) return nullptr;
  return isPresent && ContainsList(record, list) ? list : nullptr;
}

}  // namespace

WString AccessTextOf(DWORD mask) {
  WString text;
  for (const AccessLetter& row : kAccessLetters) {
    text += (mask & row.rights) == row.rights ? row.letter : W(' ');
  }
  return text;
}

WString CACLInfo::AccessText() const {
  std::vector<BYTE> record;
  ACL* const list = ReadAccessList(path_, record);
  if (!list) return AccessTextOf(0);
  WCHAR user[] = W("CURRENT_USER");
  TRUSTEE_W trustee;
  BuildTrusteeWithNameW(&trustee, user);
  ACCESS_MASK mask = 0;
  const bool isKnown = GetEffectiveRightsFromAclW(list, &trustee, &mask) == ERROR_SUCCESS;
  return AccessTextOf(isKnown ? mask : 0);
}
