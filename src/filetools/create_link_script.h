// Create Link, the script command 30351.
#pragma once

#include "frame/host/host_app.h"

// Runs the call, which was given all required parameters: 1 if the link was made. Where an attempt was made
// its error is the result's code, and without ASADMIN its text as well. 0 without a result where there was
// none: LNKTRG is not there, or ASADMIN asks for a helper that the system has not got or the process, being
// elevated, does not need.
Velmora::SDK::s32 CreateLinkScript(Velmora::SDK::IHostApp& host, Velmora::SDK::IHostCommandCall& call);
