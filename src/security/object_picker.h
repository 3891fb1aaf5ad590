// The system's dialog in which a user or group is chosen.
#pragma once

#include <functional>
#include <optional>

#include "platform/text.h"

// Shows it over the window. The account as "DOMAIN\name"; nothing if none was chosen or there is no such
// dialog. The thread must have entered a COM apartment.
std::optional<WString> PickAccount(HWND owner);

using AccountPicker = std::function<std::optional<WString>(HWND owner)>;
