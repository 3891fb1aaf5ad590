// The Windows types and constants for owners, access lists, privileges and streams, with their layouts, sizes
// and values on Windows.
#pragma once

#include "platform/posix/windows_types.h"

using ULONG = std::uint32_t;
using LPWSTR = WCHAR*;
using NTSTATUS = LONG;
using ACCESS_MASK = DWORD;
using SECURITY_INFORMATION = DWORD;
using PSID = void*;
using PSECURITY_DESCRIPTOR = void*;

#define NTAPI  // one calling convention

// The header of an access list. The entries follow it, each beginning with an ACE_HEADER.
struct ACL {
  BYTE AclRevision;
  BYTE Sbz1;
  WORD AclSize;  // bytes of the whole list, unused ones included
  WORD AceCount;
  WORD Sbz2;
};
static_assert(sizeof(ACL) == 8);
using PACL = ACL*;

struct ACE_HEADER {
  BYTE AceType;
  BYTE AceFlags;
  WORD AceSize;  // bytes of the entry, header included
};
static_assert(sizeof(ACE_HEADER) == 4);

// An entry that allows access; ACCESS_DENIED_ACE has the same layout. The SID begins at SidStart.
struct ACCESS_ALLOWED_ACE {
  ACE_HEADER Header;
  ACCESS_MASK Mask;
  DWORD SidStart;
};
static_assert(offsetof(ACCESS_ALLOWED_ACE, SidStart) == 8);

struct ACL_SIZE_INFORMATION {
  DWORD AceCount;
  DWORD AclBytesInUse;
  DWORD AclBytesFree;
};

struct LUID {
  DWORD LowPart;
  LONG HighPart;
};

struct LUID_AND_ATTRIBUTES {
  LUID Luid;
  DWORD Attributes;
};

struct TOKEN_PRIVILEGES {
  DWORD PrivilegeCount;
  LUID_AND_ATTRIBUTES Privileges[1];
};

struct IO_STATUS_BLOCK {
  NTSTATUS Status;
  std::uintptr_t Information;
};

struct UNIVERSAL_NAME_INFOW {
  LPWSTR lpUniversalName;
};

enum ACL_INFORMATION_CLASS { AclRevisionInformation = 1, AclSizeInformation = 2 };
enum SE_OBJECT_TYPE { SE_UNKNOWN_OBJECT_TYPE = 0, SE_FILE_OBJECT = 1, SE_REGISTRY_KEY = 4 };
enum SID_NAME_USE { SidTypeUser = 1, SidTypeGroup = 2, SidTypeAlias = 4, SidTypeWellKnownGroup = 5 };
enum EXTENDED_NAME_FORMAT { NameUnknown = 0, NameSamCompatible = 2 };
enum MULTIPLE_TRUSTEE_OPERATION { NO_MULTIPLE_TRUSTEE = 0 };
enum TRUSTEE_FORM { TRUSTEE_IS_SID = 0, TRUSTEE_IS_NAME = 1 };
enum TRUSTEE_TYPE { TRUSTEE_IS_UNKNOWN = 0 };

struct TRUSTEE_W {
  TRUSTEE_W* pMultipleTrustee;
  MULTIPLE_TRUSTEE_OPERATION MultipleTrusteeOperation;
  TRUSTEE_FORM TrusteeForm;
  TRUSTEE_TYPE TrusteeType;
  LPWSTR ptstrName;
};

constexpr SECURITY_INFORMATION OWNER_SECURITY_INFORMATION = 0x1;
constexpr SECURITY_INFORMATION DACL_SECURITY_INFORMATION = 0x4;
constexpr SECURITY_INFORMATION PROTECTED_DACL_SECURITY_INFORMATION = 0x80000000;

constexpr DWORD ACL_REVISION = 2;
constexpr DWORD MAXDWORD = 0xFFFFFFFF;
constexpr BYTE ACCESS_ALLOWED_ACE_TYPE = 0;
constexpr BYTE ACCESS_DENIED_ACE_TYPE = 1;
constexpr BYTE OBJECT_INHERIT_ACE = 1;
constexpr BYTE CONTAINER_INHERIT_ACE = 2;
constexpr BYTE INHERIT_ONLY_ACE = 8;

constexpr DWORD FILE_READ_DATA = 0x1;
constexpr DWORD FILE_WRITE_DATA = 0x2;
constexpr DWORD FILE_APPEND_DATA = 0x4;
constexpr DWORD FILE_WRITE_EA = 0x10;
constexpr DWORD FILE_EXECUTE = 0x20;
constexpr DWORD FILE_READ_ATTRIBUTES = 0x80;
constexpr DWORD FILE_WRITE_ATTRIBUTES = 0x100;
constexpr DWORD FILE_GENERIC_READ = 0x120089;
constexpr DWORD FILE_GENERIC_WRITE = 0x120116;
constexpr DWORD FILE_GENERIC_EXECUTE = 0x1200A0;
constexpr DWORD FILE_ALL_ACCESS = 0x1F01FF;
constexpr DWORD GENERIC_EXECUTE = 0x20000000;
constexpr DWORD GENERIC_ALL = 0x10000000;

constexpr DWORD TOKEN_QUERY = 0x8;
constexpr DWORD TOKEN_ADJUST_PRIVILEGES = 0x20;
constexpr DWORD SE_PRIVILEGE_ENABLED = 2;

constexpr DWORD UNIVERSAL_NAME_INFO_LEVEL = 1;

constexpr DWORD ERROR_MORE_DATA = 234;
constexpr DWORD ERROR_NOT_ALL_ASSIGNED = 1300;
constexpr DWORD ERROR_INVALID_OWNER = 1307;
constexpr DWORD ERROR_NO_SUCH_PRIVILEGE = 1313;
constexpr DWORD ERROR_NONE_MAPPED = 1332;
constexpr DWORD ERROR_ALLOTTED_SPACE_EXCEEDED = 1344;
constexpr DWORD ERROR_INVALID_ACL = 1336;
constexpr DWORD ERROR_INVALID_SID = 1337;
constexpr DWORD ERROR_INVALID_SECURITY_DESCR = 1338;
constexpr DWORD RPC_S_SERVER_UNAVAILABLE = 1722;
constexpr DWORD ERROR_NOT_CONNECTED = 2250;
