// Splitting a path at its last backslash and changing its extension.
#pragma once

#include "platform/text.h"

// `folder` reaches up to and including the last backslash and is empty if there is none; `fileName` is the
// rest.
struct PathParts {
  WString folder;
  WString fileName;
};

// Fills `parts`. At most 1024 characters of the folder are kept (C-018).
void SplitPath(PathParts& parts, WStringView path);

// The folder, the file name up to its last dot (a name without a dot is taken whole) and `extension`, which
// brings its own dot. A null extension keeps the file name as it is.
WString ChangeExtension(const PathParts& parts, const WCHAR* extension);
