// The commands of the File Security menu, on the selected items.
//
// Where the host is not elevated and the system has an elevated helper, the helper does the work; where it
// cannot be reached, this process does. The first error ends the walk and is shown, the items after it stay
// as they are. Items without a path, or with one that was cut, are passed over.
#pragma once

#include "security/change_access_dlg.h"

// kCommandTakeOwnership: makes the current user the owner, or in the helper the helper's user.
void TakeOwnershipCommand(Velmora::SDK::IHostApp& host);

// kCommandResetAccess: asks, and removes the items' own access entries.
void ResetAccessCommand(Velmora::SDK::IHostApp& host);

// kCommandAddAccess: shows the dialog, and adds an entry for a user or group.
void AddAccessCommand(Velmora::SDK::IHostApp& host, const ChangeAccessDialog& show);
void AddAccessCommand(Velmora::SDK::IHostApp& host);
