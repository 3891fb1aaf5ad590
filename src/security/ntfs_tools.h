// Who owns a file, what the current user may do with it, its alternate data streams, and the three changes:
// take ownership, add access, reset access.
//
// Paths are taken as they stand. What changes something returns 0 or a Windows error number;
// ERROR_INVALID_PARAMETER (87) stands for an empty path or user as well. Nothing here shows anything to the
// user. The questions may be asked from several threads.
#pragma once

#include "frame/host/host_types.h"
#include "security/privilege_list.h"

class NTFSTools {
 public:
  using u32 = Velmora::SDK::u32;
  using u64 = Velmora::SDK::u64;

  virtual ~NTFSTools() = default;

  // Stores "DOMAIN\name", or the name alone where there is no domain. With `remote` the server of the path
  // is asked for the name. False, and `owner` as it was, if the owner cannot be told.
  bool GetOwnerName(const WCHAR* path, WString& owner, bool remote);

  // Three characters: R, W and X for what the user who runs the program may do, each a blank if he may not.
  WString GetAccessString(const WString& path);

  // The number of the streams without the first one, which is a file's unnamed one, and the sum of their
  // bytes. So the only stream of a folder, which has no unnamed one, does not count (C-501). 0 for what
  // cannot be asked. Needs 64 KiB of stack.
  u32 GetAlternateStreamCount(const WCHAR* path);
  u64 GetAlternateStreamSize(const WCHAR* path);

  // The server that the drive of the path is mapped to. The network is not asked again for a drive letter
  // whose server is known.
  bool GetServerOfDrive(WString& server, const WCHAR* path);

  // Makes the user the owner. EnableTakeOwnership comes before.
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

  // Enables SeTakeOwnershipPrivilege for the life of the process, and lists it if the list remembers.
  bool EnableTakeOwnership(PrivilegeList& list);
};
