// The Create Link dialog.
#pragma once

#include <functional>

#include "filetools/create_links_form.h"
#include "frame/host/host_app.h"

// Shows the dialog, modally, over the active window or else the host's. Answers IDOK or IDCANCEL; on OK the
// form's names and kind are what the user chose. In the native build the form goes to whoever answers dialogs
// there.
INT_PTR ShowCreateLinksDlg(Velmora::SDK::IHostApp& host, CreateLinksForm& form);

// How the command asks for the dialog, so that a test can answer by editing the form.
using CreateLinksDialog = std::function<INT_PTR(Velmora::SDK::IHostApp&, CreateLinksForm&)>;
