// The Find and Replace dialog.
#pragma once

#include <functional>

#include "findreplace/tool/find_and_replace_form.h"
#include "frame/host/host_app.h"

// Shows the dialog, modally, over the active window or else the host's. Answers IDOK or IDCANCEL; on OK the
// form holds what the user chose. In the native build the form goes to whoever answers dialogs there.
INT_PTR ShowFindAndReplaceDlg(Velmora::SDK::IHostApp& host, QXFindAndReplace::FindAndReplaceForm& form);

// How the command asks for the dialog, so that a test can answer by editing the form.
using FindAndReplaceDialog =
    std::function<INT_PTR(Velmora::SDK::IHostApp&, QXFindAndReplace::FindAndReplaceForm&)>;
