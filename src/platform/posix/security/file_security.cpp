// GetFileSecurityW, GetNamedSecurityInfoW, SetNamedSecurityInfoW, and the functions that read a security
// descriptor.

#include <cstdlib>
#include <cstring>

#include "platform/posix/files/fault_gate.h"
#include "platform/posix/files/path_translation.h"
#include "platform/posix/last_error.h"
#include "platform/posix/security/access_list.h"
#include "platform/posix/security/access_record.h"
#include "platform/posix/security/account.h"
#include "platform/posix/security/security_functions.h"

namespace {

using Platform::AccessRecord;
using Platform::FailWith;
using Platform::NativePath;

constexpr BYTE kDescriptorRevision = 1;
constexpr WORD kHasList = 0x4;
constexpr WORD kIsProtected = 0x1000;
constexpr WORD kIsSelfRelative = 0x8000;

// The header of a self-relative descriptor. An offset of 0 means that the part is missing.
struct DescriptorHeader {
  BYTE revision;
  BYTE reserved;
  WORD control;
  DWORD owner;
  DWORD group;
  DWORD auditList;
  DWORD list;
};
static_assert(sizeof(DescriptorHeader) == 20);

DWORD ReadRecord(const WCHAR* path, SECURITY_INFORMATION information, AccessRecord& record) {
  NativePath native;
  const DWORD error = Platform::TranslatePath(path, native);
  if (error != ERROR_SUCCESS) return error;
  const DWORD readError =
      Platform::ReadAccessRecord(native.path, record, (information & DACL_SECURITY_INFORMATION) != 0);
  if (readError != ERROR_SUCCESS) return readError;
  return native.endsInSeparator && !S_ISDIR(record.status.st_mode) ? ERROR_PATH_NOT_FOUND : ERROR_SUCCESS;
}

std::vector<BYTE> DescriptorOf(const AccessRecord& record, SECURITY_INFORMATION information) {
  DescriptorHeader header{.revision = kDescriptorRevision,
                          .reserved = 0,
                          .control = kIsSelfRelative,
                          .owner = 0,
                          .group = 0,
                          .auditList = 0,
                          .list = 0};
  std::vector<BYTE> bytes(sizeof header);
  if ((information & OWNER_SECURITY_INFORMATION) != 0) {
    const std::vector<BYTE> sid = Platform::SidOf(Platform::UserAccount(record.status.st_uid));
    header.owner = static_cast<DWORD>(bytes.size());
    bytes.insert(bytes.end(), sid.begin(), sid.end());
  }
  if ((information & DACL_SECURITY_INFORMATION) != 0) {
    header.control |= record.isProtected ? kHasList | kIsProtected : kHasList;
    if (record.hasList) {
      header.list = static_cast<DWORD>(bytes.size());
      bytes.insert(bytes.end(), record.list.begin(), record.list.end());
    }
  }
  std::memcpy(bytes.data(), &header, sizeof header);
  return bytes;
}

// Stores the descriptor of a file in `bytes`, for the Windows function `function`. Returns 0 or an error.
DWORD DescriptorOfFile(const char* function, const WCHAR* path, SECURITY_INFORMATION information,
                       std::vector<BYTE>& bytes) {
  if (std::optional<Platform::Faults::Injection> given = Platform::InjectedResult(function)) {
    bytes = std::move(given->bytes);
    return ERROR_SUCCESS;
  }
  AccessRecord record;
  if (const DWORD error = ReadRecord(path, information, record)) return error;
  bytes = DescriptorOf(record, information);
  return ERROR_SUCCESS;
}

// Reads the header. Returns false if `descriptor` is not a self-relative descriptor.
bool ReadHeader(PSECURITY_DESCRIPTOR descriptor, DescriptorHeader& header) {
  if (!descriptor) return false;
  std::memcpy(&header, descriptor, sizeof header);
  return header.revision == kDescriptorRevision && (header.control & kIsSelfRelative) != 0;
}

BYTE* PartAt(PSECURITY_DESCRIPTOR descriptor, DWORD offset) {
  return offset == 0 ? nullptr : static_cast<BYTE*>(descriptor) + offset;
}

}  // namespace

