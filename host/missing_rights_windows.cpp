#include "host/missing_rights.h"

namespace QxHost {

const bool kRightsCanBeTaken = false;

void TakeRightToLink() {}

}  // namespace QxHost
