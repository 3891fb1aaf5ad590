// Names for targets that are taken, and moving a target out of the way.
#pragma once

#include <span>

#include "platform/text.h"

// If `path` exists, replaces it by the first of path + suffix, path + "_(0002)" + suffix, and so on up to
// "_(9999)", that does not. False, and `path` as it was, when all are taken.
bool MakeUniqueFileName(WString& path, const WString& suffix);

// Room for a backup's path of 260 characters and its terminator.
constexpr std::size_t kBackupPathSize = 261;

// Moves the file to its backup name: a.txt to a.txt.bak, or a.txt_(0002).bak and so on (MoveFileW). Answers
// whether the move worked; `backupPath` gets the name, cut to 260 characters, or is left empty when all
// names are taken. For a path that does not exist it gets the path itself, and nothing is moved (C-011).
bool MoveToBackup(const WCHAR* path, std::span<WCHAR, kBackupPathSize> backupPath);

// Deletes a backup under the name that MoveToBackup gave, and takes off before what would keep it: the
// attributes read-only, hidden and system. A name that fills its room may have been cut and be that of
// another file; such a backup stays. An empty name is none. Failures are silent.
void DeleteBackup(std::span<const WCHAR, kBackupPathSize> backupPath);
