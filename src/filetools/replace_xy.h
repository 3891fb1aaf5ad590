// The quick rename command that replaces a text by another one.
#pragma once

#include "filetools/replace_dlg.h"
#include "frame/host/host_app.h"

// kCommandReplaceXWithY: asks what to replace with what, and stores both histories.
void ReplaceXYCommand(Velmora::SDK::IHostApp& host, const ReplaceDialog& showDialog = ShowReplaceDlg);
