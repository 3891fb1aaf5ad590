#include "host/system/remote_level.h"

namespace QxHost {

std::int32_t RemoteLevelOfRoot(const WString& root, bool (*isNetworkDrive)(const WString&)) {
  const bool isRemote =
      root.starts_with(W("\\\\")) || (root.size() == 2 && root[1] == W(':') && isNetworkDrive(root));
  return isRemote ? 1 : 0;
}

}  // namespace QxHost
