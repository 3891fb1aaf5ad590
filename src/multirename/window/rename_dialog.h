// The modal dialogs of MultiRename, whose forms contain their rules (dialog_form.h).
#pragma once

#include "multirename/form/dialog_form.h"

namespace Velmora::SDK {

// Runs the dialog with this number of RenameResource until its form closes it, and returns the form's result.
// Returns kDialogCancel, without opening the form, if the window cannot be created.
//
// `owner` is the frame or a window inside it. The dialog is owned by the frame and centered over it; the
// dialog of search pairs is placed beside the panel's "..." button.
//
// An exception of the form ends the dialog and propagates to the caller. WM_CLOSE to the frame ends the
// dialog as its close button does, together with the boxes that it has opened; the frame receives the message
// as well.
INT_PTR RunRenameDialog(int resource, DialogForm& form, HWND owner);

}  // namespace Velmora::SDK
