// Reads the owner of a file, the access of the current user and the alternate data streams, and makes three
// changes: take ownership, add access, reset access.
//
// Paths are not changed. Functions that make changes return 0 or a Windows error number,
// ERROR_INVALID_PARAMETER (87) also for an empty path or user. No function shows anything to the user.
// Functions that only read may be called from several threads.
#pragma once

#include "frame/host/host_types.h"
#include "security/privilege_list.h"

class NTFSTools {
 public:
  using u32 = Velmora::SDK::u32;
  using u64 = Velmora::SDK::u64;

  virtual ~NTFSTools() = default;

  // Stores the owner as "DOMAIN\name", or only the name if there is no domain. With `remote`, looks up the
  // name on the server of the path. Returns false and leaves `owner` unchanged if the owner cannot be
  // determined.
  bool GetOwnerName(const WCHAR* path, WString& owner, bool remote);

  // Returns three characters, R, W and X for the rights of the current user, each replaced by a blank if the
  // right is missing.
  WString GetAccessString(const WString& path);

  // The number of the streams without the first one, which is a file's unnamed one, and the sum of their
  // bytes. So the only stream of a folder, which has no unnamed one, does not count (C-501). 0 for what
  // cannot be asked. Needs 64 KiB of stack.
  u32 GetAlternateStreamCount(const WCHAR* path);
  u64 GetAlternateStreamSize(const WCHAR* path);

  // Stores the server that the drive of the path is mapped to. Servers of drive letters are cached
  // (server_cache.h).
  bool GetServerOfDrive(WString& server, const WCHAR* path);

  // Makes the user the owner. Call EnableTakeOwnership first.
  u32 TakeOwnership(const WString& path, const WString& user);

  // Adds an entry that allows the rights of the mask to a user or group, and turns every entry of the list
  // into one that allows and is inherited, those that denied too (C-505). A failure to set the new list is
  // not reported (C-506). 87 for a file without a list and for no rights.
  u32 AddAccess(const WString& path, const WString& user, u32 accessMask);

  // Removes the file's own entries. With SeSecurityPrivilege a protected, missing list is set first, for
  // which nothing is reported if it fails; then the emptied list, whose error is returned. Beyond that:
  //  - For a file without a list an empty one is set: to hand the missing list on would leave everything
  //    allowed to everyone. It is set last, so that no step that fails leaves a file that nobody may enter.
  //  - An entry that cannot be deleted ends it with that error, before anything is set.
  //  - Between the two lists everything is allowed to everyone, and that stays if the second cannot be set
  //    (C-509).
  u32 ResetAccess(const WString& path);

  // Enables SeTakeOwnershipPrivilege until the process ends, and adds it to `list` if that remembers names.
  bool EnableTakeOwnership(PrivilegeList& list);
};