BOOL GetFileSecurityW(const WCHAR* path, SECURITY_INFORMATION information, PSECURITY_DESCRIPTOR descriptor,
                      DWORD size, DWORD* needed) {
  if (Platform::FaultFires("GetFileSecurityW", {.flags = information, .path = path})) return FALSE;
  if (!needed) return FailWith(ERROR_INVALID_PARAMETER);
  std::vector<BYTE> bytes;
  if (const DWORD error = DescriptorOfFile("GetFileSecurityW", path, information, bytes))
    return FailWith(error);
  *needed = static_cast<DWORD>(bytes.size());
  if (!descriptor || size < bytes.size()) return FailWith(ERROR_INSUFFICIENT_BUFFER);
  std::memcpy(descriptor, bytes.data(), bytes.size());
  return TRUE;
}

BOOL GetSecurityDescriptorOwner(PSECURITY_DESCRIPTOR descriptor, PSID* owner, BOOL* isDefaulted) {
  if (Platform::FaultFires("GetSecurityDescriptorOwner")) return FALSE;
  DescriptorHeader header;
  if (!ReadHeader(descriptor, header)) return FailWith(ERROR_INVALID_SECURITY_DESCR);
  if (!owner || !isDefaulted) return FailWith(ERROR_INVALID_PARAMETER);
  *owner = PartAt(descriptor, header.owner);
  *isDefaulted = FALSE;
  return TRUE;
}

BOOL GetSecurityDescriptorDacl(PSECURITY_DESCRIPTOR descriptor, BOOL* isPresent, PACL* list,
                               BOOL* isDefaulted) {
  if (Platform::FaultFires("GetSecurityDescriptorDacl")) return FALSE;
  DescriptorHeader header;
  if (!ReadHeader(descriptor, header)) return FailWith(ERROR_INVALID_SECURITY_DESCR);
  if (!isPresent || !list || !isDefaulted) return FailWith(ERROR_INVALID_PARAMETER);
  *isPresent = (header.control & kHasList) != 0;
  if (*isPresent) *list = reinterpret_cast<PACL>(PartAt(descriptor, header.list));
  *isDefaulted = FALSE;
  return TRUE;
}

DWORD GetNamedSecurityInfoW(const WCHAR* path, SE_OBJECT_TYPE type, SECURITY_INFORMATION information,
                            PSID* owner, PSID* group, PACL* list, PACL* auditList,
                            PSECURITY_DESCRIPTOR* descriptor) {
  if (Platform::FaultFires("GetNamedSecurityInfoW", {.flags = information, .path = path}))
    return GetLastError();
  if (type != SE_FILE_OBJECT || !descriptor) return ERROR_INVALID_PARAMETER;
  std::vector<BYTE> bytes;
  if (const DWORD error = DescriptorOfFile("GetNamedSecurityInfoW", path, information, bytes)) return error;
  void* const memory = std::malloc(bytes.size());
  if (!memory) return ERROR_NOT_ENOUGH_MEMORY;
  std::memcpy(memory, bytes.data(), bytes.size());
  DescriptorHeader header;
  ReadHeader(memory, header);
  *descriptor = memory;
  if (owner) *owner = PartAt(memory, header.owner);
  if (group) *group = nullptr;
  if (list) *list = reinterpret_cast<PACL>(PartAt(memory, header.list));
  if (auditList) *auditList = nullptr;
  return ERROR_SUCCESS;
}

DWORD SetNamedSecurityInfoW(WCHAR* path, SE_OBJECT_TYPE type, SECURITY_INFORMATION information, PSID owner,
                            PSID, PACL list, PACL) {
  if (Platform::FaultFires("SetNamedSecurityInfoW", {.flags = information, .path = path}))
    return GetLastError();
  if (type != SE_FILE_OBJECT) return ERROR_INVALID_PARAMETER;
  NativePath native;
  DWORD error = Platform::TranslatePath(path, native);
  if (error != ERROR_SUCCESS) return error;
  if ((information & OWNER_SECURITY_INFORMATION) != 0) {
    const std::size_t size = Platform::SidSize(owner);
    if (size == 0) return ERROR_INVALID_SID;
    const auto account = Platform::AccountOfSid({static_cast<const BYTE*>(owner), size});
    if (!account || account->kind != Platform::Account::kUser) return ERROR_INVALID_OWNER;
    error = Platform::SetOwner(native.path, account->id);
    if (error != ERROR_SUCCESS) return error;
  }
  if ((information & DACL_SECURITY_INFORMATION) == 0) return ERROR_SUCCESS;
  return Platform::SetAccessList(native.path, list, (information & PROTECTED_DACL_SECURITY_INFORMATION) != 0);
}
