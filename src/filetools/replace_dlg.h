// The Replace X with Y dialog.
#pragma once

#include <functional>

#include "filetools/replace_form.h"
#include "frame/host/host_app.h"

// Shows the dialog, modally and over the active window or else the host's. Returns IDOK or IDCANCEL; both
// texts are in the form either way (C-309), the part on OK. The texts come from the host's language table. In
// the native build the form goes to whoever answers dialogs there.
INT_PTR ShowReplaceDlg(Velmora::SDK::IHostApp& host, ReplaceForm& form);

// The function with which the command shows the dialog. Tests replace it by one that edits the form.
using ReplaceDialog = std::function<INT_PTR(Velmora::SDK::IHostApp&, ReplaceForm&)>;
