// Runs a directory walk to its end and records what it returned.
#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <vector>

#include "frame/services/directory_walker.h"
#include "support/scratch_folder.h"

struct WalkStep {
  int code;
  WString path;  // of an entry, relative to the start folder; empty for other codes
};

// More than the steps of any walk in the tests; a longer walk is endless.
constexpr int kTooManySteps = 100000;

struct Walk {
  std::vector<WalkStep> steps;

  // Returns the entries with this code, sorted, because the order depends on the file system.
  std::vector<WString> Of(int code) const {
    std::vector<WString> found;
    for (const WalkStep& step : steps) {
      if (step.code == code) found.push_back(step.path);
    }
    std::sort(found.begin(), found.end());
    return found;
  }
  int Count(int code) const { return static_cast<int>(Of(code).size()); }
  bool Ended() const { return !steps.empty() && steps.back().code == DirectoryWalker::kEnd; }
};

// Continues the walk to its end. With `descend`, enters every folder that is returned with 102.
inline Walk RunWalk(DirectoryWalker& walker, const WString& start, bool descend = false) {
  Walk walk;
  for (int i = 0; i < kTooManySteps; ++i) {
    const DirectoryWalker::Code code = walker.NextWithRetry();
    WalkStep step = {code, {}};
    if (code == DirectoryWalker::kFile || code == DirectoryWalker::kFolder) {
      const WString full = walker.GetCurrentPath();
      step.path = full.starts_with(start + W("\\")) ? full.substr(start.size() + 1) : full;
    }
    walk.steps.push_back(step);
    if (code == DirectoryWalker::kEnd) return walk;
    if (descend && code == DirectoryWalker::kFolder) walker.descendNext = true;
  }
  ADD_FAILURE() << "the walk does not end";
  return walk;
}

// The flags for all files of a tree, without the folders.
constexpr std::uint32_t kAllFiles = DirectoryWalker::kPassDotEntries | DirectoryWalker::kNoReparsePoints |
                                    DirectoryWalker::kNoFolders | DirectoryWalker::kRecurse;

// Sets the walker to the start of the folder, with these flags.
inline DirectoryWalker& Prepared(DirectoryWalker& walker, const WString& folder,
                                 std::uint32_t flags = kAllFiles, const WString& pattern = W("*")) {
  walker.Reset(folder);
  walker.pattern = pattern;
  walker.flags = flags;
  return walker;
}

// Walks the whole folder with these flags.
inline Walk WalkFolder(const WString& folder, const WString& pattern, std::uint32_t flags,
                       bool descend = false) {
  DirectoryWalker walker;
  return RunWalk(Prepared(walker, folder, flags, pattern), folder, descend);
}

inline std::vector<WString> Names(std::initializer_list<const WCHAR*> names) {
  std::vector<WString> sorted(names.begin(), names.end());
  std::sort(sorted.begin(), sorted.end());
  return sorted;
}
