#include "host/controls/shell_images.h"

namespace QxHost {

s64 ShellImageOf(const WString&, u32) { return 0; }

}  // namespace QxHost
