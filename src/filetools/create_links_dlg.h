// The Create Link dialog.
#pragma once

#include <functional>

#include "filetools/create_links_form.h"
#include "frame/host/host_app.h"

// Shows the modal dialog, owned by DialogOwner. Returns IDOK or IDCANCEL; after OK, the names and the kind in
// `form` are the user's choice. In the native build the form is passed to Platform::AskForm.
INT_PTR ShowCreateLinksDlg(Velmora::SDK::IHostApp& host, CreateLinksForm& form);

// The function with which the command shows the dialog. Tests replace it by one that edits the form.
using CreateLinksDialog = std::function<INT_PTR(Velmora::SDK::IHostApp&, CreateLinksForm&)>;
