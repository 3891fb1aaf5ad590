// The name that a file has while another one takes its name.
#pragma once

#include "platform/text.h"

namespace QxHost {

// NAME.qxhost-tmp, which shows whoever finds it what it was; from the second number on with the number behind
// it. Of a long name the end is left out, so that the whole is no longer than a name may be.
WString TemporaryName(WStringView name, unsigned number);

}  // namespace QxHost
