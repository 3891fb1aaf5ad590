// The dialog that asks about a match.
#pragma once

#include <functional>

#include "findreplace/tool/confirm_replace_form.h"
#include "frame/host/host_app.h"

namespace QXFindAndReplace {

// Shows the dialog, modally, over the active window or else the host's; the answer is in form.result. In the
// native build the form goes to whoever answers dialogs there.
void ShowConfirmReplaceDlg(Velmora::SDK::IHostApp& host, ConfirmReplaceForm& form);

// How the callback asks for the dialog, so that a test can answer by editing the form.
using ConfirmReplaceDialog = std::function<void(Velmora::SDK::IHostApp&, ConfirmReplaceForm&)>;

}  // namespace QXFindAndReplace
