// Create Link, the script command 30351.
#pragma once

#include "frame/host/host_app.h"

// Runs the call, which has all required parameters. Returns 1 if the link was created. If creating it was
// tried, sets the error as the code of the call's result and, without ASADMIN, its text as well. Returns 0
// without a result if it was not tried: LNKTRG does not exist, or ASADMIN is given but the system has no
// helper or the process is already elevated.
Velmora::SDK::s32 CreateLinkScript(Velmora::SDK::IHostApp& host, Velmora::SDK::IHostCommandCall& call);
