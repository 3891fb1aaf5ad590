// The Replace X with Y dialog.
#pragma once

#include <functional>

#include "filetools/replace_form.h"
#include "frame/host/host_app.h"

// Shows the modal dialog, owned by DialogOwner. Returns IDOK or IDCANCEL; stores both texts in the form in
// either case (C-309), the part only after OK. In the native build the form is passed to Platform::AskForm.
INT_PTR ShowReplaceDlg(Velmora::SDK::IHostApp& host, ReplaceForm& form);

// The function with which the command shows the dialog. Tests replace it by one that edits the form.
using ReplaceDialog = std::function<INT_PTR(Velmora::SDK::IHostApp&, ReplaceForm&)>;
