// The forms of MultiRename's modal dialogs: the events that they handle. One window class serves all dialogs.
//
// The window creates the dialog from the resource, calls Open before it is visible, passes the events on, and
// ends the dialog when the form calls DialogView::Close. The window's close button and Escape count as a
// press of kDialogCancel.
#pragma once

#include "multirename/form/control_view.h"

namespace Velmora::SDK {

// Results of dialogs, and the numbers of the buttons that cause them.
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

  // Called when the controls exist but are not visible yet. The view lives as long as the dialog.
  virtual void Open(DialogView& view) = 0;
  // A button, a check box or a radio button was clicked; its mark has already changed.
  virtual void Press(int control) = 0;
  // The user has changed a text or selected another line. Changes by the form itself may be reported too.
  virtual void Change(int /*control*/) {}
  // A single click on a list with columns (NM_CLICK); `row` is kNoLine if it was not on a row. Not called for
  // a selection by keyboard, nor for a double click, which no list of these dialogs handles.
  virtual void ClickRow(int /*control*/, int /*row*/) {}
  // F1 to F24, as 1 to 24, in an edit field that accepts files.
  virtual void PressFunctionKey(int /*control*/, int /*number*/, bool /*isShift*/) {}
  // Files were dropped on such a field; `path` is that of the first one.
  virtual void DropFile(int /*control*/, const WString& /*path*/) {}
};

}  // namespace Velmora::SDK
