// Full paths, made from the text alone as GetFullPathNameW does: nothing is looked up but the current folder.
#pragma once

#include <string>
#include <string_view>

namespace Platform {

// The parts of a path that "." and ".." cannot remove: what its first characters say about where it begins.
enum class PathRoot {
  kNone,           // a\b: the current folder
  kRooted,         // \a\b: the drive Z:
  kDrive,          // X:\a\b
  kDriveRelative,  // X:a\b: the current folder of that drive
  kServer,         // \\server\share\a\b
  kDevice,         // \\?\a\b or \\.\a\b
};

PathRoot RootOf(std::u16string_view path);

inline bool IsSeparator(char16_t unit) { return unit == u'\\' || unit == u'/'; }

// True for Z and z: the one drive there is.
inline bool IsOurDrive(char16_t letter) { return letter == u'Z' || letter == u'z'; }

// True for a path that is its own full path at first sight: of a drive, with backslashes alone, and no name
// that is empty or ends in a dot or a blank.
bool IsPlainFullPath(std::u16string_view path);

// The full path: slashes become backslashes, "." and ".." are worked in, an inner name loses one dot at its
// end and the last one all dots and spaces there. A backslash at the end stays. Empty for an empty path, one
// of spaces alone, or if there is no current folder.
std::u16string FullPath(std::u16string_view path);

}  // namespace Platform
