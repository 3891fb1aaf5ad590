// Paths and names in the form in which the host passes them to the module: full paths `Z:\a\b`, names split
// at their last dot.
#pragma once

#include <optional>
#include <string_view>

#include "platform/text.h"

namespace QxHost {

// Converts an argument or a line of input (UTF-8) to a path. An invalid byte becomes a low surrogate
// U+DC80..U+DCFF, which the native platform layer converts back.
WString PathFromUtf8(std::string_view bytes);

// Returns the full path of `path`, which may be relative and contain `/`. The result has the drive in upper
// case and no separator at its end, except for the root of a drive (`Z:\`). Returns std::nullopt if the
// system refuses the path, if it is empty or names a device, and for `Z:` and `Z:a`, which would mean the
// current folder of that drive, which is not visible to the user. Keeps a name that ends in a dot or a blank,
// which the system would shorten to the name of another file.
std::optional<WString> FullPathOf(const WString& path);

// Returns whether a path begins at a root, in either notation. Batches rename only such paths, because they
// do not depend on the current folder.
bool IsFullPath(WStringView path);

// Returns the path in the form to pass to the system: the long form (`\\?\`) if it is too long for the short
// form or has a name that ends in a dot or a blank, which the system would remove in the short form.
WString SystemPath(const WString& fullPath);

// Returns whether the path can be passed to the system unchanged.
bool IsSystemPath(const WString& fullPath);

// The root (`Z:` or `\\server\share`) and the names below it.
struct RootAndRest {
  WStringView root;
  WStringView rest;  // without a separator at its beginning; empty for a root
};
RootAndRest SplitRoot(WStringView fullPath);

// The base name of a file ends before the last dot, and the extension begins with it. A name without a dot
// has no extension, and neither has a folder.
struct NameParts {
  WStringView base;
  WStringView extension;  // with its dot
};
NameParts SplitName(WStringView name, bool isFolder);

// Returns the name without the dots and blanks at its end, which Windows removes when a file is created.
// Returns the empty text if nothing else is left.
WStringView NameToMake(WStringView name);

// Returns false for a text that cannot be a name: the empty text, `.`, `..`, and a text with a separator, a
// character that Windows reserves, or a control character.
bool IsPossibleName(WStringView name);

// Returns the path of a name in a folder, whose own path may end in a backslash.
WString PathInFolder(const WString& folder, WStringView name);

// Creates the folder and its missing parents. Returns 0, or the error number of the first failure.
DWORD MakeFolder(const WString& fullPath);

// Returns whether a folder exists at this path.
bool IsFolder(const WString& fullPath);

}  // namespace QxHost
