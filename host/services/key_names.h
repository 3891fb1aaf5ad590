// The names of keys, as menus show them.
#pragma once

#include "platform/text.h"

namespace QxHost {

// The modifier keys, as the argument of IHostApp::GetKeyText.
constexpr unsigned kWithAlt = 16;

// Returns the name of a virtual key: "Up", or "Alt+Up" with kWithAlt; empty for a key without a name here.
WString KeyName(unsigned key, unsigned with = 0);

}  // namespace QxHost
