#include "host/system/remote_level.h"

namespace QxHost {

bool IsNetworkDrive(const WString& drive) { return GetDriveTypeW((drive + W("\\")).c_str()) == DRIVE_REMOTE; }

}  // namespace QxHost
