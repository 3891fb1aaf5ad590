// The modal dialogs of MultiRename, over the forms that hold their rules (dialog_form.h).
#pragma once

#include "multirename/form/dialog_form.h"

namespace Velmora::SDK {

// Runs one of them, a number of RenameResource, until its form closes it, and returns what the form closed it
// with. Returns kDialogCancel if the window cannot be made; the form is not opened then.
//
// `owner` is the frame or a window inside it; the dialog belongs to the frame, and is centred over it. The
// dialog of search pairs is beside the panel's "..." button.
//
// An exception of the form ends the dialog and leaves from here. WM_CLOSE to the frame ends the dialog as a
// press of its close button does, with the boxes that it has opened; the frame gets the message as well.
INT_PTR RunRenameDialog(int resource, DialogForm& form, HWND owner);

}  // namespace Velmora::SDK
