// The Find and Replace dialog.
#pragma once

#include <functional>

#include "findreplace/tool/find_and_replace_form.h"
#include "frame/host/host_app.h"

// Shows the modal dialog, owned by DialogOwner. Returns IDOK or IDCANCEL; after OK, `form` contains the
// user's choices. In the native build the form is passed to Platform::AskForm.
INT_PTR ShowFindAndReplaceDlg(Velmora::SDK::IHostApp& host, QXFindAndReplace::FindAndReplaceForm& form);

// The function with which the command shows the dialog. Tests replace it by one that edits the form.
using FindAndReplaceDialog =
    std::function<INT_PTR(Velmora::SDK::IHostApp&, QXFindAndReplace::FindAndReplaceForm&)>;
