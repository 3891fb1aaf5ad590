// Find and Replace, the menu command 30151.
#pragma once

#include "findreplace/tool/find_and_replace_dlg.h"

// Shows the dialog for the selected files, with the stored options, and on OK stores them and runs.
void FindAndReplaceCommand(Velmora::SDK::IHostApp& host,
                           const FindAndReplaceDialog& show = ShowFindAndReplaceDlg);
