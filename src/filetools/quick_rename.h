// The quick rename commands. They read the selection, compute the new names, ask for confirmation, and let
// the host rename. Unless documented otherwise they do not write to the log, and do nothing if no name would
// change.
#pragma once

#include "filetools/replace_dlg.h"
#include "frame/host/host_app.h"

// Runs a command that has a transform; see FindNameTransform.
void QuickRenameCommand(Velmora::SDK::IHostApp& host, Velmora::SDK::s32 number);

// kCommandReplaceXWithY: asks what to replace with what, and keeps both histories.
void ReplaceXYCommand(Velmora::SDK::IHostApp& host, const ReplaceDialog& showDialog = ShowReplaceDlg);

// kCommandRenameSameBaseName: one new base name for all files of the view whose base name is the focused
// item's. Does not ask again (C-307).
void RenameSameBaseCommand(Velmora::SDK::IHostApp& host);

// kCommandSetExtension: one extension for all selected files, without one leading dot of the answer (C-308).
// Does not ask again (C-307). With nothing selected it says so in the log.
void SetExtensionCommand(Velmora::SDK::IHostApp& host);
