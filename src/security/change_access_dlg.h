// The Add File Access dialog.
#pragma once

#include <functional>

#include "frame/host/host_app.h"
#include "security/change_access_form.h"
#include "security/object_picker.h"

// Shows the dialog, modally, over the active window or else the host's. Returns IDOK or IDCANCEL; on OK the
// form holds what the user chose. Find asks `pick` for a name. In the native build the form goes to whoever
// answers dialogs there, and there is no Find.
INT_PTR ShowChangeAccessDlg(Velmora::SDK::IHostApp& host, ChangeAccessForm& form,
                            const AccountPicker& pick = PickAccount);

// How the command asks for the dialog, so that a test can answer by editing the form.
using ChangeAccessDialog = std::function<INT_PTR(Velmora::SDK::IHostApp&, ChangeAccessForm&)>;
