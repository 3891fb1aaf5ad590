// Finds free names for targets that exist, and moves existing targets to backups.
#pragma once

#include <span>

#include "platform/text.h"

// If `path` exists, replaces it by the first of path + suffix, path + "_(0002)" + suffix and so on up to
// "_(9999)" that does not exist. Returns false and leaves `path` unchanged if all of them exist.
bool MakeUniqueFileName(WString& path, const WString& suffix);

// The size of the buffer for a backup's path: 260 characters and a terminator.
constexpr std::size_t kBackupPathSize = 261;

// Moves the file to a backup name: a.txt to a.txt.bak, or a.txt_(0002).bak and so on (MoveFileW). Returns
// whether the move succeeded. Stores the name in `backupPath`, truncated to 260 characters, or the empty text
// if all names exist. If `path` does not exist, stores `path` itself, and the move fails (C-011).
bool MoveToBackup(const WCHAR* path, std::span<WCHAR, kBackupPathSize> backupPath);

// Deletes a backup by the name that MoveToBackup stored, after removing the attributes read-only, hidden and
// system. Does nothing for an empty name, and for a name of 260 characters, which may have been truncated and
// name another file. Ignores failures.
void DeleteBackup(std::span<const WCHAR, kBackupPathSize> backupPath);
