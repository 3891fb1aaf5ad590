// Whether two paths are one file or folder.
#pragma once

#include <optional>

#include "platform/text.h"

// What a path means that ends at a symbolic link or a junction.
enum class LinkEnd {
  kFollowed,  // the file that it leads to
  kItself
};

// Returns whether the two paths are one file or folder. The file system knows, by the volume and the index of
// files that can be opened; a path that exists and one that does not are two files. Where the file system
// cannot tell, and where neither path has a file yet, the full paths are compared, without regard to case.
bool IsSameFile(const WString& one, LinkEnd oneEnd, const WString& other, LinkEnd otherEnd);

// Returns whether two open files are one; nothing if their file system gives files no index.
std::optional<bool> HaveSameIndex(const BY_HANDLE_FILE_INFORMATION& one,
                                  const BY_HANDLE_FILE_INFORMATION& other);
