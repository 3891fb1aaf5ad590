// Sort Lines, the menu command 30150.
#pragma once

#include "linesorter/tool/sort_lines_dlg.h"

// Shows the dialog for the selected files, with the stored options. On OK, stores the options and runs the
// job.
void SortLinesCommand(Velmora::SDK::IHostApp& host, const SortLinesDialog& show = ShowSortLinesDlg);
