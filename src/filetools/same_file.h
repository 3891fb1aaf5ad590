// Checks whether two paths refer to the same file or folder.
#pragma once

#include <optional>

#include "platform/text.h"

// How to treat a path that ends in a symbolic link or a junction.
enum class LinkEnd {
  kFollowed,  // use the target of the link
  kItself     // use the link itself
};

// Returns whether two paths refer to the same file or folder. Compares volume and file index of files that
// can be opened (GetFileInformationByHandle); an existing and a missing path are different. If the file
// system does not provide them, or neither path exists, compares the full paths, ignoring case.
bool IsSameFile(const WString& one, LinkEnd oneEnd, const WString& other, LinkEnd otherEnd);

// Returns whether the information is that of the same file; std::nullopt if the file system does not provide
// file indices.
std::optional<bool> HaveSameIndex(const BY_HANDLE_FILE_INFORMATION& one,
                                  const BY_HANDLE_FILE_INFORMATION& other);
