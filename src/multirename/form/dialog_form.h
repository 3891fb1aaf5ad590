// What the modal dialogs of MultiRename have in common: which events they take. One class of the window
// serves all of them.
//
// The window makes the dialog from the resource, calls Open before it is seen, hands the events on, and ends
// the dialog when the form calls DialogView::Close. The window's close button and Escape are a press of
// kDialogCancel.
#pragma once

#include "multirename/form/control_view.h"

namespace Velmora::SDK {

// Results of dialogs, and the numbers of the buttons that bring them.
constexpr int kDialogOk = 1;
constexpr int kDialogCancel = 2;

class DialogView : public ControlView {
 public:
  // Ends the dialog; RunDialog returns the result.
  virtual void Close(int result) = 0;

 protected:
  ~DialogView() = default;
};

class DialogForm {
 public:
  virtual ~DialogForm() = default;

  // The controls are there and not yet visible. The view lives as long as the dialog.
  virtual void Open(DialogView& view) = 0;
  // A button, a check box or a radio button was clicked; it has its new mark.
  virtual void Press(int control) = 0;
  // The user has changed a text or chosen another line. What the form itself changes may be reported too.
  virtual void Change(int /*control*/) {}
  // A single click on a row of a list with columns (NM_CLICK); kNoLine beside the rows. Not for the
  // keyboard's selection, and not for a double click, which no list of these dialogs heeds.
  virtual void ClickRow(int /*control*/, int /*row*/) {}
  // F1 to F24, counted from 1, in an edit field that takes files.
  virtual void PressFunctionKey(int /*control*/, int /*number*/, bool /*isShift*/) {}
  // Files were dropped on such a field: the path of the first one.
  virtual void DropFile(int /*control*/, const WString& /*path*/) {}
};

}  // namespace Velmora::SDK
