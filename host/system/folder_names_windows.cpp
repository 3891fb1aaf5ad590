#include "host/system/folder_names.h"

namespace QxHost {

// Not supported: a file also exists under its short name (`LONGNA~1`), which the listing does not contain.
bool ReadFolderNames(const WString&, std::size_t, FolderNames&) { return false; }

}  // namespace QxHost
