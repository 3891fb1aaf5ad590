// The Sort Lines dialog.
#pragma once

#include <functional>

#include "frame/host/host_app.h"
#include "linesorter/tool/sort_lines_form.h"

// Shows the modal dialog, owned by DialogOwner. Returns IDOK or IDCANCEL; after OK, `form` contains the
// user's choices. The texts come from the host's language table. In the native build the form is passed to
// Platform::AskForm.
INT_PTR ShowSortLinesDlg(Velmora::SDK::IHostApp& host, WQLineSorter::SortLinesForm& form);

// The function with which the command shows the dialog. Tests replace it by one that edits the form.
using SortLinesDialog = std::function<INT_PTR(Velmora::SDK::IHostApp&, WQLineSorter::SortLinesForm&)>;
