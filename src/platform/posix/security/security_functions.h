// The Windows functions for owners, access lists, privileges and streams that the product uses, implemented
// over the accounts, owners, modes, POSIX access lists and extended attributes of the native system.
//
// Accounts. A user has the SID S-1-22-1-UID, a group S-1-22-2-GID, everyone S-1-1-0. The domain is empty. An
// id without a name is shown as its number, and a number that is not a name finds the user with that id.
// Other machines are not supported: a system name fails with RPC_S_SERVER_UNAVAILABLE (1722), and no drive
// has a network name (ERROR_NOT_CONNECTED, 2250).
//
// Access lists. A file's list is made from its owner, group, mode and POSIX access list, so that its entries,
// in order, grant reading (FILE_GENERIC_READ), writing (FILE_GENERIC_WRITE) and executing
// (FILE_GENERIC_EXECUTE) to those whom the system grants it; the list does not show that the superuser may do
// everything. A list that was set is kept in an extended attribute and returned unchanged as long as owner,
// group, mode and POSIX access list stay as setting it left them. Setting a list sets mode and POSIX access
// list to the closest equivalent: they support users and groups, and the three rights. Nothing is inherited.
// A missing (null) list grants everything to everyone.
//
// Streams are the extended attributes of the namespace `user.`, except the one that keeps the list.
//
// Links are followed. Only SE_FILE_OBJECT is supported; any other type fails with ERROR_INVALID_PARAMETER
// (87).
#pragma once

#include "platform/posix/security/security_types.h"
#include "platform/posix/windows_functions.h"

// Security descriptors of files. GetFileSecurityW and GetNamedSecurityInfoW return self-relative descriptors;
// the caller frees that of the latter with LocalFree.
QX_PLATFORM_API BOOL GetFileSecurityW(const WCHAR* path, SECURITY_INFORMATION information,
                                      PSECURITY_DESCRIPTOR descriptor, DWORD size, DWORD* needed);
QX_PLATFORM_API BOOL GetSecurityDescriptorOwner(PSECURITY_DESCRIPTOR descriptor, PSID* owner,
                                                BOOL* isDefaulted);
QX_PLATFORM_API BOOL GetSecurityDescriptorDacl(PSECURITY_DESCRIPTOR descriptor, BOOL* isPresent, PACL* list,
                                               BOOL* isDefaulted);
QX_PLATFORM_API DWORD GetNamedSecurityInfoW(const WCHAR* path, SE_OBJECT_TYPE type,
                                            SECURITY_INFORMATION information, PSID* owner, PSID* group,
                                            PACL* list, PACL* auditList, PSECURITY_DESCRIPTOR* descriptor);
// Sets the owner with chown, which fails with ERROR_ACCESS_DENIED (5) if the process may not do so. The owner
// must be a user (else ERROR_INVALID_OWNER, 1307).
QX_PLATFORM_API DWORD SetNamedSecurityInfoW(WCHAR* path, SE_OBJECT_TYPE type,
                                            SECURITY_INFORMATION information, PSID owner, PSID group,
                                            PACL list, PACL auditList);

// Access lists.
QX_PLATFORM_API DWORD GetLengthSid(PSID sid);
QX_PLATFORM_API BOOL InitializeAcl(PACL list, DWORD size, DWORD revision);
QX_PLATFORM_API BOOL GetAclInformation(PACL list, void* information, DWORD size, ACL_INFORMATION_CLASS kind);
QX_PLATFORM_API BOOL GetAce(PACL list, DWORD index, void** entry);
QX_PLATFORM_API BOOL AddAce(PACL list, DWORD revision, DWORD index, void* entries, DWORD size);
QX_PLATFORM_API BOOL AddAccessAllowedAceEx(PACL list, DWORD revision, DWORD flags, DWORD mask, PSID sid);
QX_PLATFORM_API BOOL DeleteAce(PACL list, DWORD index);

// Effective rights. The only supported trustee is the name "CURRENT_USER", the effective user of the process
// with its groups; any other fails with ERROR_NONE_MAPPED (1332).
QX_PLATFORM_API void BuildTrusteeWithNameW(TRUSTEE_W* trustee, WCHAR* name);
QX_PLATFORM_API DWORD GetEffectiveRightsFromAclW(PACL list, TRUSTEE_W* trustee, ACCESS_MASK* mask);

// Accounts.
QX_PLATFORM_API BOOL LookupAccountSidW(const WCHAR* system, PSID sid, WCHAR* name, DWORD* nameSize,
                                       WCHAR* domain, DWORD* domainSize, SID_NAME_USE* use);
QX_PLATFORM_API BOOL LookupAccountNameW(const WCHAR* system, const WCHAR* name, PSID sid, DWORD* sidSize,
                                        WCHAR* domain, DWORD* domainSize, SID_NAME_USE* use);
// The effective user of the process. GetUserNameExW supports only NameSamCompatible and returns the plain
// name, as there is no domain; other formats fail with ERROR_NONE_MAPPED (1332).
QX_PLATFORM_API BOOL GetUserNameW(WCHAR* buffer, DWORD* size);
QX_PLATFORM_API BOOLEAN GetUserNameExW(EXTENDED_NAME_FORMAT format, WCHAR* buffer, ULONG* size);
QX_PLATFORM_API DWORD WNetGetUniversalNameW(const WCHAR* path, DWORD level, void* buffer, DWORD* size);

// Privileges: SeTakeOwnershipPrivilege, SeSecurityPrivilege and SeBackupPrivilege. Only the superuser has
// them; for other users AdjustTokenPrivileges succeeds with the last error ERROR_NOT_ALL_ASSIGNED (1300).
QX_PLATFORM_API HANDLE GetCurrentProcess();
QX_PLATFORM_API BOOL OpenProcessToken(HANDLE process, DWORD access, HANDLE* token);
QX_PLATFORM_API BOOL LookupPrivilegeValueW(const WCHAR* system, const WCHAR* name, LUID* value);
QX_PLATFORM_API BOOL AdjustTokenPrivileges(HANDLE token, BOOL disableAll, TOKEN_PRIVILEGES* wanted,
                                           DWORD size, TOKEN_PRIVILEGES* before, DWORD* needed);

// Memory of the process heap.
QX_PLATFORM_API HANDLE GetProcessHeap();
QX_PLATFORM_API void* HeapAlloc(HANDLE heap, DWORD flags, std::size_t size);
QX_PLATFORM_API BOOL HeapFree(HANDLE heap, DWORD flags, void* memory);

// Lists the streams of an open file or folder. Supports only FileStreamInformation (22): records linked by
// the offset of the next one, the unnamed stream of a file first; a folder has no unnamed stream. Reached
// through GetProcAddress of "ntdll.dll".
QX_PLATFORM_API NTSTATUS NtQueryInformationFile(HANDLE file, IO_STATUS_BLOCK* status, void* buffer,
                                                ULONG size, int informationClass);
