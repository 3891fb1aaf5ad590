#include "host/system/remote_level.h"

namespace QxHost {

bool IsNetworkDrive(const WString&) { return false; }

}  // namespace QxHost
