// The commands of the File Security menu, on the selected items.
//
// If the host is not elevated and the system has an elevated helper, the helper does the work; if it cannot
// be reached, this process does. The first error ends the command and is shown to the user; the items after
// it are not changed. Items without a path, or with a truncated one, are skipped.
#pragma once

#include "security/change_access_dlg.h"

// 30300: makes the current user the owner; if the helper does the work, the user who runs the helper.
void TakeOwnershipCommand(Velmora::SDK::IHostApp& host);

// 30310: asks for confirmation and removes the items' own access entries.
void ResetAccessCommand(Velmora::SDK::IHostApp& host);

// 30311: shows the dialog and adds an access entry for a user or group. The second form shows
// ShowChangeAccessDlg.
void AddAccessCommand(Velmora::SDK::IHostApp& host, const ChangeAccessDialog& show);
void AddAccessCommand(Velmora::SDK::IHostApp& host);
