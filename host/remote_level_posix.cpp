#include "host/remote_level.h"

namespace QxHost {

bool IsNetworkDrive(const WString&) { return false; }

}  // namespace QxHost
