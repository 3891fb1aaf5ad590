// The elevated helper's side of the File Security commands. Each reads its message, does the work as long as
// there is no error, and replies with the error. A message that ends too early changes nothing
// (ERROR_INVALID_DATA, 13); an empty path is passed over.
#pragma once

#include "frame/host/host_app.h"
#include "frame/host/host_helper_channel.h"

// 5000: count, paths. The owner becomes the user who runs the helper (C-510).
void HandleTakeOwnership(Velmora::SDK::IHostApp* host, Velmora::SDK::IHostHelperMessage& message);

// 5001: mask, user, count, paths. 13 as well for no paths. A user that is there and empty is an error of the
// work, as in the dialog: ERROR_INVALID_PARAMETER (87).
void HandleAddAccess(Velmora::SDK::IHostApp* host, Velmora::SDK::IHostHelperMessage& message);

// 5003: count, paths.
void HandleResetAccess(Velmora::SDK::IHostApp* host, Velmora::SDK::IHostHelperMessage& message);
