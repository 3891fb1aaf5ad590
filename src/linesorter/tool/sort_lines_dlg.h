// The Sort Lines dialog.
#pragma once

#include <functional>

#include "frame/host/host_app.h"
#include "linesorter/tool/sort_lines_form.h"

// Shows the dialog, modally and over the active window or else the host's. Answers IDOK or IDCANCEL; on OK
// the form holds what the user chose. The texts come from the host's language table. In the native build the
// form goes to whoever answers dialogs there.
INT_PTR ShowSortLinesDlg(Velmora::SDK::IHostApp& host, WQLineSorter::SortLinesForm& form);

// How the command asks for the dialog, so that a test can answer by editing the form.
using SortLinesDialog = std::function<INT_PTR(Velmora::SDK::IHostApp&, WQLineSorter::SortLinesForm&)>;
