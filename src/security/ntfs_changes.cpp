// The operations of NTFSTools that change a file: owner and access list.
#include <array>
#include <memory>

#include "platform/security_api.h"
#include "security/descriptor_bounds.h"
#include "security/ntfs_tools.h"

using Velmora::SDK::u32;

namespace {

constexpr BYTE kInheritedByAll = OBJECT_INHERIT_ACE | CONTAINER_INHERIT_ACE;

struct FreeLocal {
  void operator()(void* memory) const { LocalFree(memory); }
};
struct FreeHeap {
  void operator()(ACL* list) const { HeapFree(GetProcessHeap(), 0, list); }
};

// Returns the error of the call that has just failed; never 0.
u32 FailedCallError() {
  const DWORD error = GetLastError();
  return error != ERROR_SUCCESS ? error : ERROR_GEN_FAILURE;
}

// Returns the object type of a path for the named security functions. Only a path with a drive is a file; for
// all others returns a type that the system refuses with an error, which is shown to the user (C-507).
SE_OBJECT_TYPE ObjectTypeOfPath(const WString& path) {
  if (path.empty()) return SE_UNKNOWN_OBJECT_TYPE;
  return path.size() > 1 && path[1] == W(':') ? SE_FILE_OBJECT : static_cast<SE_OBJECT_TYPE>(4);
}

class UserSid {
 public:
  // Looks up the SID of the user. Returns 0 or an error.
  u32 LookUp(const WString& user) {
    DWORD size = static_cast<DWORD>(bytes_.size());
    std::array<WCHAR, 256> domain;
    DWORD domainSize = static_cast<DWORD>(domain.size());
    SID_NAME_USE use;
    const BOOL found =
        LookupAccountNameW(nullptr, user.c_str(), bytes_.data(), &size, domain.data(), &domainSize, &use);
    return found ? ERROR_SUCCESS : FailedCallError();
  }
  PSID Get() { return bytes_.data(); }

 private:
  alignas(DWORD) std::array<BYTE, 256> bytes_ = {};
};

// A copy of the access list of a file.
class NamedList {
 public:
  u32 Read(const WString& path) {
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    const DWORD error = GetNamedSecurityInfoW(path.c_str(), ObjectTypeOfPath(path), DACL_SECURITY_INFORMATION,
                                              nullptr, nullptr, &list_, nullptr, &descriptor);
    if (error != ERROR_SUCCESS) list_ = nullptr;
    descriptor_.reset(error == ERROR_SUCCESS ? descriptor : nullptr);
    return error;
  }
  ACL* Get() const { return list_; }

 private:
  std::unique_ptr<void, FreeLocal> descriptor_;
  ACL* list_ = nullptr;
};

u32 SetList(const WString& path, SECURITY_INFORMATION information, ACL* list) {
  WString name = path;  // the function takes a non-const pointer but does not write to it
  return SetNamedSecurityInfoW(name.data(), ObjectTypeOfPath(path), information, nullptr, nullptr, list,
                               nullptr);
}

// Copies the entries of a list as entries that allow and that files and folders inherit. Returns 0 or an
// error.
u32 CopyAsAllowed(ACL* from, const ACL_SIZE_INFORMATION& size, ACL* to) {
  for (DWORD index = 0; index < size.AceCount; ++index) {
    void* entry = nullptr;
    if (!GetAce(from, index, &entry)) return FailedCallError();
    auto* const header = static_cast<ACE_HEADER*>(entry);
    if (!ContainsEntry(from, size.AclBytesInUse, header)) return ERROR_INVALID_ACL;
    header->AceType = ACCESS_ALLOWED_ACE_TYPE;
    header->AceFlags = kInheritedByAll;
    if (!AddAce(to, ACL_REVISION, MAXDWORD, header, header->AceSize)) return FailedCallError();
  }
  return ERROR_SUCCESS;
}

}  // namespace

u32 NTFSTools::TakeOwnership(const WString& path, const WString& user) {
  if (path.empty() || user.empty()) return ERROR_INVALID_PARAMETER;
  UserSid sid;
  if (const u32 error = sid.LookUp(user)) return error;
  WString name = path;
  return SetNamedSecurityInfoW(name.data(), ObjectTypeOfPath(path), OWNER_SECURITY_INFORMATION, sid.Get(),
                               nullptr, nullptr, nullptr);
}

u32 NTFSTools::AddAccess(const WString& path, const WString& user, u32 accessMask) {
  if (path.empty() || user.empty() || accessMask == 0) return ERROR_INVALID_PARAMETER;
  UserSid sid;
  if (const u32 error = sid.LookUp(user)) return error;
  NamedList old;
  if (const u32 error = old.Read(path)) return error;
  if (!old.Get()) return ERROR_INVALID_PARAMETER;

  ACL_SIZE_INFORMATION size = {};
  if (!GetAclInformation(old.Get(), &size, sizeof size, AclSizeInformation)) return FailedCallError();
  const DWORD sidSize = GetLengthSid(sid.Get());
  if (sidSize == 0) return FailedCallError();
  const DWORD newSize = sidSize + 8 + size.AclBytesInUse;
  SetLastError(ERROR_NOT_ENOUGH_MEMORY);  // HeapAlloc does not set the last error
  const std::unique_ptr<ACL, FreeHeap> list(static_cast<ACL*>(HeapAlloc(GetProcessHeap(), 0, newSize)));
  if (!list || !InitializeAcl(list.get(), newSize, ACL_REVISION)) return FailedCallError();
  if (const u32 error = CopyAsAllowed(old.Get(), size, list.get())) return error;
  if (!AddAccessAllowedAceEx(list.get(), ACL_REVISION, kInheritedByAll, accessMask, sid.Get()))
    return FailedCallError();
  SetList(path, DACL_SECURITY_INFORMATION, list.get());
  return ERROR_SUCCESS;
}

u32 NTFSTools::ResetAccess(const WString& path) {
  if (path.empty()) return ERROR_INVALID_PARAMETER;
  NamedList old;
  if (const u32 error = old.Read(path)) return error;
  // A missing list would grant everything, so it is replaced by an empty one.
  ACL none = {};
  ACL* const emptied = old.Get() ? old.Get() : &none;
  if (!old.Get() && !InitializeAcl(&none, sizeof none, ACL_REVISION)) return FailedCallError();
  for (DWORD left = emptied->AceCount; left > 0; --left) {
    if (!DeleteAce(emptied, 0)) return FailedCallError();
  }
  if (EnablePrivilege(W("SeSecurityPrivilege"), TOKEN_ADJUST_PRIVILEGES | TOKEN_QUERY) == ERROR_SUCCESS) {
    SetList(path, PROTECTED_DACL_SECURITY_INFORMATION | DACL_SECURITY_INFORMATION, nullptr);
  }
  return SetList(path, DACL_SECURITY_INFORMATION, emptied);
}
