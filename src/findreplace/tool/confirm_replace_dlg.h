// The dialog that asks about a match.
#pragma once

#include <functional>

#include "findreplace/tool/confirm_replace_form.h"
#include "frame/host/host_app.h"

namespace QXFindAndReplace {

// Shows the modal dialog, owned by DialogOwner, and stores the user's answer in form.result. In the native
// build the form is passed to Platform::AskForm.
void ShowConfirmReplaceDlg(Velmora::SDK::IHostApp& host, ConfirmReplaceForm& form);

// The function with which the callback shows the dialog. Tests replace it by one that edits the form.
using ConfirmReplaceDialog = std::function<void(Velmora::SDK::IHostApp&, ConfirmReplaceForm&)>;

}  // namespace QXFindAndReplace
