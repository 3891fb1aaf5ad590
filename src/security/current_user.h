// The user who runs the program.
#pragma once

#include "platform/text.h"

// The name without its domain; empty if it cannot be told.
WString CurrentUserName();

// "DOMAIN\name", or the name alone where there is no domain; empty if it cannot be told.
WString CurrentAccountName();
