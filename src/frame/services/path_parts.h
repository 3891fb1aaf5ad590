// Splits a path at its last backslash, and changes its extension.
#pragma once

#include "platform/text.h"

// The parts of a path: `folder` is the text up to and including the last backslash, empty without one;
// `fileName` is the rest.
struct PathParts {
  WString folder;
  WString fileName;
};

// Splits `path` and stores the result in `parts`. Truncates the folder to 1024 characters (C-018).
void SplitPath(PathParts& parts, WStringView path);

// Returns the path with the extension of the file name, from its last dot on, replaced by `extension`, which
// includes its dot; appends it to a name without a dot. If `extension` is null, keeps the file name.
WString ChangeExtension(const PathParts& parts, const WCHAR* extension);
