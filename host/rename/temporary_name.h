// The temporary name of a file while another one takes its name.
#pragma once

#include "platform/text.h"

namespace QxHost {

// Returns NAME.qxhost-tmp, which shows the user what the file was, followed by `number` if that is 2 or more.
// Cuts the end of a long name so that the result is not too long.
WString TemporaryName(WStringView name, unsigned number);

}  // namespace QxHost
