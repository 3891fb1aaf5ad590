// Paths and names as the host hands them to the module: full paths of the form `Z:\a\b`, names cut at their
// last dot.
#pragma once

#include <optional>
#include <string_view>

#include "platform/text.h"

namespace QxHost {

// An argument or a line of input (UTF-8) as a path. A byte that is no UTF-8 becomes a low surrogate
// U+DC80..U+DCFF, by which the native platform layer finds the file again.
WString PathFromUtf8(std::string_view bytes);

// The full path of `path`, which may be relative and may be written with `/`. Without a separator at its end,
// but for the root of a drive (`Z:\`), and with the drive in upper case. Nothing if the system refuses the
// path, if it is empty or a device's, and for `Z:` and `Z:a`, which would mean the current folder of that
// drive: nobody sees which one that is. A name that ends in a dot or a blank is kept, where the system would
// cut it and mean another file.
std::optional<WString> FullPathOf(const WString& path);

// True for a path that begins at a root, in either way of writing it. Nothing else may be renamed by path:
// the current folder has no part in what a batch means.
bool IsFullPath(WStringView path);

// The path as it is given to the system: in its long form (`\\?\`) if it is too long for the short one, or
// has a name that ends in a dot or a blank, which the system would cut there.
WString SystemPath(const WString& fullPath);

// True for a path that may be given to the system as it is.
bool IsSystemPath(const WString& fullPath);

// The root (`Z:` or `\\server\share`) and the names below it.
struct RootAndRest {
  WStringView root;
  WStringView rest;  // without a separator at its begin; empty for a root
};
RootAndRest SplitRoot(WStringView fullPath);

// A file's base name ends at the last dot, and the extension begins with it; a name without a dot has no
// extension. A folder has none at all.
struct NameParts {
  WStringView base;
  WStringView extension;  // with its dot
};
NameParts SplitName(WStringView name, bool isFolder);

// The name as it is made: without the dots and blanks at its end, which no program of Windows can give a
// name. Empty if nothing else is in it.
WStringView NameToMake(WStringView name);

// False for what can be no name: the empty text, `.` and `..`, and one with a separator, a character that
// Windows keeps for itself, or a control character.
bool IsPossibleName(WStringView name);

// Makes the folder with all folders above it. 0, or the error number of what could not be made.
DWORD MakeFolder(const WString& fullPath);

bool IsFolder(const WString& fullPath);

}  // namespace QxHost
