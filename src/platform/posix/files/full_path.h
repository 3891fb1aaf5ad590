// Makes full paths from the text alone, as GetFullPathNameW does: reads the current folder but does not
// access the file system otherwise.
#pragma once

#include <string>
#include <string_view>

namespace Platform {

// The kinds of roots of a path: what its first characters say about where it begins. "." and ".." cannot
// remove a root.
enum class PathRoot {
  kNone,           // a\b: the current folder
  kRooted,         // \a\b: the drive Z:
  kDrive,          // X:\a\b
  kDriveRelative,  // X:a\b: the current folder of that drive
  kServer,         // \\server\share\a\b
  kDevice,         // \\?\a\b or \\.\a\b
};

// Returns the kind of root that a path begins with.
PathRoot RootOf(std::u16string_view path);

inline bool IsSeparator(char16_t unit) { return unit == u'\\' || unit == u'/'; }

// Returns true for Z and z, the only drive that exists.
inline bool IsOurDrive(char16_t letter) { return letter == u'Z' || letter == u'z'; }

// Returns true if FullPath would return `path` unchanged, by a quick check that may miss some: the path
// begins at a drive, uses only backslashes, and has no name that is empty or ends in a dot or a space.
bool IsPlainFullPath(std::u16string_view path);

// Returns the full path: replaces slashes by backslashes, resolves "." and "..", removes one trailing dot
// from each inner name and all trailing dots and spaces from the last one. Keeps a backslash at the end.
// Returns the empty text for a path that is empty or only spaces, and if the current folder is needed and
// does not exist any more.
std::u16string FullPath(std::u16string_view path);

}  // namespace Platform
