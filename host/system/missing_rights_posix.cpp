#include "host/system/missing_rights.h"

#include "platform/posix/files/faults.h"

namespace QxHost {

const bool kRightsCanBeTaken = true;

void TakeRightToLink() { Platform::Faults::Fail("CreateSymbolicLinkW", 1, ERROR_PRIVILEGE_NOT_HELD, true); }

}  // namespace QxHost
