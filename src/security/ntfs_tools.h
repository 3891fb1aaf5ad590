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

  // Return the number of streams and their total size in bytes, without the first stream, which is the
  // unnamed one of a file. So the only stream of a folder, which has no unnamed one, does not count (C-501).
  // Return 0 if the streams cannot be read. Use 64 KiB of stack.
  u32 GetAlternateStreamCount(const WCHAR* path);
  u64 GetAlternateStreamSize(const WCHAR* path);

  // Stores the server that the drive of the path is mapped to. Servers of drive letters are cached
  // (server_cache.h).
  bool GetServerOfDrive(WString& server, const WCHAR* path);

  // Makes the user the owner. Call EnableTakeOwnership first.
  u32 TakeOwnership(const WString& path, const WString& user);

  // Adds an entry that allows the rights of the mask to a user or group, and turns every entry of the list,
  // including those that deny, into one that allows and is inherited (C-505). Does not report a failure to
  // set the new list (C-506). Returns 87 for a file without a list and for a mask of 0.
  u32 AddAccess(const WString& path, const WString& user, u32 accessMask);

  // Removes the file's own entries. With SeSecurityPrivilege, first sets a missing list that is protected,
  // and ignores a failure; then sets the emptied list and returns its error. Details:
  //  - A file without a list gets an empty one, because a missing list would allow everything to everyone.
  //    It is set last, so that no failure leaves a file that nobody may access.
  //  - If an entry cannot be deleted, returns that error before anything is set.
  //  - Between the two lists everything is allowed to everyone, and this remains if the second list cannot
  //    be set (C-509).
  u32 ResetAccess(const WString& path);

  // Enables SeTakeOwnershipPrivilege until the process ends, and adds it to `list` if that remembers names.
  bool EnableTakeOwnership(PrivilegeList& list);
};
