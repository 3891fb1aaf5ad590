#include "host/system/missing_rights.h"

namespace QxHost {

const bool kRightsCanBeTaken = false;

void TakeRightToLink() {}

}  // namespace QxHost
