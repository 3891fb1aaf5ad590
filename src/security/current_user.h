// The user who runs the process.
#pragma once

#include "platform/text.h"

// Returns the name without its domain; empty if the system does not return it.
WString CurrentUserName();

// Returns "DOMAIN\name", or only the name if there is no domain; empty if the system does not return it.
WString CurrentAccountName();
