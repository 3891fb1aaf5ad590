// The quick rename command that replaces one text by another.
#pragma once

#include "filetools/replace_dlg.h"
#include "frame/host/host_app.h"

// kCommandReplaceXWithY: asks what to replace with what, and keeps both histories.
void ReplaceXYCommand(Velmora::SDK::IHostApp& host, const ReplaceDialog& showDialog = ShowReplaceDlg);
