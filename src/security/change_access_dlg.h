// The Add File Access dialog.
#pragma once

#include <functional>

#include "frame/host/host_app.h"
#include "security/change_access_form.h"
#include "security/object_picker.h"

// Shows the modal dialog, owned by DialogOwner. Returns IDOK or IDCANCEL; after OK, `form` contains the
// user's choice. The Find button calls `pick` for a name. In the native build the form is passed to
// Platform::AskForm, and there is no Find button.
INT_PTR ShowChangeAccessDlg(Velmora::SDK::IHostApp& host, ChangeAccessForm& form,
                            const AccountPicker& pick = PickAccount);

// The function with which the command shows the dialog. Tests replace it by one that edits the form.
using ChangeAccessDialog = std::function<INT_PTR(Velmora::SDK::IHostApp&, ChangeAccessForm&)>;
