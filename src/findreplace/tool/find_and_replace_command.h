// Find and Replace, the menu command 30151.
#pragma once

#include "findreplace/tool/find_and_replace_dlg.h"

// Shows the dialog for the selected files, with the stored options. On OK, stores the options and starts the
// run.
void FindAndReplaceCommand(Velmora::SDK::IHostApp& host,
                           const FindAndReplaceDialog& show = ShowFindAndReplaceDlg);
