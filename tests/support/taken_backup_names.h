// Creates files with the backup names of a target.
#pragma once

#include <cstdio>

#include "support/scratch_folder.h"

// The number of the last backup name.
constexpr int kLastBackupNumber = 9999;

// Creates the empty files "a.txt.bak" and "a.txt_(0002).bak" up to the given number: backup names of "a.txt".
inline void TakeBackupNames(const ScratchFolder& folder, int last) {
  folder.Write(W("a.txt.bak"), "");
  for (int number = 2; number <= last; ++number) {
    char name[32];
    std::snprintf(name, sizeof name, "a.txt_(%04d).bak", number);
    folder.Write(FromUtf8(name), "");
  }
}
