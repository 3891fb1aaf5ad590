// Names of keys, as menus show them.
#pragma once

#include "platform/text.h"

namespace QxHost {

// The name of a virtual key, empty for one that has none here.
WString KeyName(unsigned key);

}  // namespace QxHost
