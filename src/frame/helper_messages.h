// Handles the messages that the elevated helper passes to its instance of File Utils.
#pragma once

#include "frame/host/host_app.h"
#include "frame/host/host_helper_channel.h"

// Performs the request in the message and sets its reply. Returns 1 for a known code, even if the request
// failed; 0 for an unknown code, without reading the message. `host` may be null.
Velmora::SDK::s32 HandleHelperMessage(Velmora::SDK::IHostApp* host, Velmora::SDK::s32 code,
                                      Velmora::SDK::IHostHelperMessage& message);
