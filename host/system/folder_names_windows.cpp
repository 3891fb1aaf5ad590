#include "host/system/folder_names.h"

namespace QxHost {

// Short names (`LONGNA~1`) stand in no listing, and are taken all the same.
bool ReadFolderNames(const WString&, std::size_t, FolderNames&) { return false; }

}  // namespace QxHost
