// The quick rename commands. They read the selection, compute the new names, ask for confirmation, and let
// the host rename. Unless documented otherwise they do not write to the log, and do nothing if no name would
// change.
#pragma once

#include "filetools/replace_dlg.h"
#include "frame/host/host_app.h"

// Runs a command that has a transform; see FindNameTransform.
void QuickRenameCommand(Velmora::SDK::IHostApp& host, Velmora::SDK::s32 number);

// kCommandReplaceXWithY: asks what to replace with what, and stores both histories.
void ReplaceXYCommand(Velmora::SDK::IHostApp& host, const ReplaceDialog& showDialog = ShowReplaceDlg);

// kCommandRenameSameBaseName: gives one new base name to all files of the view that have the base name of the
// focused item. Does not ask for confirmation (C-307).
void RenameSameBaseCommand(Velmora::SDK::IHostApp& host);

// kCommandSetExtension: sets one extension for all selected files, after removing one leading dot from the
// answer (C-308). Does not ask for confirmation (C-307). Logs a message if nothing is selected.
void SetExtensionCommand(Velmora::SDK::IHostApp& host);
