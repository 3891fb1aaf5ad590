// The File Security commands in the elevated helper process. Each function reads its message, changes the
// paths until the first error, and replies with that error. A message that is too short changes nothing
// (ERROR_INVALID_DATA, 13). Empty paths are skipped.
#pragma once

#include "frame/host/host_app.h"
#include "frame/host/host_helper_channel.h"

// 5000: count, paths. The owner becomes the user who runs the helper (C-510).
void HandleTakeOwnership(Velmora::SDK::IHostApp* host, Velmora::SDK::IHostHelperMessage& message);

// 5001: mask, user, count, paths. Replies 13 also if there are no paths, and ERROR_INVALID_PARAMETER (87) for
// an empty user, as the dialog's command does.
void HandleAddAccess(Velmora::SDK::IHostApp* host, Velmora::SDK::IHostHelperMessage& message);

// 5003: count, paths.
void HandleResetAccess(Velmora::SDK::IHostApp* host, Velmora::SDK::IHostHelperMessage& message);
