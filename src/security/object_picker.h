// The system's dialog for choosing a user or group.
#pragma once

#include <functional>
#include <optional>

#include "platform/text.h"

// Shows the dialog, owned by `owner` (IDsObjectPicker). Returns the account as "DOMAIN\name"; std::nullopt if
// none was chosen or the system does not have the dialog. The calling thread must be in a COM apartment.
std::optional<WString> PickAccount(HWND owner);

using AccountPicker = std::function<std::optional<WString>(HWND owner)>;
