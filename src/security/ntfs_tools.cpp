#include "security/ntfs_tools.h"

#include <array>
#include <span>

#include "platform/security_api.h"
#include "security/alternate_streams.h"
#include "security/cacl_info.h"
#include "security/descriptor_bounds.h"
#include "security/server_cache.h"

using Velmora::SDK::u32;
using Velmora::SDK::u64;

namespace {

// Returns the server of a network path; empty if the path does not name a server.
WString ServerInPath(WStringView path) {
  const std::size_t end = path.starts_with(W("\\\\")) ? path.find(W('\\'), 2) : WStringView::npos;
  return end == WStringView::npos ? WString() : WString(path.substr(2, end - 2));
}

// Reads the security descriptor of the file into `record` and stores its owner, which points into `record`.
// Returns false if the descriptor cannot be read; returns true with a null owner if the system does not
// return its size.
bool ReadOwner(const WCHAR* path, std::vector<BYTE>& record, PSID& owner) {
  DWORD needed = 0;
  owner = nullptr;
  GetFileSecurityW(path, OWNER_SECURITY_INFORMATION, nullptr, 0, &needed);
  if (GetLastError() != ERROR_INSUFFICIENT_BUFFER || needed == 0) return true;
  record.resize(needed);
  BOOL isDefaulted = FALSE;
  return GetFileSecurityW(path, OWNER_SECURITY_INFORMATION, record.data(), needed, &needed) &&
         ContainsDescriptor(record) && GetSecurityDescriptorOwner(record.data(), &owner, &isDefaulted) &&
         ContainsSid(record, owner);
}

bool LookUpName(const WString& server, PSID sid, WString& name) {
  const WCHAR* const system = server.empty() ? nullptr : server.c_str();
  DWORD nameSize = 1;
  DWORD domainSize = 1;
  SID_NAME_USE use;
  LookupAccountSidW(system, sid, nullptr, &nameSize, nullptr, &domainSize, &use);
  // Some systems do not include the terminator in the sizes.
  ++nameSize;
  ++domainSize;
  std::vector<WCHAR> account(nameSize + std::size_t{1});
  std::vector<WCHAR> domain(domainSize + std::size_t{1});
  if (!LookupAccountSidW(system, sid, account.data(), &nameSize, domain.data(), &domainSize, &use))
    return false;
  name = domainSize == 0 ? WString(account.data()) : WString(domain.data()) + W("\\") + account.data();
  return true;
}

}  // namespace

bool NTFSTools::GetOwnerName(const WCHAR* path, WString& owner, bool remote) {
  std::vector<BYTE> record;
  PSID sid = nullptr;
  if (!path || !ReadOwner(path, record, sid)) return false;
  WString server;
  const WStringView text(path);
  if (remote && text.size() > 1 && text[1] == W(':')) {
    GetServerOfDrive(server, path);
  } else if (remote) {
    server = ServerInPath(text);
  }
  return LookUpName(server, sid, owner);
}

WString NTFSTools::GetAccessString(const WString& path) { return CACLInfo(path).AccessText(); }

u32 NTFSTools::GetAlternateStreamCount(const WCHAR* path) { return QueryAlternateStreams(path).count; }

u64 NTFSTools::GetAlternateStreamSize(const WCHAR* path) { return QueryAlternateStreams(path).size; }

bool NTFSTools::GetServerOfDrive(WString& server, const WCHAR* path) {
  if (!path || !*path) return false;
  if (const std::optional<WString> known = ServerCache::Instance().Find(*path)) {
    server = *known;
    return true;
  }
  alignas(UNIVERSAL_NAME_INFOW) std::array<BYTE, 1024> buffer = {};
  DWORD size = static_cast<DWORD>(buffer.size());
  if (WNetGetUniversalNameW(path, UNIVERSAL_NAME_INFO_LEVEL, buffer.data(), &size) != ERROR_SUCCESS)
    return false;
  const std::optional<WString> found =
      ServerOfUniversalName(UniversalNameIn(std::as_bytes(std::span(buffer))));
  if (!found) return false;
  ServerCache::Instance().Store(*path, *found);
  server = *found;
  return true;
}

bool NTFSTools::EnableTakeOwnership(PrivilegeList& list) {
  constexpr const WCHAR* kName = W("SeTakeOwnershipPrivilege");
  if (EnablePrivilege(kName, TOKEN_ADJUST_PRIVILEGES) != ERROR_SUCCESS) return false;
  if (list.remember) list.names.emplace_back(kName);
  return true;
}
