#include "host/command_line/name_pattern.h"

namespace QxHost {

const bool kItemsArePatterns = false;

}  // namespace QxHost
