// Names of keys, as menus show them.
#pragma once

#include "platform/text.h"

namespace QxHost {

// Keys that are held with another one, as IHostApp::GetKeyText takes them.
constexpr unsigned kWithAlt = 16;

// The name of a virtual key, empty for one that has none here: "Up", and "Alt+Up" with kWithAlt.
WString KeyName(unsigned key, unsigned with = 0);

}  // namespace QxHost
