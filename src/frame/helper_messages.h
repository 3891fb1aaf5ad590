// The messages that the elevated helper hands to its instance of File Utils.
#pragma once

#include "frame/host/host_app.h"
#include "frame/host/host_helper_channel.h"

// Does what the message asks for and sets its reply. 1 for a code that there is, whatever became of it; 0 for
// any other, and then the message is not looked at. There may be no host.
Velmora::SDK::s32 HandleHelperMessage(Velmora::SDK::IHostApp* host, Velmora::SDK::s32 code,
                                      Velmora::SDK::IHostHelperMessage& message);
